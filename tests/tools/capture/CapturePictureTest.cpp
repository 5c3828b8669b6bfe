// SPDX-License-Identifier: MIT
// What marlinex-capture writes, frame by frame and sample by sample.
#include "tests/support/CaptureFixture.h"

#include "tests/Folders.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/desktop/Process.h"
#include "tools/capture/WebpFile.h"

#include <cmath>
#include <csignal>
#include <set>

class Capture : public CaptureFixture
{
protected:
    // A script of the real scenes that move in Render or draw off-screen, a second or so of each.
    void WriteSceneShow()
    {
        WriteFile("scenes.txt",
                  "[EFFECT]EffectName=FX_Scroller_Intro;StartTime=0;StopTime=2500;LayerID=1;"
                  "[MESSAGE]MessageText=light_flash;ActivationTime=200;TargetEffect=FX_Scroller_Intro;"
                  "Steps=3;TimeDelta=700;"
                  "[EFFECT]EffectName=FX_Credits;StartTime=2000;StopTime=4000;LayerID=2;"
                  "[MESSAGE]MessageText=fade_in;ActivationTime=2100;TargetEffect=FX_Credits;"
                  "[EFFECT]EffectName=FX_Path;StartTime=4000;StopTime=6000;LayerID=2;"
                  "[MESSAGE]MessageText=trigger_cam;ActivationTime=4500;TargetEffect=FX_Path;"
                  "[MESSAGE]MessageText=tree1;ActivationTime=5000;TargetEffect=FX_Path;");
    }

    ProgramRun CaptureScenes(std::vector<std::string> words)
    {
        words.insert(words.end(), {"scenes.txt", "--data", SOURCE_DIR "/Data", "--rate", "10"});
        return Run(words);
    }
};

TEST_F(Capture, AVideoHasEveryFrameAndTheMusicAndNothingElse)
{
    WriteFlashShow(2100);
    const ProgramRun run = Run({"-o", "show.mp4", "--rate", "30"});
    ASSERT_EQ(0, run.status) << run.errors;
    EXPECT_EQ("", run.output);
    EXPECT_EQ(63, FrameCount("show.mp4"));
    EXPECT_EQ("h264\naac\n", Probe("show.mp4", "stream=codec_name"));
    EXPECT_EQ("30/1\n", Probe("show.mp4", "stream=avg_frame_rate", "v"));
    EXPECT_EQ("2.100000\n", Probe("show.mp4", "stream=duration", "v"));
    EXPECT_EQ("2.100000\n", Probe("show.mp4", "stream=duration", "a"));
    EXPECT_EQ("0.000000\n0.000000\n", Probe("show.mp4", "stream=start_time"));
    EXPECT_EQ("bt709\n", Probe("show.mp4", "stream=color_space", "v"));
    EXPECT_EQ((std::vector<std::string>{"Data", "show.mp4"}), Names("."));
}

TEST_F(Capture, AnAnimationForPagesShowsAllOfItsTimeWithoutSound)
{
    WriteFlashShow(2100);
    const ProgramRun run = Run({"-o", "loop.webp"});
    ASSERT_EQ(0, run.status) << run.errors;
    EXPECT_EQ((std::vector<std::string>{"Data", "loop.webp"}), Names("."));
    std::string error;
    // 2.1 s are 52.5 frames of 40 ms, and a fraction of a frame is a frame.
    EXPECT_EQ(53 * 40, capture::AnimationLength(PathOf("loop.webp"), &error)) << error;
    ASSERT_EQ(0, Run({"-o", "short.webp", "--rate", "20", "--to", "0.5", "--size", "33x21"}).status);
    EXPECT_EQ(10 * 50, capture::AnimationLength(PathOf("short.webp"), &error)) << error;
}

