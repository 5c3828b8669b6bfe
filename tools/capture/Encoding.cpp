// SPDX-License-Identifier: MIT
#include "tools/capture/Encoding.h"

#include "tools/capture/MusicTrack.h"

#include <algorithm>
#include <filesystem>

namespace capture
{

typedef std::vector<std::string> Words;

// Better than x264's default of 23, which shows bands in dark gradients.
static const char* const h264Quality = "16";
// Measured at that quality with 120 frames of FS_Image and FX_Path: x264 took 7.5 s of processor time with
// the preset "medium", 4.5 s with "faster" and 3.0 s with this one. The files had the same size, and the
// similarity to the frames was 0.9972, 0.9959 and 0.9950. With 90 frames of FX_Clouds, where the encoder and the
// rasteriser share two processors and the capture must keep up with the show: 1.7 s with "faster" and 1.1 s with
// this one, a file 2 % smaller, a similarity of 0.9533 and 0.9527. The next one, "superfast", takes 0.8 s, but its
// file is half as large again.
static const char* const h264Preset = "veryfast";
static const char* const aacRate = "256k";
// Of 100. Ten seconds of the title and of the fish bones at 480 by 360 and 20 frames a second took 2.2 MB.
static const char* const webpQuality = "42";
static const char* const webpEffort = "4"; // of 6

static void Add(Words* words, const Words& more)
{
    words->insert(words->end(), more.begin(), more.end());
}

static bool IsMp4(const std::string& output)
{
    const std::string end = std::filesystem::path(output).extension();
    return end == ".mp4" || end == ".mov" || end == ".m4v";
}

static bool IsArchive(const Encoding& encoding)
{
    const std::string end = std::filesystem::path(encoding.output).extension();
    return end == ".mkv" || (encoding.streamed && end.empty());
}

bool Encoding::HasOnePacketPerFrame() const
{
    return IsMp4(output) || IsArchive(*this);
}

bool NeedsEvenSize(const std::string& output)
{
    return IsMp4(output);
}

bool IsAnimation(const std::string& output)
{
    return std::filesystem::path(output).extension() == ".webp";
}

// The options describe the raw input completely, so ffmpeg need not analyse it.
static const Words unprobed = {"-probesize", "32", "-analyzeduration", "0"};

static Words SoundInput()
{
    Words words = {"-f", "f32le", "-ar", std::to_string(MusicTrack::Rate), "-ac", "2"};
    Add(&words, unprobed);
    Add(&words, {"-i", "pipe:3"});
    return words;
}

static Words SoundCodec(const Encoding& encoding)
{
    if (IsMp4(encoding.output))
        return {"-c:a", "aac", "-b:a", aacRate};
    if (IsArchive(encoding))
        return {"-c:a", "pcm_f32le"};
    return {};
}

static Words PictureCodec(const Encoding& encoding)
{
    if (IsArchive(encoding))
        return {"-vf", "vflip", "-c:v",      "ffv1", "-level",   "3",
                "-g",  "1",     "-slicecrc", "1",    "-pix_fmt", "bgr0"};
    // The encoder turns colours into its own. Each frame is whole: libwebp_anim, which writes what has changed, leaves
    // blocks of older frames standing.
    if (IsAnimation(encoding.output))
        return {"-vf",       "vflip,format=bgra",  "-c:v",     "libwebp", "-lossless", "0", "-quality",
                webpQuality, "-compression_level", webpEffort, "-loop",   "0"};
    const std::string video = "vflip,scale=flags=bicubic+accurate_rnd+full_chroma_int:out_color_matrix=bt709:"
                              "out_range=tv,format=yuv420p";
    Words words = {"-vf",   video,        "-colorspace", "bt709",        "-color_primaries",
                   "bt709", "-color_trc", "bt709",       "-color_range", "tv"};
    if (IsMp4(encoding.output))
        Add(&words, {"-c:v", "libx264", "-preset", h264Preset, "-crf", h264Quality});
    return words;
}

// The end of every command. "bitexact" leaves out version texts and random numbers, so that two runs give the
// same file.
static Words Tail(const Encoding& encoding)
{
    Words words = {"-threads", std::to_string(encoding.threads),
                   "-fflags",  "+bitexact",
                   "-flags:v", "+bitexact",
                   "-flags:a", "+bitexact"};
    // The index of an MP4 is moved to the start of the file at the end. A stream can't be rewritten, so it is
    // divided into fragments with an index each.
    if (IsMp4(encoding.output))
        Add(&words,
            {"-movflags", encoding.streamed ? "+frag_keyframe+empty_moov+default_base_moof" : "+faststart"});
    if (IsArchive(encoding))
        Add(&words, {"-f", "matroska"});
    size_t begin = 0;
    while (begin < encoding.more.size()) {
        const size_t end = std::min(encoding.more.find(' ', begin), encoding.more.size());
        if (end > begin)
            words.push_back(encoding.more.substr(begin, end - begin));
        begin = end + 1;
    }
    // "file:" keeps ffmpeg from taking a name for an option or a URL.
    words.push_back(encoding.output == "-" ? "pipe:1" : "file:" + encoding.output);
    return words;
}

static Words Head()
{
    // Without -xerror ffmpeg 5.1 exits with 0 if it could not write the end of a file.
    return {"ffmpeg", "-hide_banner", "-loglevel", "error", "-xerror", "-y"};
}

Words EncoderCommand(const Encoding& encoding)
{
    Words words = Head();
    Add(&words, {"-f", "rawvideo", "-pixel_format", "rgb0", "-video_size",
                 std::to_string(encoding.width) + "x" + std::to_string(encoding.height), "-framerate",
                 std::to_string(encoding.rate.frames) + "/" + std::to_string(encoding.rate.seconds)});
    Add(&words, unprobed);
    Add(&words, {"-i", "pipe:0"});
    if (encoding.sound) {
        Add(&words, SoundInput());
        Add(&words, {"-map", "0:v", "-map", "1:a"});
        Add(&words, SoundCodec(encoding));
    }
    Add(&words, PictureCodec(encoding));
    Add(&words, Tail(encoding));
    return words;
}

Words JoinCommand(const Encoding& encoding)
{
    Words words = Head();
    Add(&words, {"-f", "concat", "-safe", "0", "-protocol_whitelist", "file,pipe,fd", "-i", "pipe:0"});
    if (encoding.sound)
        Add(&words, SoundInput());
    Add(&words, {"-map", "0:v"});
    if (encoding.sound) {
        Add(&words, {"-map", "1:a"});
        Add(&words, SoundCodec(encoding));
    }
    Add(&words, {"-c:v", "copy"});
    Add(&words, Tail(encoding));
    return words;
}

std::string JoinList(const std::vector<VideoPart>& parts, const FrameRate& rate)
{
    std::string list;
    int64_t begin = 0;
    int64_t frames = 0;
    for (const VideoPart& part : parts) {
        list += "file 'file:";
        for (char c : std::filesystem::absolute(part.path).string())
            list += c == '\'' ? std::string("'\\''") : std::string(1, c);
        // ffmpeg would take the duration of a part from its file, which has it in milliseconds, and the error
        // would add up. Each duration here is the difference of two exact times.
        frames += part.frames;
        const int64_t end = rate.MomentOf(frames, 1000000);
        list += "'\nduration " + std::to_string(end - begin) + "us\n";
        begin = end;
    }
    return list;
}

} // namespace capture
