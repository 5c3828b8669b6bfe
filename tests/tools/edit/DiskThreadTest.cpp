// SPDX-License-Identifier: MIT
// A gate stands for a slow disk: work waits at it until the test opens it.
#include "tools/edit/DiskThread.h"

#include "tests/support/SoundPulls.h"
#include "tests/support/WithoutNewThreads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <string>

using edit::DiskThread;

namespace
{

class Gate
{
public:
    void Wait() { opened.get_future().wait(); }
    void Open() { opened.set_value(); }

private:
    std::promise<void> opened;
};

} // namespace

TEST(ADiskThread, DoesWorkInOrderAndWhatFollowsOnTheCallersThread)
{
    std::string done;
    const std::thread::id caller = std::this_thread::get_id();
    std::thread::id worker;
    DiskThread disk;
    EXPECT_FALSE(disk.IsBusy());
    disk.Do(
        nullptr,
        [&] {
            done += "a";
            worker = std::this_thread::get_id();
        },
        [&] {
            done += "b";
            EXPECT_EQ(caller, std::this_thread::get_id());
        });
    disk.Do(nullptr, [] {}, {});
    disk.Do(
        nullptr, [] {}, [&] { done += "c"; });
    EXPECT_TRUE(disk.IsBusy());
    disk.Finish();
    EXPECT_FALSE(disk.IsBusy());
    EXPECT_EQ("abc", done);
    EXPECT_NE(caller, worker);
    EXPECT_FALSE(disk.Poll()) << "all of it has been followed";
}

TEST(ADiskThread, HoldsUpNobodyWhileItsDiskIsSlow)
{
    Gate gate;
    std::atomic<int> woken{0};
    bool followed = false;
    DiskThread disk([&] { woken++; });
    disk.Do(
        nullptr, [&] { gate.Wait(); }, [&] { followed = true; });
    EXPECT_FALSE(disk.Poll());
    EXPECT_TRUE(disk.IsBusy());
    EXPECT_FALSE(followed);
    EXPECT_EQ(0, woken);
    gate.Open();
    ASSERT_TRUE(Eventually([&] { return woken == 1; }));
    EXPECT_FALSE(followed) << "not before the caller asks";
    EXPECT_TRUE(disk.Poll());
    EXPECT_TRUE(followed);
}

TEST(ADiskThread, DoesTheWorkOfAnOwnerThatEndedButNothingFollows)
{
    Gate gate;
    int first = 0, second = 0;
    std::string done;
    DiskThread disk;
    disk.Do(
        &first, [&] { gate.Wait(); }, [&] { done += "no"; }); // at work
    disk.Do(
        &first, [&] { done += "a"; }, [&] { done += "no"; }); // waits
    disk.Do(
        &second, [&] { done += "b"; }, [&] { done += "c"; });
    disk.Forget(&first);
    gate.Open();
    disk.Finish();
    EXPECT_EQ("abc", done);
    disk.Do(
        &first, [] {}, [&] { done += "d"; });
    disk.Finish();
    EXPECT_EQ("abcd", done) << "a new one at the same address";
}

TEST(ADiskThread, FinishesAlsoWhatFollowsFromWhatFollows)
{
    int rounds = 0;
    DiskThread disk;
    std::function<void()> again = [&] {
        if (++rounds < 5)
            disk.Do(
                nullptr, [] {}, again);
    };
    disk.Do(
        nullptr, [] {}, again);
    disk.Finish();
    EXPECT_EQ(5, rounds);
}

TEST(ADiskThread, DoesAllItsWorkBeforeItEnds)
{
    std::atomic<int> done{0};
    {
        DiskThread disk;
        for (int i = 0; i < 100; i++)
            disk.Do(
                nullptr, [&] { done++; }, [&] { done += 1000; });
    }
    EXPECT_EQ(100, done);
}

TEST(ADiskThread, ThatTheSystemRefusesDoesTheWorkAllTheSame)
{
    WithoutNewThreads([] {
        std::string done;
        DiskThread disk;
        disk.Do(
            nullptr, [&] { done += "a"; }, [&] { done += "b"; });
        EXPECT_EQ("a", done);
        EXPECT_TRUE(disk.IsBusy());
        disk.Finish();
        EXPECT_EQ("ab", done);
    });
}
