// SPDX-License-Identifier: MIT
// What becomes of the editor's picture when the processes that make it crash, hang, are stopped or get no memory: it
// comes all the same, or a line says why not, and this process and its descriptors stay as they were.
#include "tests/support/ShowPoolFixture.h"

#include "tests/Folders.h"
#include "tests/support/desktop/Process.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using edit::ShowEvent;

class ShowFaults : public ShowPoolFixture
{
protected:
    ShowFaults()
    {
        WriteFlashShow(20000, false);
        settings.data = PathOf("Data");
        settings.width = 64;
        settings.height = 48;
        script = Bytes("Data/script.txt");
    }

    void StartShow()
    {
        StartPool();
        pool.SetScript(script, 1);
    }

    bool WaitForWarmPool()
    {
        return PollUntil([this] {
            const edit::ShowPool::Status status = pool.GetStatus();
            return status.processes == settings.maxProcesses &&
                   std::count(status.parked.begin(), status.parked.end(), -1) == 0;
        });
    }

    int CountEvents(ShowEvent::Kind kind) const
    {
        return int(std::count_if(events.begin(), events.end(),
                                 [kind](const ShowEvent& event) { return event.kind == kind; }));
    }

    static size_t OpenDescriptors()
    {
        const std::filesystem::directory_iterator list("/proc/self/fd");
        return size_t(std::distance(begin(list), end(list)));
    }

    std::string script;
};

TEST_F(ShowFaults, ACrashCostsALineAndARestart)
{
    settings.maxProcesses = 1;
    StartShow();
    ASSERT_FALSE(FrameAt(30).empty());
    const std::vector<uint8_t> expected = FrameAt(100);
    ASSERT_EQ(1u, Children().size());
    kill(Children()[0], SIGILL); // a crash that no sanitizer turns into its own end
    ASSERT_TRUE(PollUntil([this] { return CountEvents(ShowEvent::Crashed) == 1; }));
    EXPECT_EQ("The show crashed in frame 101: Illegal instruction.", events[0].text);
    EXPECT_EQ(101, events[0].frame);
    EXPECT_FALSE(pool.GetStatus().failed);
    FrameAt(200);
    EXPECT_EQ(1, CountEvents(ShowEvent::Restarted));
    EXPECT_TRUE(expected == FrameAt(100));
    EXPECT_EQ(2u, events.size());
}

TEST_F(ShowFaults, WhereTheShowCrashesTwiceItIsNotTriedAThirdTime)
{
    settings.maxProcesses = 1;
    StartShow();
    ASSERT_FALSE(FrameAt(100).empty());
    kill(Children().at(0), SIGILL);
    for (int crashes = 1; crashes <= 2; crashes++) {
        ASSERT_TRUE(PollUntil([&] { return CountEvents(ShowEvent::Crashed) == crashes; }));
        // A new one, which has not begun.
        ASSERT_TRUE(PollUntil([this] { return pool.GetStatus().parked == std::vector<int64_t>{0}; }));
        kill(Children().at(0), SIGILL);
    }
    ASSERT_TRUE(PollUntil([this] { return CountEvents(ShowEvent::Crashed) == 3; }));
    EXPECT_EQ(0, events.back().frame);
    EXPECT_FALSE(FrameAt(100).empty()); // which was kept
    pool.Seek(50);
    PollFor(1);
    EXPECT_TRUE(pool.GetStatus().failed);
    EXPECT_EQ("The show crashed in frame 0: Illegal instruction.", pool.GetStatus().failure);
    EXPECT_EQ(3, CountEvents(ShowEvent::Crashed));
    pool.SetScript(script, 2);
    EXPECT_FALSE(FrameAt(50, 2).empty());
    EXPECT_FALSE(pool.GetStatus().failed);
}

