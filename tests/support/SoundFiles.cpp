// SPDX-License-Identifier: MIT
#include "tests/support/SoundFiles.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>
#include <libopenmpt/libopenmpt.h>
#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace soundfiles
{

// clang-format off
const std::vector<Kind> kinds = {
    {"16bit.wav",     SF_FORMAT_WAV  | SF_FORMAT_PCM_16,         44100, 2, -1.0, -1},
    {"float.wav",     SF_FORMAT_WAV  | SF_FORMAT_FLOAT,          44100, 2, -1.0, -1},
    {"mono.wav",      SF_FORMAT_WAV  | SF_FORMAT_PCM_24,         44100, 1, -1.0, -1},
    {"lossless.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16,         44100, 2, -1.0, -1},
    {"vorbis.ogg",    SF_FORMAT_OGG  | SF_FORMAT_VORBIS,         44100, 2,  0.4, -1},
    {"opus.opus",     SF_FORMAT_OGG  | SF_FORMAT_OPUS,           48000, 2, -1.0, -1},
    {"constant.mp3",  SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 44100, 2,  0.4, SF_BITRATE_MODE_CONSTANT},
    {"variable.mp3",  SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 44100, 2,  0.5, SF_BITRATE_MODE_VARIABLE},
    {"smallest.mp3",  SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 44100, 2,  1.0, SF_BITRATE_MODE_CONSTANT},
    {"studio.wav",    SF_FORMAT_WAV  | SF_FORMAT_PCM_16,         48000, 2, -1.0, -1},
    {"half.wav",      SF_FORMAT_WAV  | SF_FORMAT_PCM_16,         22050, 1, -1.0, -1},
    {"waltz.mod",     0,                                         44100, 2, -1.0, -1},
};
// clang-format on

const Kind& KindOf(const std::string& name)
{
    return *std::find_if(kinds.begin(), kinds.end(), [&](const Kind& kind) { return kind.name == name; });
}

// Nothing is left behind when the test's process ends.
struct TemporaryFiles {
    ~TemporaryFiles()
    {
        for (const std::string& path : paths)
            std::filesystem::remove_all(path);
    }
    std::vector<std::string> paths;
};
static TemporaryFiles temporary;

std::string TemporaryPath(const std::string& name)
{
    temporary.paths.push_back(testing::TempDir() + "sound-" + std::to_string(getpid()) + "-" + name);
    return temporary.paths.back();
}

static float Noise(uint32_t* state)
{
    *state = *state * 1664525u + 1013904223u;
    return float(*state >> 8) / 8388608.0f - 1.0f;
}

std::vector<float> Tune(int rate, int channels, int frames)
{
    std::vector<float> samples;
    uint32_t noise = 1;
    for (int i = 0; i < frames; ++i)
        for (int channel = 0; channel < channels; ++channel) {
            const double t = double(i) / rate;
            const double voice =
                std::sin(6.28 * (300.0 + 50.0 * channel) * t + 9.0 * std::sin(3.0 * t) + 1.0);
            const double reed = std::sin(2500.0 * (1 + channel) * t);
            samples.push_back(float(0.4 * voice + 0.2 * reed + 0.05 * Noise(&noise)));
        }
    return samples;
}

void Write(const std::string& path, const std::vector<float>& samples, const Kind& kind)
{
    SF_INFO info = {};
    info.samplerate = kind.rate;
    info.channels = kind.channels;
    info.format = kind.format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    ASSERT_NE(nullptr, file) << path << ": " << sf_strerror(nullptr);
    int mode = kind.bitrateMode;
    if (mode >= 0)
        sf_command(file, SFC_SET_BITRATE_MODE, &mode, sizeof(mode));
    double compression = kind.compression;
    if (compression >= 0.0)
        sf_command(file, SFC_SET_COMPRESSION_LEVEL, &compression, sizeof(compression));
    // In small pieces: libsndfile 1.2.0 overflows its stack on a long write of Vorbis.
    const sf_count_t frames = sf_count_t(samples.size()) / kind.channels;
    for (sf_count_t done = 0; done < frames; done += 2000)
        sf_writef_float(file, &samples[done * kind.channels], std::min<sf_count_t>(2000, frames - done));
    sf_close(file);
}

void WriteBytes(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

static void PutText(std::string* bytes, std::string text, size_t length)
{
    text.resize(length, '\0');
    *bytes += text;
}

static void PutWord(std::string* bytes, int value)
{
    *bytes += char(value >> 8);
    *bytes += char(value & 255);
}

static void PutSampleHeader(std::string* bytes, const char* name, int words, int loopWords)
{
    PutText(bytes, name, 22);
    PutWord(bytes, words);
    PutWord(bytes, words > 0 ? 64 : 0); // finetune 0 and volume
    PutWord(bytes, 0);                  // loop from
    PutWord(bytes, loopWords);
}

std::string Module(int patterns)
{
    static const int periods[] = {428, 381, 339, 320, 285, 254, 226, 214};
    // effect and argument: vibrato, slide up, volume slide, arpeggio, glide to the note, none
    static const int effects[][2] = {{4, 0x46}, {1, 0x03}, {10, 0x02}, {0, 0x37}, {3, 0x08}, {0, 0x00}};

    std::string bytes;
    PutText(&bytes, "a little waltz", 20);
    PutSampleHeader(&bytes, "reed", 16, 16);
    PutSampleHeader(&bytes, "brush", 500, 1);
    for (int i = 2; i < 31; ++i)
        PutSampleHeader(&bytes, "", 0, 1);
    bytes += char(patterns);
    bytes += char(127);
    for (int i = 0; i < 128; ++i)
        bytes += char(i < patterns ? i : 0);
    bytes += "M.K.";
    uint32_t random = 7;
    for (int row = 0; row < patterns * 64; ++row)
        for (int channel = 0; channel < 4; ++channel) {
            random = random * 1664525u + 1013904223u;
            const bool strikes = row % (channel + 2) == 0;
            const int sample = strikes ? 1 + channel % 2 : 0;
            const int period = strikes ? periods[random >> 24 & 7] : 0;
            const int* effect = effects[(random >> 16 & 255) % 6];
            PutWord(&bytes, (sample & 0xF0) << 8 | period);
            PutWord(&bytes, (sample & 15) << 12 | effect[0] << 8 | effect[1]);
        }
    for (int i = 0; i < 32; ++i)
        bytes += char(std::lround(100.0 * std::sin(i * 6.2831853 / 32.0)));
    for (int i = 0; i < 1000; ++i)
        bytes += char(std::lround(120.0f * Noise(&random) * std::exp(-i / 200.0f)));
    return bytes;
}

std::string Make(const Kind& kind, double seconds)
{
    const std::string path = TemporaryPath(kind.name);
    if (kind.format == 0)
        WriteBytes(path, Module(int(std::ceil(seconds / 7.68))));
    else
        Write(path, Tune(kind.rate, kind.channels, int(seconds * kind.rate)), kind);
    return path;
}

std::vector<float> Decode(const std::string& path)
{
    std::vector<float> samples;
    SF_INFO info = {};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file)
        return samples;
    std::vector<float> piece(3000 * info.channels);
    sf_count_t got;
    while ((got = sf_readf_float(file, piece.data(), 3000)) > 0)
        samples.insert(samples.end(), piece.begin(), piece.begin() + got * info.channels);
    sf_close(file);
    return samples;
}

std::vector<float> Render(const std::string& path)
{
    const std::string bytes = ReadFile(path);
    openmpt_module* module =
        openmpt_module_create_from_memory2(bytes.data(), bytes.size(), openmpt_log_func_silent, nullptr,
                                           openmpt_error_func_ignore, nullptr, nullptr, nullptr, nullptr);
    std::vector<float> samples;
    float piece[2 * 1024];
    size_t got;
    while (module && (got = openmpt_module_read_interleaved_float_stereo(module, 44100, 1024, piece)) > 0)
        samples.insert(samples.end(), piece, piece + got * 2);
    openmpt_module_destroy(module);
    return samples;
}

} // namespace soundfiles
