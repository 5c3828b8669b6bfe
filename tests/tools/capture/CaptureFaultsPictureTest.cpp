// SPDX-License-Identifier: MIT
// What marlinex-capture does when the world is against it: full disks, outputs that are no files, odd names,
// encoders that die. Whatever happens, it ends, says what was wrong, and leaves nothing half done behind.
#include "tests/Folders.h"
#include "tests/support/CaptureFixture.h"
#include "tests/support/desktop/Process.h"

#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

class CaptureFault : public CaptureFixture
{
protected:
    // The shell runs the text in the folder; "$CAPTURE" is the program with its size and rate.
    ProgramRun Shell(const std::string& text, const std::vector<std::string>& more = {})
    {
        std::vector<std::string> environment = Environment();
        environment.push_back("CAPTURE=" BINARY_DIR "/marlinex-capture -q --size 64x48 --rate 10");
        environment.insert(environment.end(), more.begin(), more.end());
        return RunProgram("/bin/sh", {"-c", text}, environment, PathOf(""));
    }

    // An ffmpeg of the show's folder that is found ahead of the real one.
    void WriteEncoder(const std::string& text)
    {
        fs::create_directory(PathOf("bin"));
        WriteFile("bin/ffmpeg", "#!/bin/sh\n" + text);
        fs::permissions(PathOf("bin/ffmpeg"), fs::perms(0755));
        WriteFile("bin/ffprobe", "#!/bin/sh\nexec /usr/bin/ffprobe \"$@\"\n");
        fs::permissions(PathOf("bin/ffprobe"), fs::perms(0755));
    }
    std::string EncoderPath() const { return "PATH=" + PathOf("bin") + ":/usr/bin:/bin"; }

    std::vector<std::string> Environment(const std::string& more) const
    {
        std::vector<std::string> environment = CaptureFixture::Environment();
        environment.push_back(more);
        return environment;
    }
    using CaptureFixture::Environment;

    const std::vector<std::string> untouched = {"Data"};
};

static bool Has(const ProgramRun& run, const std::string& words)
{
    return run.errors.find(words) != std::string::npos;
}

// A process can be given a limit where a full disk can't be had: writing behind it fails as well.
TEST_F(CaptureFault, AFullDiskIsAFailureInEveryFormat)
{
    WriteFlashShow(3000, false);
    for (const char* name : {"x.mp4", "x.mov", "x.avi", "x.mkv"}) {
        WriteFile(name, "what was there before");
        // So little that only the end of the file is missing, which is what encoders like to forget.
        const ProgramRun run = Shell("trap '' XFSZ; ulimit -f 2; exec $CAPTURE -o " + std::string(name));
        EXPECT_EQ(1, run.status) << name;
        EXPECT_TRUE(Has(run, "File too large")) << name << run.errors;
        EXPECT_EQ("what was there before", Bytes(name)) << name;
        fs::remove(PathOf(name));
        EXPECT_EQ(untouched, Names(".")) << name;
    }
}

TEST_F(CaptureFault, AnEncoderThatOnlySaysThatAllIsWellIsNotBelieved)
{
    WriteFlashShow(1000, false);
    WriteFile("show.mp4", "what was there before");
    WriteEncoder("cat >/dev/null\nexit 0\n");
    ProgramRun run = Shell("exec $CAPTURE -o show.mp4", {EncoderPath()});
    EXPECT_EQ(1, run.status);
    EXPECT_TRUE(Has(run, "Invalid data found")) << run.errors;
    EXPECT_EQ("what was there before", Bytes("show.mp4"));
    // One that loses a frame.
    WriteEncoder(
        "exec /usr/bin/ffmpeg -v error -f rawvideo -pixel_format rgb0 -video_size 64x48 -framerate 10 "
        "-i pipe:0 -frames:v 9 -y \"$(for last; do :; done; echo \"$last\")\"\n");
    run = Shell("exec $CAPTURE -o show.mp4", {EncoderPath()});
    EXPECT_EQ(1, run.status);
    EXPECT_EQ("marlinex-capture: ffmpeg reported no error, but its file holds 9 of 10 frames\n", run.errors);
    EXPECT_EQ("what was there before", Bytes("show.mp4"));
    EXPECT_EQ((std::vector<std::string>{"Data", "bin", "show.mp4"}), Names("."));
}

TEST_F(CaptureFault, PicturesThatHaveNoRoomAreTold)
{
    WriteFlashShow(1000, false);
    ProgramRun run = Shell("ulimit -f 1; exec $CAPTURE --sheet --tile-width 400 -o sheet.png");
    EXPECT_EQ(1, run.status);
    EXPECT_EQ("marlinex-capture: File too large\n", run.errors);
    EXPECT_EQ(untouched, Names("."));
    run = Shell("ulimit -f 1; exec $CAPTURE --size 640x480 -o frames/");
    EXPECT_EQ(1, run.status);
    EXPECT_EQ(0u, run.errors.find("marlinex-capture: frames/00000")) << run.errors;
    EXPECT_TRUE(Has(run, ".png: File too large\n")) << run.errors;
    EXPECT_TRUE(Names("frames").empty());
}