TEST_F(ShowFaults, AShowThatCantLoadIsTriedOnceAndToldUntilItChanges)
{
    const std::string broken = script + "[EFFECT]EffectName=FS_Image;StartTime=0;StopTime=500;LayerID=2;";
    StartPool();
    pool.SetScript(broken, 1);
    pool.Seek(10);
    ASSERT_TRUE(PollUntil([this] { return pool.GetStatus().failed; }));
    PollFor(1);
    EXPECT_NE(std::string::npos, pool.GetStatus().failure.find("ochre_painting1.jpg"))
        << pool.GetStatus().failure;
    EXPECT_EQ(0u, Children().size());
    EXPECT_EQ(0, framesTaken);
    EXPECT_LE(1, CountEvents(ShowEvent::Box));
    EXPECT_EQ(0, CountEvents(ShowEvent::Crashed) + CountEvents(ShowEvent::Restarted));
    // A picture that comes, or another script, helps.
    pool.SetScript(script, 2);
    EXPECT_FALSE(FrameAt(10, 2).empty());
    EXPECT_FALSE(pool.GetStatus().failed);
}

TEST_F(ShowFaults, AStoppedProcessIsEndedAndReplaced)
{
    settings.maxProcesses = 1;
    settings.hangSeconds = 1;
    StartShow();
    ASSERT_FALSE(FrameAt(30).empty());
    const int child = Children().at(0);
    kill(child, SIGSTOP);
    pool.Seek(300);
    pool.SetScript(script + Bytes("Data/script.txt"), 2);
    ASSERT_TRUE(PollUntil([this] { return CountEvents(ShowEvent::Hung) == 1; }));
    EXPECT_NE(std::string::npos, events[0].text.find("gave no sign of life")) << events[0].text;
    EXPECT_FALSE(FrameAt(300, 2).empty());
    const std::vector<int> children = Children();
    EXPECT_EQ(0, std::count(children.begin(), children.end(), child));
}

TEST_F(ShowFaults, NoCallWaitsForAStoppedProcess)
{
    settings.maxProcesses = 1;
    StartShow();
    ASSERT_FALSE(FrameAt(30).empty());
    kill(Children().at(0), SIGSTOP);
    // More than a socket holds.
    const std::string large = script + std::string(100000, ' ');
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 3000; i++) {
        pool.Seek(40 + i);
        if (i % 10 == 0)
            pool.SetScript(large, uint64_t(2 + i));
        pool.Poll();
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_LT(seconds, settings.hangSeconds); // only a wait for the end of the process could take so long
    EXPECT_EQ(1u, Children().size());
}

TEST_F(ShowFaults, AProcessWithoutMemoryIsToldAndNotTriedAtOnceAgain)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "under a sanitizer the memory of a process has no limit";
#endif
    // More messages than the limit holds.
    const std::string greedy = script +
                               "[MESSAGE]MessageText=flash;ActivationTime=0;TargetEffect=WhiteFlashOverlay;"
                               "Steps=90000000;TimeDelta=1;";
    settings.memoryLimit = uint64_t(400) << 20;
    StartPool();
    pool.SetScript(greedy, 1);
    pool.Seek(10);
    ASSERT_TRUE(PollUntil([this] { return CountEvents(ShowEvent::OutOfMemory) > 0; }));
    EXPECT_EQ("The show had no memory left while the show was loading.", events[0].text);
    // At once, after a quarter of a second: the same happened twice, so that it is over.
    ASSERT_TRUE(PollUntil([this] { return CountEvents(ShowEvent::OutOfMemory) > 1; }));
    PollFor(3);
    EXPECT_EQ(2, CountEvents(ShowEvent::OutOfMemory));
    EXPECT_TRUE(pool.GetStatus().failed);
    pool.SetScript(script, 2);
    EXPECT_FALSE(FrameAt(10, 2).empty());
}

TEST_F(ShowFaults, KilledAgainAndAgainItWaitsLongerEachTime)
{
    settings.maxProcesses = 1;
    StartShow();
    pool.Seek(10);
    int kills = 0;
    PollUntil(
        [&] {
            for (int child : Children()) {
                kill(child, SIGKILL);
                kills++;
            }
            return false;
        },
        3);
    // After 0, 0.25, 0.75, 1.75 and 3.75 s.
    const int crashes = CountEvents(ShowEvent::Crashed);
    EXPECT_GE(crashes, 2);
    EXPECT_LE(crashes, 5);
    EXPECT_FALSE(FrameAt(10).empty());
}

