// SPDX-License-Identifier: MIT
// The program that writes the music of the show. Run it from the root of the project.
#include "art/music/Listening.h"
#include "art/music/Master.h"
#include "art/music/Mix.h"
#include "art/music/Rendition.h"
#include "art/music/ScoreReader.h"
#include "art/music/SoundFile.h"
#include "art/music/Theme.h"
#include "art/music/Verify.h"
#include "tools/cli/CommandLine.h"

#include <cstdio>
#include <filesystem>
#include <string>

static const std::vector<cli::Option> optionTable = {
    {"output", 'o', "SOUND",
     "Render to SOUND, 32-bit float WAV if it ends in .wav and else Ogg Vorbis, instead of to "
     "Data/moonwaltz.ogg, or to out/section-N.ogg with --section."},
    {"section", 0, "N", "Only section N of the score, which counts from 0."},
    {"stems", 0, "FOLDER", "Write each part by itself into FOLDER as well."},
    {"print", 0, nullptr, "Print the score instead, a line for each bar and part."},
    {"verify", 0, nullptr, "Play the score again instead, and compare it with FILE."},
    {"measure", 0, nullptr, "Print instead what can be measured in FILE, section by section."},
};

constexpr const char* scoreFolder = "art/music/score";
constexpr const char* nightFile = "Data/moonwaltz.ogg";
constexpr const char* renditionFile = "art/music/score/rendition.txt";

struct ComposerOptions {
    std::string output, stems, file;
    int section = -1;
};

static int64_t EndOfNight(const waltz::Score& score)
{
    return int64_t(score.Bars()) * waltz::samplesPerBar;
}

static void PrintFigures(const char* name, const waltz::Figures& f)
{
    std::printf("%-10s %6.1f %6.1f %6.1f %6.1f  %5.0f  %5.1f %5.1f %5.1f %5.1f  %5.2f %5.1f  %.6f\n", name,
                f.lufs, f.shortTerm, f.peak, f.truePeak, f.centroid, f.low, f.mid, f.high, f.air, f.likeness,
                f.monoLoss, f.offset);
}

static void PrintMeasures(const waltz::Score& score, const waltz::Stereo& sound)
{
    std::printf(
        "              LUFS  3 s    peak   true   centr.   <200   <1k   <4k  above   L=R  mono   offset\n");
    for (const waltz::Section& section : score.sections) {
        const int64_t from = int64_t(section.firstBar) * waltz::samplesPerBar - sound.origin;
        const int64_t end = int64_t(section.endBar) * waltz::samplesPerBar - sound.origin;
        if (from >= 0 && end <= sound.Size())
            PrintFigures(section.name.c_str(), waltz::Measure(sound, from, end));
    }
    PrintFigures("all", waltz::Measure(sound, 0, sound.Size()));
    std::printf("silence %.3f s, %.3f s; clicks left %zu, right %zu\n", waltz::SilenceAtStart(sound),
                waltz::SilenceAtEnd(sound), waltz::FindClicks(sound.left).size(),
                waltz::FindClicks(sound.right).size());
}

// False after a mistake, which was told.
static bool ReadOptions(cli::CommandLine& line, ComposerOptions& options)
{
    int64_t section = -1;
    if (!line.WholeNumber("section", 0, 9999, &section))
        return false;
    options.section = int(section);
    options.output = line.Value("output");
    options.stems = line.Value("stems");
    options.file = line.operands.empty() ? nightFile : line.operands[0];
    return true;
}

// The bars that an option asks for.
static waltz::Section Range(const waltz::Score& score, const ComposerOptions& options)
{
    if (options.section >= 0)
        return score.sections[options.section];
    return {"all", 0, score.Bars()};
}

static int Render(const waltz::Score& score, const ComposerOptions& options)
{
    const waltz::Section range = Range(score, options);
    std::string output = nightFile;
    if (options.section >= 0)
        output = "out/section-" + std::to_string(options.section) + ".ogg";
    if (!options.output.empty())
        output = options.output;
    std::filesystem::path folder = std::filesystem::path(output).parent_path();
    std::error_code ignored; // the files cannot be written then, and that is told
    std::filesystem::create_directories(folder, ignored);
    std::filesystem::create_directories(options.stems, ignored);
    waltz::Stereo mix;
    if (!waltz::RenderMix(score, int64_t(range.firstBar) * waltz::samplesPerBar,
                          int64_t(range.endBar) * waltz::samplesPerBar, options.stems, mix))
        return std::fprintf(stderr, "cannot write the stems to %s\n", options.stems.c_str()), 1;
    waltz::Master(mix, EndOfNight(score));
    const bool written =
        output.ends_with(".wav") ? waltz::WriteWave(output, mix) : waltz::WriteVorbis(output, mix);
    if (!written)
        return std::fprintf(stderr, "cannot write %s\n", output.c_str()), 1;
    const bool whole = output == nightFile && options.section < 0;
    if (whole &&
        !waltz::WriteRendition(renditionFile, {waltz::ScoreDigest(score), waltz::FileDigest(output)}))
        return std::fprintf(stderr, "cannot write %s\n", renditionFile), 1;
    PrintMeasures(score, mix);
    return 0;
}

static int Verify(const waltz::Score& score, const ComposerOptions& options, const waltz::Stereo& sound)
{
    const waltz::Section range = Range(score, options);
    const waltz::Resemblance found = waltz::Verify(score, sound, range.firstBar, range.endBar);
    if (!found.sameLength)
        return std::printf("the music and the score are not equally long\n"), 1;
    std::printf(
        "%s: the worst tenth of a second, at bar %.2f, differs by %.1f dB below the sound; %.0f are asked\n",
        range.name.c_str(), double(found.worstAt) / waltz::samplesPerBar, found.worst, waltz::nearness);
    return found.worst >= waltz::nearness ? 0 : 1;
}

int main(int argc, char** argv)
{
    cli::CommandLine line("composer",
                          "Renders the music of the show. FILE is Data/moonwaltz.ogg if not given.", "[FILE]",
                          optionTable);
    ComposerOptions options;
    if (!line.Read(argc, argv) || !ReadOptions(line, options))
        return line.exitStatus;
    waltz::Score score;
    std::string error;
    if (!waltz::ReadScore(scoreFolder, score, error))
        return std::fprintf(stderr, "%s\n", error.c_str()), 1;
    if (options.section >= int(score.sections.size()))
        return std::fprintf(stderr, "there are %zu sections, from 0\n", score.sections.size()), 2;
    if (line.Has("print")) {
        const waltz::Section range = Range(score, options);
        std::fputs(waltz::Print(score, range.firstBar, range.endBar).c_str(), stdout);
        return 0;
    }
    if (!line.Has("measure") && !line.Has("verify"))
        return Render(score, options);
    waltz::Stereo sound;
    if (!waltz::ReadSound(options.file, sound))
        return std::fprintf(stderr, "cannot read %s\n", options.file.c_str()), 1;
    if (line.Has("verify"))
        return Verify(score, options, sound);
    PrintMeasures(score, sound);
    return 0;
}