TEST_F(Capture, AFractionOfAFrameIsAFrame)
{
    WriteFlashShow(1000, false);
    ASSERT_EQ(0, Run({"-o", "ntsc.mkv", "--rate", "60000/1001"}).status); // 59.94
    EXPECT_EQ(60, FrameCount("ntsc.mkv"));
    ASSERT_EQ(0, Run({"-o", "ntsc.mp4", "--rate", "60000/1001"}).status);
    EXPECT_EQ(60, FrameCount("ntsc.mp4"));
    EXPECT_EQ("60000/1001\n", Probe("ntsc.mp4", "stream=avg_frame_rate", "v"));
    ASSERT_EQ(0, Run({"-o", "odd/", "--rate", "7/3"}).status); // 2.33
    EXPECT_EQ((std::vector<std::string>{"000000.png", "000001.png", "000002.png"}), Names("odd"));
    ASSERT_EQ(0, Run({"-o", "even/", "--rate", "25"}).status);
    EXPECT_EQ(25u, Names("even").size());
}

TEST_F(Capture, AnArchiveKeepsEachPixelAndEachSample)
{
    WriteFlashShow(1200);
    ASSERT_EQ(0, Run({"-o", "show.mkv", "--rate", "10"}).status);
    ASSERT_EQ(0, Run({"-o", "frames/", "--rate", "10"}).status);
    std::vector<unsigned char> expected;
    for (const std::string& name : Names("frames")) {
        const Picture picture = LoadPng(PathOf("frames/" + name));
        expected.insert(expected.end(), picture.pixels.begin(), picture.pixels.end());
    }
    EXPECT_EQ(size_t(12 * 64 * 48 * 3), expected.size());
    EXPECT_TRUE(expected == Pixels("show.mkv"));

    const std::vector<float> tune = soundfiles::Decode(PathOf("Data/tune.wav"));
    EXPECT_EQ(size_t(2 * 52920), tune.size());
    EXPECT_TRUE(tune == Samples("show.mkv"));
}

TEST_F(Capture, EachFrameShowsTheMomentAtWhichItBegins)
{
    WriteFlashShow(800, false);
    ASSERT_EQ(0, Run({"-o", "frames/", "--rate", "10"}).status);
    ASSERT_EQ(8u, Names("frames").size());
    std::vector<int> brightness;
    for (const std::string& name : Names("frames"))
        brightness.push_back(*LoadPng(PathOf("frames/" + name)).At(32, 24));
    // The flash starts in frame 0, which has no length yet, so that frame 1 is as bright. From there on each
    // takes a twentieth off the one before: half of what is there in a second.
    double expected = 0.9 * 255;
    EXPECT_NEAR(expected, brightness[0], 1);
    for (size_t i = 1; i < 8; i++) {
        EXPECT_NEAR(expected, brightness[i], 1) << i;
        expected *= 0.95;
    }
}

TEST_F(Capture, FromASampleOnTheMusicIsThatOfThePicture)
{
    WriteFlashShow(2000);
    ASSERT_EQ(0, Run({"-o", "part.mkv", "--rate", "30", "--from", "0.7", "--to", "1.5"}).status);
    EXPECT_EQ(24, FrameCount("part.mkv"));
    const std::vector<float> tune = soundfiles::Decode(PathOf("Data/tune.wav"));
    // Frame 21 begins at 0.7 s, sample 30870; frame 45 at 1.5 s, sample 66150.
    EXPECT_TRUE(std::vector<float>(tune.begin() + 2 * 30870, tune.begin() + 2 * 66150) ==
                Samples("part.mkv"));

    ASSERT_EQ(0, Run({"-o", "frames/", "--rate", "30", "--to", "1.5"}).status);
    ASSERT_EQ(0, Run({"-o", "part-%03d.png", "--rate", "30", "--from", "0.7", "--to", "1.5"}).status);
    EXPECT_FALSE(Exists("part-020.png"));
    EXPECT_FALSE(Exists("part-045.png"));
    for (int frame = 21; frame < 45; frame++) {
        const std::string number = std::to_string(frame);
        EXPECT_EQ(Bytes("frames/0000" + number + ".png"), Bytes("part-0" + number + ".png")) << frame;
    }
}