TEST_F(ShowFaults, MemoryStaysBelowItsLimit)
{
    settings.maxProcesses = 2;
    StartShow();
    ASSERT_FALSE(FrameAt(30).empty());
    ASSERT_TRUE(WaitForWarmPool());
    PollFor(1);
    const uint64_t two = pool.GetStatus().memory;
    ASSERT_GT(two, uint64_t(10) << 20);
    pool.Stop();
    EXPECT_EQ(0u, Children().size());

    // Room for between two and four of them.
    settings.maxProcesses = 16;
    settings.memoryLimit = two + two / 2;
    StartShow();
    ASSERT_FALSE(FrameAt(30).empty());
    uint64_t largest = 0;
    size_t most = 0;
    PollUntil(
        [&] {
            largest = std::max(largest, pool.GetStatus().memory);
            most = std::max(most, Children().size());
            return false;
        },
        6);
    EXPECT_LE(largest, settings.memoryLimit);
    EXPECT_GE(most, 2u);
    EXPECT_LE(most, 4u);
}

TEST_F(ShowFaults, NothingIsLeftOfProcessesThatCameAndWent)
{
    StartShow();
    ASSERT_FALSE(FrameAt(30).empty());
    ASSERT_TRUE(WaitForWarmPool());
    pool.Stop();
    EXPECT_EQ(0u, Children().size());
    const size_t before = OpenDescriptors();
    for (int round = 0; round < 4; round++) {
        StartShow();
        ASSERT_FALSE(FrameAt(30).empty());
        for (int child : Children())
            kill(child, round % 2 ? SIGSEGV : SIGKILL);
        ASSERT_FALSE(FrameAt(60 + round).empty());
        pool.DataChanged("loading.jpg");
        ASSERT_FALSE(FrameAt(90 + round).empty());
        pool.Stop();
        EXPECT_EQ(0u, Children().size());
    }
    EXPECT_EQ(before, OpenDescriptors());
}

static bool IsAlive(int process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    const size_t name = text.rfind(')');
    return name != std::string::npos && text.compare(name, 3, ") Z") != 0;
}

TEST_F(ShowFaults, TheProcessesEndWithTheirParentAlsoTheStoppedOnes)
{
    int ends[2];
    ASSERT_EQ(0, pipe2(ends, O_CLOEXEC));
    const int parent = fork();
    if (parent == 0) {
        StartShow();
        FrameAt(30);
        WaitForWarmPool();
        const std::vector<int> children = Children();
        kill(children.at(0), SIGSTOP);
        for (int child : children)
            if (write(ends[1], &child, sizeof child) != sizeof child)
                _exit(1);
        close(ends[1]);
        pause();
    }
    close(ends[1]);
    std::vector<int> children;
    for (int child; read(ends[0], &child, sizeof child) == sizeof child;)
        children.push_back(child);
    close(ends[0]);
    EXPECT_EQ(size_t(settings.maxProcesses), children.size());
    for (int child : children)
        EXPECT_TRUE(IsAlive(child));
    kill(parent, SIGKILL);
    waitpid(parent, nullptr, 0);
    for (int child : children)
        EXPECT_TRUE(WaitUntil([child] { return !IsAlive(child); }));
}

TEST_F(ShowFaults, AProgramThatIsNotThereIsARefusal)
{
    std::string reason;
    EXPECT_FALSE(pool.Start(settings, "/nowhere/marlinex-edit", &reason));
    EXPECT_EQ("/nowhere/marlinex-edit: No such file or directory", reason);
    pool.Poll();
    EXPECT_EQ(0, pool.GetStatus().processes);
}

TEST_F(ShowFaults, RandomBytesAreAScript)
{
    std::string bytes;
    for (int i = 0; i < 5000; i++)
        bytes += char((i * 7919 + i / 3) % 256);
    StartPool();
    pool.SetScript(bytes, 1);
    EXPECT_FALSE(FrameAt(0).empty());
    pool.SetScript("", 2);
    EXPECT_FALSE(FrameAt(0, 2).empty());
}
