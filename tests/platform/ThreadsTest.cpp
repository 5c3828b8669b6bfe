// SPDX-License-Identifier: MIT
#include "platform/Threads.h"

#include "tests/support/WithoutNewThreads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <semaphore>
#include <thread>

#include <sys/resource.h>
#include <unistd.h>

static std::binary_semaphore done(0);
static int seen = 0;

static void Note(void* context)
{
    seen = *static_cast<int*>(context);
    done.release();
}

TEST(Threads, AThreadRunsItsBodyWithItsContext)
{
    int context = 17;
    ASSERT_TRUE(platform::StartThread(Note, &context));
    done.acquire();
    EXPECT_EQ(17, seen);
}

TEST(Threads, SomeCanBeStartedUsually)
{
    EXPECT_TRUE(platform::CanStartThreads(0));
    EXPECT_TRUE(platform::CanStartThreads(1));
    EXPECT_TRUE(platform::CanStartThreads(6));
}

TEST(Threads, OneThatTheSystemRefusesIsToldAndItsBodyNeverRuns)
{
    WithoutNewThreads([] {
        int context = 17;
        EXPECT_FALSE(platform::StartThread(Note, &context));
        EXPECT_EQ(0, seen);
        EXPECT_FALSE(platform::CanStartThreads(1));
        EXPECT_TRUE(platform::CanStartThreads(0));
    });
}

static int NicenessOf(bool givesWay)
{
    int niceness = 0;
    std::thread([&] {
        if (givesWay)
            platform::GiveWay();
        std::thread([&] { niceness = getpriority(PRIO_PROCESS, 0); }).join();
    }).join();
    return niceness;
}

TEST(Threads, GiveWayWithThoseThatTheyStartAndNoOthers)
{
    const int usual = NicenessOf(false);
    EXPECT_EQ(std::min(usual + 10, 19), NicenessOf(true));
    EXPECT_EQ(usual, NicenessOf(false));
}

// Threads that have ended by the time that the next one starts would need hardly any room.
TEST(Threads, SoManyCanBeStartedAsTheSystemLetsRunAtTheSameTime)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become a user who runs nothing else";
    WithRoomForThreads(16, [] {
        EXPECT_TRUE(platform::CanStartThreads(16));
        EXPECT_FALSE(platform::CanStartThreads(200));
    });
}
