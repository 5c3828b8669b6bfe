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

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace
{

constexpr const char* usage =
    "composer [-o FILE] [--section N] [--stems DIR]   renders the night, or its section N, to FILE\n"
    "composer --print [--section N]                   prints the score, a line a bar and part\n"
    "composer --verify [--section N] [FILE]          plays the score again and compares it with FILE\n"
    "composer --measure [FILE]                        prints what can be measured, section by section\n"
    "FILE is Data/moonwaltz.ogg if not given. Without -o the night goes to Data/moonwaltz.ogg, a section to "
    "out/section-N.ogg. A FILE that ends in "
    ".wav\n"
    "becomes 32-bit float WAV.\n";

constexpr const char* scoreFolder = "art/music/score";
constexpr const char* nightFile = "Data/moonwaltz.ogg";
constexpr const char* renditionFile = "art/music/score/rendition.txt";

struct Options {
    std::string output, stems, command, file;
    int section = -1;
};

int64_t EndOfNight(const waltz::Score& score)
{
    return static_cast<int64_t>(score.Bars()) * waltz::samplesPerBar;
}

void PrintFigures(const char* name, const waltz::Figures& f)
{
    std::printf("%-10s %6.1f %6.1f %6.1f %6.1f  %5.0f  %5.1f %5.1f %5.1f %5.1f  %5.2f %5.1f  %.6f\n", name,
                f.lufs, f.shortTerm, f.peak, f.truePeak, f.centroid, f.low, f.mid, f.high, f.air, f.likeness,
                f.monoLoss, f.offset);
}

void PrintMeasures(const waltz::Score& score, const waltz::Stereo& sound)
{
    std::printf(
        "              LUFS  3 s    peak   true   centr.   <200   <1k   <4k  above   L=R  mono   offset\n");
    for (const waltz::Section& section : score.sections) {
        const int64_t from = static_cast<int64_t>(section.firstBar) * waltz::samplesPerBar - sound.origin;
        const int64_t end = static_cast<int64_t>(section.endBar) * waltz::samplesPerBar - sound.origin;
        if (from >= 0 && end <= sound.Size())
            PrintFigures(section.name.c_str(), waltz::Measure(sound, from, end));
    }
    PrintFigures("all", waltz::Measure(sound, 0, sound.Size()));
    std::printf("silence %.3f s, %.3f s; clicks left %zu, right %zu\n", waltz::SilenceAtStart(sound),
                waltz::SilenceAtEnd(sound), waltz::FindClicks(sound.left).size(),
                waltz::FindClicks(sound.right).size());
}

bool IsNumber(const std::string& word)
{
    return !word.empty() && word.size() < 5 && word.find_first_not_of("0123456789") == std::string::npos;
}

bool ReadOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const bool more = i + 1 < argc;
        if (word == "-o" && more)
            options.output = argv[++i];
        else if (word == "--section" && more && IsNumber(argv[i + 1]))
            options.section = std::atoi(argv[++i]);
        else if (word == "--stems" && more)
            options.stems = argv[++i];
        else if (word.starts_with("--") && options.command.empty())
            options.command = word;
        else if (!word.starts_with("-") && options.file.empty())
            options.file = word;
        else
            return false;
    }
    return true;
}

// The bars that an option asks for.
waltz::Section Range(const waltz::Score& score, const Options& options)
{
    if (options.section >= 0)
        return score.sections[options.section];
    return {"all", 0, score.Bars()};
}

int Render(const waltz::Score& score, const Options& options)
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
    if (!waltz::RenderMix(score, static_cast<int64_t>(range.firstBar) * waltz::samplesPerBar,
                          static_cast<int64_t>(range.endBar) * waltz::samplesPerBar, options.stems, mix))
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

int Verify(const waltz::Score& score, const Options& options, const waltz::Stereo& sound)
{
    const waltz::Section range = Range(score, options);
    const waltz::Resemblance found = waltz::Verify(score, sound, range.firstBar, range.endBar);
    if (!found.sameLength)
        return std::printf("the music and the score are not equally long\n"), 1;
    std::printf(
        "%s: the worst tenth of a second, at bar %.2f, differs by %.1f dB below the sound; %.0f are asked\n",
        range.name.c_str(), static_cast<double>(found.worstAt) / waltz::samplesPerBar, found.worst,
        waltz::nearness);
    return found.worst >= waltz::nearness ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!ReadOptions(argc, argv, options))
        return std::fputs(usage, stderr), 2;
    waltz::Score score;
    std::string error;
    if (!waltz::ReadScore(scoreFolder, score, error))
        return std::fprintf(stderr, "%s\n", error.c_str()), 1;
    if (options.section >= static_cast<int>(score.sections.size()))
        return std::fprintf(stderr, "there are %zu sections, from 0\n", score.sections.size()), 2;
    if (options.command.empty())
        return Render(score, options);
    if (options.command == "--print") {
        const waltz::Section range = Range(score, options);
        std::fputs(waltz::Print(score, range.firstBar, range.endBar).c_str(), stdout);
        return 0;
    }
    if (options.command != "--measure" && options.command != "--verify")
        return std::fputs(usage, stderr), 2;
    waltz::Stereo sound;
    const std::string file = options.file.empty() ? nightFile : options.file;
    if (!waltz::ReadSound(file, sound))
        return std::fprintf(stderr, "cannot read %s\n", file.c_str()), 1;
    if (options.command == "--verify")
        return Verify(score, options, sound);
    PrintMeasures(score, sound);
    return 0;
}
