// SPDX-License-Identifier: MIT
#include "tests/support/CaptureFixture.h"

#include "tests/support/ReadFile.h"
#include "tests/support/SoundFiles.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

static const int maxTune = 5000; // milliseconds; a longer show ends in silence

CaptureFixture::CaptureFixture()
{
    std::string name = testing::TempDir() + "marlinex-capture-XXXXXX";
    if (mkdtemp(name.data()))
        folder = name;
    fs::create_directory(folder + "/Data");
}

CaptureFixture::~CaptureFixture()
{
    fs::remove_all(folder);
}

std::string CaptureFixture::PathOf(const std::string& name) const
{
    return folder + "/" + name;
}

void CaptureFixture::WriteFile(const std::string& name, const std::string& text)
{
    std::ofstream(PathOf(name), std::ios::binary) << text;
}

void CaptureFixture::WriteFlashShow(int milliseconds, bool withMusic)
{
    SavePicture(PathOf("Data/loading.jpg"), PlainPicture(8, 8, 3, 90, 90, 90));
    std::string script =
        "[EFFECT]\nEffectName=WhiteFlashOverlay;\nStartTime=0;\nStopTime=" + std::to_string(milliseconds) +
        ";\nLayerID=1;\n[MESSAGE]\nMessageText=flash;\nActivationTime=0;\n"
        "TargetEffect=WhiteFlashOverlay;\nParameter=0.50;\n";
    if (withMusic) {
        script += "[MUSIC]\nFileName=tune.wav;\n";
        soundfiles::Kind kind = soundfiles::KindOf("16bit.wav");
        const int music = std::min(milliseconds, maxTune);
        soundfiles::Write(PathOf("Data/tune.wav"),
                          soundfiles::Tune(kind.rate, kind.channels, kind.rate * music / 1000), kind);
    }
    WriteFile("Data/script.txt", script);
}

bool CaptureFixture::Exists(const std::string& name) const
{
    return fs::exists(PathOf(name));
}

std::vector<std::string> CaptureFixture::Names(const std::string& name) const
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(PathOf(name), error))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string CaptureFixture::Bytes(const std::string& name) const
{
    return ReadFile(PathOf(name));
}

std::vector<std::string> CaptureFixture::Environment()
{
    // The same rasteriser with the same instructions as in PictureFixture: see there.
    return {"LIBGL_ALWAYS_SOFTWARE=1",    "GALLIUM_DRIVER=llvmpipe", "GALLIUM_OVERRIDE_CPU_CAPS=sse4.1",
            "LP_NATIVE_VECTOR_WIDTH=128", "LP_NUM_THREADS=2",        "DISPLAY="};
}

ProgramRun CaptureFixture::Run(std::vector<std::string> words, std::vector<std::string> environment)
{
    const auto has = [&words](const char* option) {
        return std::find(words.begin(), words.end(), option) != words.end();
    };
    if (!has("--size"))
        words.insert(words.end(), {"--size", "64x48"});
    for (const std::string& entry : Environment())
        environment.push_back(entry);
    return RunProgram("marlinex-capture", words, environment, folder);
}

std::string CaptureFixture::Probe(const std::string& name, const std::string& what,
                                  const std::string& streams)
{
    std::vector<std::string> words = {"-v", "error", "-count_frames",    "-show_entries",
                                      what, "-of",   "default=nw=1:nk=1"};
    if (!streams.empty())
        words.insert(words.end(), {"-select_streams", streams});
    words.push_back(name);
    return RunProgram("/usr/bin/ffprobe", words, {}, folder).output;
}

int CaptureFixture::FrameCount(const std::string& name)
{
    return std::atoi(Probe(name, "stream=nb_read_frames", "v:0").c_str());
}

std::string CaptureFixture::Decoded(const std::string& name, const std::vector<std::string>& words)
{
    std::vector<std::string> all = {"-nostdin", "-v", "error", "-i", name};
    all.insert(all.end(), words.begin(), words.end());
    all.push_back("-");
    const ProgramRun run = RunProgram("/usr/bin/ffmpeg", all, {}, folder);
    EXPECT_EQ(0, run.status) << run.errors;
    return run.output;
}

std::vector<unsigned char> CaptureFixture::Pixels(const std::string& name)
{
    const std::string bytes = Decoded(name, {"-f", "rawvideo", "-pix_fmt", "rgb24"});
    return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

std::vector<float> CaptureFixture::Samples(const std::string& name)
{
    const std::string bytes = Decoded(name, {"-vn", "-f", "f32le"});
    std::vector<float> samples(bytes.size() / sizeof(float));
    memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
    return samples;
}
