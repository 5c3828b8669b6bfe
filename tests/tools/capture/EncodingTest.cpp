// SPDX-License-Identifier: MIT
#include "tools/capture/Encoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

using capture::Encoding;

static std::string Joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += " " + word;
    return text + " ";
}

static bool Has(const std::vector<std::string>& words, const std::string& part)
{
    return Joined(words).find(" " + part + " ") != std::string::npos;
}

static Encoding Example(const std::string& output)
{
    Encoding encoding;
    encoding.output = output;
    encoding.width = 640;
    encoding.height = 480;
    encoding.rate.frames = 60000;
    encoding.rate.seconds = 1001;
    encoding.threads = 3;
    encoding.sound = true;
    return encoding;
}

TEST(CaptureEncoding, SaysWhatComesThroughThePipes)
{
    const std::vector<std::string> words = EncoderCommand(Example("show.mp4"));
    EXPECT_EQ("ffmpeg", words.front());
    EXPECT_TRUE(Has(words, "-f rawvideo -pixel_format rgb0 -video_size 640x480 -framerate 60000/1001"));
    EXPECT_TRUE(Has(words, "-f f32le -ar 44100 -ac 2"));
    EXPECT_TRUE(Has(words, "-map 0:v -map 1:a"));
    EXPECT_TRUE(Has(words, "-threads 3"));
    EXPECT_EQ("file:show.mp4", words.back());
}

TEST(CaptureEncoding, WithoutSoundHasOneInput)
{
    Encoding silent = Example("show.mp4");
    silent.sound = false;
    const std::vector<std::string> words = EncoderCommand(silent);
    EXPECT_EQ(1, std::count(words.begin(), words.end(), "-i"));
    EXPECT_FALSE(Has(words, "-c:a aac"));
}

TEST(CaptureEncoding, GoesByTheEndOfTheName)
{
    for (const char* name : {"a.mp4", "a.mov", "a.m4v"}) {
        EXPECT_TRUE(Has(EncoderCommand(Example(name)), "-c:v libx264 -preset veryfast -crf 16")) << name;
        EXPECT_TRUE(Has(EncoderCommand(Example(name)), "-c:a aac -b:a 256k")) << name;
        EXPECT_TRUE(Has(EncoderCommand(Example(name)), "-movflags +faststart")) << name;
        EXPECT_TRUE(capture::NeedsEvenSize(name));
    }
    EXPECT_TRUE(Has(EncoderCommand(Example("a.mkv")), "-c:v ffv1 -level 3 -g 1 -slicecrc 1 -pix_fmt bgr0"));
    EXPECT_TRUE(Has(EncoderCommand(Example("a.mkv")), "-c:a pcm_f32le"));
    EXPECT_FALSE(capture::NeedsEvenSize("a.mkv"));
    EXPECT_EQ(std::string::npos, Joined(EncoderCommand(Example("a.webm"))).find("-c:v"));
}

TEST(CaptureEncoding, OfAnAnimationBeginsAnewForEverAndLeavesColoursToTheEncoder)
{
    Encoding loop = Example("loop.webp");
    loop.sound = false;
    EXPECT_TRUE(capture::IsAnimation("a/loop.webp"));
    EXPECT_FALSE(capture::IsAnimation("webp.mp4"));
    EXPECT_TRUE(Has(EncoderCommand(loop), "-vf vflip,format=bgra -c:v libwebp -lossless 0"));
    EXPECT_TRUE(Has(EncoderCommand(loop), "-loop 0"));
    EXPECT_FALSE(Has(EncoderCommand(loop), "-colorspace bt709"));
    EXPECT_FALSE(loop.HasOnePacketPerFrame()) << "ffprobe finds none";
}

TEST(CaptureEncoding, TurnsPicturesOverAndTagsTheirColours)
{
    for (const char* name : {"a.mp4", "a.mkv", "a.webm"})
        EXPECT_NE(std::string::npos, Joined(EncoderCommand(Example(name))).find(" -vf vflip")) << name;
    EXPECT_TRUE(Has(EncoderCommand(Example("a.mp4")),
                    "-colorspace bt709 -color_primaries bt709 -color_trc bt709 -color_range tv"));
}

TEST(CaptureEncoding, PutsFurtherArgumentsLastSoThatTheyWin)
{
    Encoding more = Example("a.mp4");
    more.more = " -crf 20  -preset slow ";
    const std::vector<std::string> words = EncoderCommand(more);
    const std::vector<std::string> last(words.end() - 5, words.end());
    EXPECT_EQ((std::vector<std::string>{"-crf", "20", "-preset", "slow", "file:a.mp4"}), last);
}

TEST(CaptureEncoding, MakesTheEncoderTellEveryFailure)
{
    EXPECT_TRUE(Has(EncoderCommand(Example("a.mp4")), "-xerror"));
    EXPECT_TRUE(Has(JoinCommand(Example("a.mp4")), "-xerror"));
}

TEST(CaptureEncoding, OfAStreamNeedsNoWayBack)
{
    Encoding stream = Example("pipe.mp4");
    stream.streamed = true;
    EXPECT_TRUE(Has(EncoderCommand(stream), "-movflags +frag_keyframe+empty_moov+default_base_moof"));
    EXPECT_EQ("file:pipe.mp4", EncoderCommand(stream).back());
    for (const char* name : {"-", "/dev/null"}) {
        stream.output = name;
        EXPECT_TRUE(Has(EncoderCommand(stream), "-c:v ffv1 -level 3")) << name;
        EXPECT_TRUE(Has(EncoderCommand(stream), "-f matroska")) << name;
        EXPECT_TRUE(Has(JoinCommand(stream), "-f matroska")) << name;
    }
    EXPECT_EQ("file:/dev/null", EncoderCommand(stream).back());
    stream.output = "-";
    EXPECT_EQ("pipe:1", EncoderCommand(stream).back());
}

TEST(CaptureEncoding, KnowsWhereEachFrameBecomesOneOfTheFiles)
{
    for (const char* name : {"a.mp4", "a.mov", "a.m4v", "a.mkv"})
        EXPECT_TRUE(Example(name).HasOnePacketPerFrame()) << name;
    for (const char* name : {"a.webm", "a.gif", "a"}) // frames that nobody sees, and frames that are left out
        EXPECT_FALSE(Example(name).HasOnePacketPerFrame()) << name;
}

TEST(CaptureEncoding, ListsPartsWithNamesOfAnyKindAndLengthsThatDoNotDrift)
{
    capture::FrameRate rate;
    rate.frames = 60000;
    rate.seconds = 1001;
    const std::string here = std::filesystem::current_path();
    // 28 frames are 467133.33 microseconds: every third part is one longer.
    EXPECT_EQ("file 'file:" + here + "/a b.mp4'\nduration 467133us\n" + //
                  "file 'file:/it'\\''s\\.mp4'\nduration 467133us\n" +  //
                  "file 'file:" + here + "/-c.mp4'\nduration 467134us\n",
              JoinList({{"a b.mp4", 28}, {"/it's\\.mp4", 28}, {"-c.mp4", 28}}, rate));
}

TEST(CaptureEncoding, OfAJoinTakesThePicturesOver)
{
    const std::vector<std::string> words = JoinCommand(Example("all.mp4"));
    EXPECT_TRUE(Has(words, "-f concat -safe 0 -protocol_whitelist file,pipe,fd -i pipe:0"));
    EXPECT_TRUE(Has(words, "-c:v copy"));
    EXPECT_TRUE(Has(words, "-c:a aac -b:a 256k"));
    EXPECT_EQ(std::string::npos, Joined(words).find("vflip"));
}