TEST_F(Capture, TheMusicOfAnMp4IsInItsPlaceToo)
{
    WriteFlashShow(1500);
    ASSERT_EQ(0, Run({"-o", "show.mp4", "--rate", "20", "--from", "0.5"}).status);
    const std::vector<float> tune = soundfiles::Decode(PathOf("Data/tune.wav"));
    const std::vector<float> heard = Samples("show.mp4");
    ASSERT_GE(heard.size(), size_t(2 * 40000));
    // A lossy codec: the place at which both are most alike has to be the right one.
    double best = -1;
    int bestShift = 0;
    for (int shift = -50; shift <= 50; shift++) {
        double sum = 0;
        for (int i = 4000; i < 36000; i++)
            sum += double(heard[size_t(2 * i)]) * double(tune[size_t(2 * (22050 + i + shift))]);
        if (sum > best) {
            best = sum;
            bestShift = shift;
        }
    }
    EXPECT_EQ(0, bestShift);
}

TEST_F(Capture, BehindItsMusicAShowIsSilent)
{
    WriteFlashShow(500);
    std::string script = Bytes("Data/script.txt");
    script.replace(script.find("StopTime=500"), 12, "StopTime=900");
    WriteFile("Data/script.txt", script);
    ASSERT_EQ(0, Run({"-o", "show.mkv", "--rate", "10"}).status);
    std::vector<float> expected = soundfiles::Decode(PathOf("Data/tune.wav"));
    expected.resize(2 * 39690, 0.0f);
    EXPECT_TRUE(expected == Samples("show.mkv"));
}

TEST_F(Capture, TwoRunsWriteTheSameBytes)
{
    WriteFlashShow(1000);
    for (const char* name : {"one.mp4", "two.mp4", "one.mkv", "two.mkv"})
        ASSERT_EQ(0, Run({"-o", name, "--rate", "10", "--threads", "2"}).status);
    EXPECT_EQ(Bytes("one.mp4"), Bytes("two.mp4"));
    EXPECT_EQ(Bytes("one.mkv"), Bytes("two.mkv"));
    ASSERT_EQ(0, Run({"-o", "one.png", "--sheet"}).status);
    ASSERT_EQ(0, Run({"-o", "two.png", "--sheet"}).status);
    EXPECT_EQ(Bytes("one.png"), Bytes("two.png"));
}

TEST_F(Capture, SegmentsHaveTheFramesOfTheWhole)
{
    WriteSceneShow();
    ASSERT_EQ(0, CaptureScenes({"-o", "whole/"}).status);
    for (const char* part : {"1/3", "2/3", "3/3"})
        ASSERT_EQ(0, CaptureScenes({"-o", "parts/", "--segment", part}).status);
    ASSERT_EQ(60u, Names("whole").size());
    EXPECT_EQ(Names("whole"), Names("parts"));
    for (const std::string& name : Names("whole"))
        EXPECT_TRUE(Bytes("whole/" + name) == Bytes("parts/" + name)) << name;
    // They are worth comparing: but for the dark ones at the start and between the scenes none is like
    // another.
    std::set<std::string> different;
    for (const std::string& name : Names("whole"))
        different.insert(Bytes("whole/" + name));
    EXPECT_GE(different.size(), 54u);
}

TEST_F(Capture, ThinnedPicturesAreThoseOfTheWhole)
{
    WriteSceneShow();
    ASSERT_EQ(0, CaptureScenes({"-o", "whole/"}).status);
    ASSERT_EQ(0, CaptureScenes({"-o", "thin/", "--every", "0.75"}).status);
    EXPECT_EQ((std::vector<std::string>{"000000.png", "000008.png", "000015.png", "000023.png", "000030.png",
                                        "000038.png", "000045.png", "000053.png"}),
              Names("thin"));
    for (const std::string& name : Names("thin"))
        EXPECT_TRUE(Bytes("whole/" + name) == Bytes("thin/" + name)) << name;
}

