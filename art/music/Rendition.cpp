// SPDX-License-Identifier: MIT
#include "art/music/Rendition.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>

namespace waltz
{

// FNV-1a.
class Digest
{
public:
    void Add(const char* bytes, size_t count)
    {
        for (size_t i = 0; i < count; i++)
            value = (value ^ static_cast<unsigned char>(bytes[i])) * 1099511628211u;
    }
    void Add(const std::string& text) { Add(text.c_str(), text.size() + 1); }
    void Add(int number) { Add(std::to_string(number)); }
    // Beats and levels, in steps that no rounding of a sum can miss.
    void Add(double number) { Add(std::to_string(std::lround(number * 1000))); }

    std::string Text() const
    {
        char text[17];
        std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(value));
        return text;
    }

private:
    uint64_t value = 14695981039346656037u;
};

std::string ScoreDigest(const Score& score)
{
    Digest digest;
    for (const Section& section : score.sections) {
        digest.Add(section.name);
        digest.Add(section.firstBar);
        digest.Add(section.endBar);
    }
    for (const ChordSpan& span : score.harmony) {
        digest.Add(span.beat);
        digest.Add(span.length);
        digest.Add(span.chord.symbol);
    }
    for (const double late : score.rubato.Beats())
        digest.Add(late);
    for (const Voice& voice : score.voices) {
        digest.Add(voice.part);
        for (const Tone& tone : voice.tones) {
            digest.Add(tone.beat);
            digest.Add(tone.length);
            for (const int each : {tone.pitch, tone.line, int(tone.accent), int(tone.staccato),
                                   int(tone.lifted), int(tone.tied), int(tone.accompany)})
                digest.Add(each);
        }
        for (const Dynamics::LevelPoint& point : voice.dynamics.Points()) {
            digest.Add(point.beat);
            digest.Add(double(point.level));
            digest.Add(int(point.sloping));
        }
    }
    return digest.Text();
}

std::string FileDigest(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return "";
    Digest digest;
    char block[65536];
    while (file.read(block, sizeof block) || file.gcount() > 0)
        digest.Add(block, size_t(file.gcount()));
    return digest.Text();
}

bool WriteRendition(const std::string& path, const Rendition& rendition)
{
    std::ofstream file(path);
    file << "score " << rendition.score << "\nsound " << rendition.sound << "\n";
    return static_cast<bool>(file.flush());
}

bool ReadRendition(const std::string& path, Rendition& rendition)
{
    std::ifstream file(path);
    std::string first, second;
    return file >> first >> rendition.score >> second >> rendition.sound && first == "score" &&
           second == "sound";
}

} // namespace waltz