TEST_F(CaptureFault, DevicesAndPipesAreWrittenIntoAndStay)
{
    WriteFlashShow(1000);
    EXPECT_EQ(0, Shell("exec $CAPTURE -o /dev/null").status);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(0, Shell("$CAPTURE -o /dev/stdout >out.mkv && $CAPTURE -o - | cat >piped.mkv").status);
    for (const char* name : {"out.mkv", "piped.mkv"}) {
        EXPECT_EQ(10, FrameCount(name)) << name;
        EXPECT_EQ("ffv1\npcm_f32le\n", Probe(name, "stream=codec_name")) << name;
    }
    EXPECT_EQ(0, Shell("mkfifo show.mp4; cat show.mp4 >got.mp4 & $CAPTURE -o show.mp4; wait").status);
    EXPECT_TRUE(fs::is_fifo(PathOf("show.mp4")));
    EXPECT_EQ(10, FrameCount("got.mp4"));
    EXPECT_EQ("h264\naac\n", Probe("got.mp4", "stream=codec_name"));
    EXPECT_EQ(0, Shell("mkfifo s.png; cat s.png >got.png & $CAPTURE --sheet -o s.png; wait").status);
    EXPECT_TRUE(fs::is_fifo(PathOf("s.png")));
    EXPECT_EQ(6 * 248 + 8, LoadPng(PathOf("got.png")).width);
    EXPECT_EQ(
        (std::vector<std::string>{"Data", "got.mp4", "got.png", "out.mkv", "piped.mkv", "s.png", "show.mp4"}),
        Names("."));

    const ProgramRun full = Shell("exec $CAPTURE --sheet -o /dev/full");
    EXPECT_EQ(1, full.status);
    EXPECT_EQ("marlinex-capture: No space left on device\n", full.errors);
    EXPECT_EQ(1, Shell("exec $CAPTURE -o /dev/full").status);
}

TEST_F(CaptureFault, APipeThatNobodyReadsIsWaitedForUntilCtrlC)
{
    WriteFlashShow(1000, false);
    ASSERT_EQ(0, mkfifo(PathOf("show.mkv").c_str(), 0600));
    Process program;
    ASSERT_TRUE(program.Start({BINARY_DIR "/marlinex-capture", "-o", "show.mkv", "--size", "64x48"},
                              CaptureFixture::Environment(), PathOf("")));
    ASSERT_TRUE(WaitUntil([&] { return !program.Errors().empty(); }));
    EXPECT_EQ("show.mkv: waiting for a program that reads it\n", program.Errors());
    program.Signal(SIGINT);
    ASSERT_TRUE(program.WaitForExit());
    EXPECT_EQ(130, program.ExitStatus());
    EXPECT_EQ((std::vector<std::string>{"Data", "show.mkv"}), Names("."));
}

TEST_F(CaptureFault, ALinkThatLeadsNowhereYetIsFollowed)
{
    WriteFlashShow(1000, false);
    fs::create_directory(PathOf("disk"));
    fs::create_symlink("disk/show.mp4", PathOf("link.mp4"));
    ASSERT_EQ(0, Shell("exec $CAPTURE -o link.mp4").status);
    EXPECT_TRUE(fs::is_symlink(PathOf("link.mp4")));
    EXPECT_EQ((std::vector<std::string>{"show.mp4"}), Names("disk"));
}

TEST_F(CaptureFault, APerCentSignIsAPatternInTheNameOfAPngOnly)
{
    WriteFlashShow(200, false);
    fs::create_directory(PathOf("50%"));
    for (const char* name : {"50%/x.mp4", "a%03d.mp4", "50%/a%%%02d.png", "50%/b%%.mkv"})
        ASSERT_EQ(0, Shell(std::string("exec $CAPTURE -o '") + name + "'").status) << name;
    EXPECT_EQ((std::vector<std::string>{"a%00.png", "a%01.png", "b%%.mkv", "x.mp4"}), Names("50%"));
    EXPECT_EQ(2, FrameCount("50%/x.mp4"));
    EXPECT_EQ(2, FrameCount("file:a%03d.mp4"));
}