TEST_F(Capture, JoinedPartsAreTheWholeWithItsMusic)
{
    WriteFlashShow(1400);
    const std::vector<std::string> how = {"--rate", "30", "--from", "0.2"};
    const auto with = [&how](std::vector<std::string> words) {
        words.insert(words.end(), how.begin(), how.end());
        return words;
    };
    ASSERT_EQ(0, Run(with({"-o", "whole.mkv"})).status);
    for (const char* number : {"1", "2", "3"})
        ASSERT_EQ(0, Run(with({"-o", std::string("it's ") + number + ".mkv", "--segment",
                               std::string(number) + "/3"}))
                         .status);
    EXPECT_EQ("ffv1\n", Probe("it's 2.mkv", "stream=codec_name"));
    const ProgramRun join =
        Run(with({"--join", "-o", "joined.mkv", "it's 1.mkv", "it's 2.mkv", "it's 3.mkv"}));
    ASSERT_EQ(0, join.status) << join.errors;
    EXPECT_EQ(36, FrameCount("joined.mkv"));
    EXPECT_TRUE(Pixels("whole.mkv") == Pixels("joined.mkv"));
    EXPECT_TRUE(Samples("whole.mkv") == Samples("joined.mkv"));

    const ProgramRun partial = Run(with({"--join", "-o", "bad.mkv", "it's 1.mkv", "it's 3.mkv"}));
    EXPECT_EQ(1, partial.status);
    EXPECT_EQ(
        "marlinex-capture: the parts have 24 frames together, the show has 36: one is missing, incomplete or "
        "there twice, or they were made at another rate\n",
        partial.errors);
    for (const std::string& name : Names("."))
        EXPECT_NE(0u, name.find("bad")) << name;
}

TEST_F(Capture, JoinedMp4sRunOnEvenly)
{
    WriteFlashShow(1400);
    for (const char* number : {"1", "2", "3"})
        ASSERT_EQ(0, Run({"-o", std::string(number) + ".mp4", "--rate", "60000/1001", "--segment",
                          std::string(number) + "/3"})
                         .status);
    const ProgramRun join =
        Run({"--join", "-o", "all.mp4", "--rate", "60000/1001", "1.mp4", "2.mp4", "3.mp4"});
    ASSERT_EQ(0, join.status) << join.errors;
    EXPECT_EQ(84, FrameCount("all.mp4"));
    EXPECT_EQ("h264\naac\n", Probe("all.mp4", "stream=codec_name"));
    // Every frame at its time, to a hundredth of a frame.
    const std::string times = Probe("all.mp4", "frame=pts_time", "v");
    size_t begin = 0;
    for (int frame = 0; frame < 84; frame++) {
        const size_t end = times.find('\n', begin);
        ASSERT_NE(std::string::npos, end) << frame;
        EXPECT_NEAR(frame * 1001.0 / 60000, std::stod(times.substr(begin, end - begin)), 0.00017) << frame;
        begin = end + 1;
    }
}

class InterruptedCapture : public Capture, public testing::WithParamInterface<int>
{
};

TEST_P(InterruptedCapture, LeavesAVideoOfWhatThereWas)
{
    WriteFlashShow(200000);
    Process program;
    ASSERT_TRUE(program.Start({BINARY_DIR "/marlinex-capture", "-o", "show.mp4", "--size", "64x48"},
                              Environment(), PathOf("")));
    ASSERT_TRUE(WaitUntil([&] { return program.Errors().find(" 10 %") != std::string::npos; }, 60));
    program.Signal(GetParam());
    ASSERT_TRUE(program.WaitForExit(60));
    EXPECT_EQ(130, program.ExitStatus()) << program.Errors();
    const int frames = FrameCount("show.mp4");
    EXPECT_GE(frames, 1200);
    EXPECT_LT(frames, 12000);
    EXPECT_NE(std::string::npos, program.Errors().find("show.mp4: " + std::to_string(frames) + " frames in "))
        << program.Errors();
    // As much music as pictures, to a block of its codec.
    EXPECT_NEAR(frames / 60.0, std::stod(Probe("show.mp4", "stream=duration", "a")), 1024 / 44100.0);
    EXPECT_EQ((std::vector<std::string>{"Data", "show.mp4"}), Names("."));
}

INSTANTIATE_TEST_SUITE_P(ByKeyAndByScheduler, InterruptedCapture, testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST_F(Capture, WithoutFfmpegSaysSo)
{
    WriteFlashShow(500);
    const ProgramRun run = Run({"-o", "show.mp4"}, {"PATH=/nowhere"});
    EXPECT_EQ(1, run.status);
    EXPECT_EQ("marlinex-capture: ffmpeg is not installed, or not on PATH: videos are made with it\n",
              run.errors);
    EXPECT_EQ((std::vector<std::string>{"Data"}), Names("."));
    EXPECT_EQ(0, Run({"-o", "frames/", "--rate", "4"}, {"PATH=/nowhere"}).status); // which need none
}

TEST_F(Capture, AnEncoderThatFailsIsHeard)
{
    WriteFlashShow(5000);
    WriteFile("show.mp4", "what was there before");
    const ProgramRun run = Run({"-o", "show.mp4", "-q", "--encoder", "-c:v no_such_codec"});
    EXPECT_EQ(1, run.status);
    EXPECT_NE(std::string::npos, run.errors.find("marlinex-capture: ffmpeg failed with exit status"))
        << run.errors;
    EXPECT_NE(std::string::npos, run.errors.find("no_such_codec")) << run.errors;
    EXPECT_EQ("what was there before", Bytes("show.mp4"));
    EXPECT_EQ((std::vector<std::string>{"Data", "show.mp4"}), Names("."));
}

TEST_F(Capture, FurtherArgumentsReachTheEncoder)
{
    WriteFlashShow(400);
    ASSERT_EQ(0, Run({"-o", "show.mp4", "--rate", "10", "--encoder", "-c:v mpeg4 -q:v 3"}).status);
    EXPECT_EQ("mpeg4\naac\n", Probe("show.mp4", "stream=codec_name"));
}

TEST_F(Capture, AMissingPictureIsAFailureAndNoVideo)
{
    WriteFlashShow(500);
    std::string script = Bytes("Data/script.txt");
    WriteFile("Data/script.txt", script + "[EFFECT]EffectName=FS_Image;StartTime=0;StopTime=500;LayerID=2;");
    const ProgramRun run = Run({"-o", "show.mp4", "-q"});
    EXPECT_EQ(1, run.status);
    EXPECT_NE(std::string::npos,
              run.errors.find("marlinex-capture: Marlinex 1.5 Error: Texture Loader: Bad: "))
        << run.errors;
    EXPECT_NE(std::string::npos, run.errors.find("ochre_painting1.jpg")) << run.errors;
    EXPECT_EQ(std::string::npos, run.errors.find("teapot")) << run.errors;
    EXPECT_EQ((std::vector<std::string>{"Data"}), Names("."));
}

TEST_F(Capture, AMissingPieceOfMusicIsAFailureUnlessItIsNotWanted)
{
    WriteFlashShow(500);
    std::string script = Bytes("Data/script.txt");
    WriteFile("Data/script.txt", script + "[MUSIC]FileName=gone.ogg;");
    const ProgramRun run = Run({"-o", "show.mp4"});
    EXPECT_EQ(1, run.status);
    EXPECT_EQ("marlinex-capture: the music can't be opened: Data/gone.ogg\n", run.errors);
    ASSERT_EQ(0, Run({"-o", "show.mp4", "--no-music"}).status);
    EXPECT_EQ("h264\n", Probe("show.mp4", "stream=codec_name"));
}

TEST_F(Capture, ASheetHasItsTilesInRows)
{
    WriteFlashShow(1000, false);
    ASSERT_EQ(
        0,
        Run({"-o", "sheet.png", "--sheet", "--tiles", "5", "--columns", "3", "--tile-width", "32"}).status);
    const Picture sheet = LoadPng(PathOf("sheet.png"));
    EXPECT_EQ(8 + 3 * (32 + 8), sheet.width);
    EXPECT_EQ(8 + 2 * (24 + 16 + 8), sheet.height);
    // The middles of five equal stretches, each darker than the one before, and paper in the sixth place.
    int last = 256;
    for (int tile = 0; tile < 6; tile++) {
        const int x = 8 + tile % 3 * 40 + 16;
        const int y = 8 + tile / 3 * 48 + 12;
        EXPECT_LT(int(*sheet.At(x, y)), last) << tile;
        last = *sheet.At(x, y);
    }
    EXPECT_EQ(16, last);
}