TEST_F(CaptureFault, AScriptMayComeThroughAPipe)
{
    WriteFlashShow(300);
    for (const char* way :
         {"cat Data/script.txt | $CAPTURE -o x.mkv -", "$CAPTURE -o x.mkv - <Data/script.txt",
          "cat Data/script.txt | $CAPTURE -o x.mkv /dev/stdin",
          "mkfifo f; cat Data/script.txt >f & $CAPTURE -o x.mkv f"}) {
        const ProgramRun run = Shell(way);
        EXPECT_EQ(0, run.status) << way << run.errors;
        EXPECT_EQ(3, FrameCount("x.mkv")) << way;
        EXPECT_EQ("ffv1\npcm_f32le\n", Probe("x.mkv", "stream=codec_name")) << way;
        fs::remove(PathOf("x.mkv"));
    }
}

TEST_F(CaptureFault, ALineBreakInTheNameOfAPartIsRefused)
{
    WriteFlashShow(1000, false);
    ASSERT_EQ(0, Shell("exec $CAPTURE -o 1.mkv --segment 1/2").status);
    fs::copy_file(PathOf("1.mkv"), PathOf("x'\nfile '1.mkv"));
    const ProgramRun run = Shell("exec $CAPTURE --join -o all.mkv 1.mkv \"x'\nfile '1.mkv\"");
    EXPECT_EQ(1, run.status);
    EXPECT_EQ("marlinex-capture: part 2 has a line break in its path, which a list of parts can't have: "
              "rename it\n",
              run.errors);
    EXPECT_FALSE(Exists("all.mkv"));
}

class CaptureWithItsEncoder : public CaptureFault
{
protected:
    void Start(int milliseconds)
    {
        WriteFlashShow(milliseconds, false);
        WriteEncoder("echo $$ >pid.new && mv pid.new pid && exec /usr/bin/ffmpeg \"$@\"\n");
        ASSERT_TRUE(program.Start({BINARY_DIR "/marlinex-capture", "-q", "-o", "show.mp4", "--size", "64x48"},
                                  Environment(EncoderPath()), PathOf("")));
        ASSERT_TRUE(WaitUntil([&] { return Exists("pid"); }, 60));
        encoder = std::stoi(Bytes("pid"));
    }

    std::vector<std::string> Left()
    {
        fs::remove_all(PathOf("bin"));
        fs::remove(PathOf("pid"));
        return Names(".");
    }

    Process program;
    int encoder = 0;
};

TEST_F(CaptureWithItsEncoder, IsAFailureWhenThatIsKilled)
{
    Start(200000);
    kill(encoder, SIGKILL);
    ASSERT_TRUE(program.WaitForExit(60));
    EXPECT_EQ(1, program.ExitStatus());
    EXPECT_EQ("marlinex-capture: ffmpeg was ended by signal 9\n", program.Errors());
    EXPECT_EQ(untouched, Left());
}

TEST_F(CaptureWithItsEncoder, EndsOnCtrlCAlsoWhenThatWasStopped)
{
    Start(200000);
    kill(encoder, SIGSTOP);
    // Until the pipe is full and the capture waits for it: it does no more work then.
    const std::string status = "/proc/" + std::to_string(encoder) + "/stat";
    ASSERT_TRUE(WaitUntil([&] {
        char line[256] = {};
        const int file = open(status.c_str(), O_RDONLY | O_CLOEXEC);
        const bool stopped = file >= 0 && read(file, line, sizeof line - 1) > 0 &&
                             std::string(line).find(") T") != std::string::npos;
        close(file);
        return stopped;
    }));
    program.Signal(SIGINT);
    ASSERT_TRUE(program.WaitForExit(60));
    EXPECT_EQ(130, program.ExitStatus()) << program.Errors();
    for (const std::string& name : Left())
        EXPECT_TRUE(name == "Data" || name == "show.mp4") << name;
    if (Exists("show.mp4")) { // unless it was stopped ahead of the first frame
        EXPECT_GT(FrameCount("show.mp4"), 0);
    }
}

TEST_F(CaptureFault, TooFewDescriptorsAreTold)
{
    WriteFlashShow(500, false);
    const ProgramRun run = Shell("ulimit -n 8; exec $CAPTURE -o show.mp4");
    EXPECT_EQ(1, run.status);
    EXPECT_EQ("marlinex-capture: ffmpeg: Too many open files\n", run.errors);
    EXPECT_EQ(untouched, Names("."));
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // which take more than any limit
TEST_F(CaptureFault, TooLittleMemoryIsTold)
{
    WriteFlashShow(1000, false);
    // A sheet of 573 MB.
    const ProgramRun run = Shell("ulimit -v 500000; exec $CAPTURE --sheet --rate 10000 --tiles 10000 "
                                 "--columns 100 --tile-width 140 -o sheet.png");
    EXPECT_EQ(1, run.status);
    EXPECT_EQ("marlinex-capture: the system refuses more memory or more threads\n", run.errors);
    EXPECT_EQ(untouched, Names("."));
}
#endif
