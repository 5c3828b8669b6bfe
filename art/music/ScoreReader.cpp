// SPDX-License-Identifier: MIT
#include "art/music/ScoreReader.h"
#include "art/music/Orchestra.h"
#include "art/music/Patterns.h"
#include "art/music/Pitch.h"
#include "art/music/Theme.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace waltz
{

constexpr double epsilon = 1e-6;

struct MarkName {
    const char* name;
    float level;
};

// clang-format off
constexpr MarkName markNames[] = {
    {"pppp", 0.12f}, {"ppp", 0.19f}, {"pp", 0.28f}, {"p", 0.39f}, {"mp", 0.51f},
    {"mf",   0.64f}, {"f",   0.79f}, {"ff", 0.92f}, {"fff", 1.0f}, {"n", 0.0f},
};

// The sections of the night, a file each.
constexpr const char* sectionFiles[] = {
    "0-dusk.txt",   "1-clouds.txt", "2-names.txt", "3-painting.txt", "4-village.txt",
    "5-towers.txt", "6-sand.txt",   "7-fish.txt",  "8-home.txt",
};
// clang-format on

static std::vector<std::string> Split(const std::string& text, char border)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, border);)
        parts.push_back(part);
    return parts;
}

static std::vector<std::string> Words(const std::string& text)
{
    std::vector<std::string> words;
    std::istringstream stream(text);
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

// "1.5" of "A4:1.5"; the rest of a token after its colon.
static bool ReadBeats(const std::string& text, size_t& at, double& beats)
{
    const char* begin = text.c_str() + at;
    char* end = nullptr;
    beats = std::strtod(begin, &end);
    at += end - begin;
    return end != begin && beats > 0 && beats <= 64;
}

ScoreReader::ScoreReader()
{
    for (const Part& part : Orchestra())
        score.voices.push_back({part.name, {}, {}});
}

bool ScoreReader::Fail(const std::string& what)
{
    error = fileName + ":" + std::to_string(lineNumber) + ": " + what;
    return false;
}

bool ScoreReader::ReadText(const std::string& name, const std::string& text)
{
    fileName = name;
    lineNumber = 0;
    reading = Reading::Nothing;
    const size_t sectionsBefore = score.sections.size();
    for (const std::string& line : Split(text, '\n')) {
        lineNumber++;
        if (!ReadLine(line))
            return false;
    }
    return score.sections.size() == sectionsBefore + 1 || Fail("one section a file");
}

bool ScoreReader::ReadLine(const std::string& whole)
{
    const size_t comment = whole.find("--");
    const std::string line = whole.substr(0, comment);
    const std::vector<std::string> words = Words(line);
    if (words.empty())
        return true;
    if (words[0] == "section")
        return ReadSectionLine(line);
    if (score.sections.empty())
        return Fail("the section comes first");
    const size_t colon = line.find(':');
    if (colon != std::string::npos && words[0].find_first_not_of("0123456789") == words[0].size() - 1 &&
        words[0].back() == ':') {
        const int bar = std::atoi(words[0].c_str());
        const Section& section = score.sections.back();
        if (bar < section.firstBar || bar >= section.endBar)
            return Fail("bar " + std::to_string(bar) + " is not in this section");
        const std::string bars = line.substr(colon + 1);
        switch (reading) {
        case Reading::Harmony:
            return ReadHarmony(bar, bars);
        case Reading::Rubato:
            return ReadRubato(bar, bars);
        case Reading::Part:
            return ReadBars(bar, bars);
        case Reading::Nothing:
            return Fail("which part?");
        }
    }
    if (words.size() != 1)
        return Fail("neither a part's name nor bars: " + line);
    nextBar = score.sections.back().firstBar;
    reading = words[0] == "harmony"  ? Reading::Harmony
              : words[0] == "rubato" ? Reading::Rubato
                                     : Reading::Part;
    if (reading != Reading::Part)
        return true;
    const int part = FindPart(words[0]);
    if (part < 0)
        return Fail("no part is called " + words[0]);
    voice = part;
    return true;
}

bool ScoreReader::ReadSectionLine(const std::string& line)
{
    // section NAME FIRST END
    const std::vector<std::string> words = Words(line);
    if (words.size() != 4)
        return Fail("section NAME FIRSTBAR ENDBAR");
    const int first = std::atoi(words[2].c_str()), end = std::atoi(words[3].c_str());
    if (first != score.Bars() || end <= first)
        return Fail("the section has to begin at bar " + std::to_string(score.Bars()));
    score.sections.push_back({words[1], first, end});
    return true;
}

bool ScoreReader::ReadHarmony(int bar, const std::string& bars)
{
    if (bar != nextBar)
        return Fail("harmony goes on at bar " + std::to_string(nextBar));
    for (const std::string& cell : Split(bars, '|')) {
        double beat = nextBar * beatsPerBar;
        const double end = beat + beatsPerBar;
        if (nextBar >= score.sections.back().endBar)
            return Fail("harmony runs over the section's end");
        for (const std::string& word : Words(cell)) {
            ChordSpan span;
            span.beat = beat;
            span.length = beatsPerBar;
            std::string symbol = word;
            const size_t colon = word.find(':');
            if (colon != std::string::npos) {
                size_t at = colon + 1;
                if (!ReadBeats(word, at, span.length) || at != word.size())
                    return Fail("no length: " + word);
                symbol = word.substr(0, colon);
            }
            if (!ReadChord(symbol, span.chord))
                return Fail("no chord: " + symbol);
            score.harmony.push_back(span);
            beat += span.length;
        }
        if (std::abs(beat - end) > epsilon)
            return Fail("bar " + std::to_string(nextBar) + " of the harmony has not three beats");
        nextBar++;
    }
    return true;
}

bool ScoreReader::ReadRubato(int bar, const std::string& bars)
{
    if (bar < nextBar)
        return Fail("bar " + std::to_string(bar) + " of the rubato is written already");
    nextBar = bar;
    for (const std::string& cell : Split(bars, '|')) {
        const std::vector<std::string> words = Words(cell);
        if (nextBar >= score.sections.back().endBar)
            return Fail("rubato runs over the section's end");
        if (words.size() != size_t(beatsPerBar))
            return Fail("bar " + std::to_string(nextBar) + " of the rubato has not three beats");
        for (int i = 0; i < beatsPerBar; i++) {
            char* end = nullptr;
            const double milliseconds = std::strtod(words[size_t(i)].c_str(), &end);
            // More would take a note over the next half beat.
            if (end == words[size_t(i)].c_str() || *end != 0 || !(std::abs(milliseconds) <= 150))
                return Fail("no milliseconds up to 150: " + words[size_t(i)]);
            score.rubato.SetLate(nextBar * beatsPerBar + i, milliseconds / 1000);
        }
        nextBar++;
    }
    return true;
}

bool ScoreReader::ReadBars(int bar, const std::string& bars)
{
    if (bar < nextBar)
        return Fail("bar " + std::to_string(bar) + " is written already");
    nextBar = bar;
    for (const std::string& cell : Split(bars, '|')) {
        double beat = nextBar * beatsPerBar;
        const double end = beat + beatsPerBar;
        int patternBars = 0, notes = 0;
        for (const std::string& word : Words(cell)) {
            const std::string pattern = word.substr(0, word.find('*'));
            if (!IsPattern(pattern)) {
                const double before = beat;
                if (!ReadToken(word, beat))
                    return false;
                notes += beat > before ? 1 : 0;
                continue;
            }
            if (patternBars > 0 || beat > end - beatsPerBar + epsilon)
                return Fail("a pattern has a bar of its own: " + word);
            patternBars = pattern.size() == word.size() ? 1 : std::atoi(word.c_str() + pattern.size() + 1);
            if (patternBars < 1)
                return Fail("how many bars? " + word);
            if (score.voices[voice].dynamics.Empty())
                return Fail(std::string(Orchestra()[voice].name) + " has no dynamics yet");
            for (int i = 0; i < patternBars; i++)
                uses.push_back({voice, pattern, nextBar + i});
        }
        if (patternBars > 0)
            beat += beatsPerBar;
        // One long note may fill several bars.
        const double over = (beat - end) / beatsPerBar;
        const int longBars = int(std::lround(over)) + 1;
        if (longBars < 1 || std::abs(over - (longBars - 1)) > epsilon || (longBars > 1 && notes > 1))
            return Fail("bar " + std::to_string(nextBar) + " has not three beats");
        nextBar += std::max(patternBars, longBars);
        if (nextBar > score.sections.back().endBar)
            return Fail("runs over the section's end");
    }
    return true;
}

bool ScoreReader::ReadToken(const std::string& token, double& beat)
{
    return ReadMark(token, beat) || ReadNote(token, beat);
}

bool ScoreReader::ReadMark(const std::string& token, double beat)
{
    Dynamics& dynamics = score.voices[voice].dynamics;
    if (token == "<" || token == ">") {
        dynamics.Hairpin(beat);
        return true;
    }
    for (const MarkName& mark : markNames) {
        if (token != mark.name)
            continue;
        dynamics.Mark(beat, mark.level);
        return true;
    }
    return false;
}

bool ScoreReader::ReadNote(const std::string& token, double& beat)
{
    std::vector<int> pitches;
    size_t at = 0;
    bool rest = false;
    const bool unpitched = IsUnpitched(Orchestra()[voice].sound);
    if (token[0] == 'r') {
        rest = true;
        at = 1;
    } else if (unpitched && (token[0] == 'x' || token[0] == 's')) {
        pitches.push_back(token[0] == 'x' ? stroke : swish);
        at = 1;
    } else if (token[0] == '[') {
        // A chord: [D3,A3]
        do {
            at++;
            pitches.push_back(ReadPitch(token, at));
        } while (pitches.back() >= 0 && at < token.size() && token[at] == ',');
        if (pitches.back() < 0 || at >= token.size() || token[at++] != ']')
            return Fail("no chord of notes: " + token);
    } else {
        pitches.push_back(unpitched ? -1 : ReadPitch(token, at));
        if (pitches.back() < 0)
            return Fail("neither note nor mark: " + token);
    }
    Tone tone;
    tone.beat = beat;
    tone.length = 1;
    while (at < token.size()) {
        const char sign = token[at++];
        if (sign == ':') {
            if (!ReadBeats(token, at, tone.length))
                return Fail("no length: " + token);
        } else if (sign == '\'') {
            tone.staccato = true;
        } else if (sign == '^') {
            tone.accent = true;
        } else if (sign == ',') {
            tone.lifted = true;
        } else if (sign == '~') {
            tone.tied = true;
        } else {
            return Fail("what is '" + std::string(1, sign) + "' in " + token);
        }
    }
    beat += tone.length;
    for (size_t i = 0; i < pitches.size() && !rest; i++) {
        tone.pitch = pitches[i];
        tone.line = int(i);
        if (!Add(tone))
            return false;
    }
    return true;
}

bool ScoreReader::Add(const Tone& tone)
{
    const Part& part = Orchestra()[voice];
    if (tone.pitch < part.low || tone.pitch > part.high)
        return Fail(std::string(part.name) + " does not reach " + PitchName(tone.pitch));
    if (score.voices[voice].dynamics.Empty())
        return Fail(std::string(part.name) + " has no dynamics yet");
    score.voices[voice].tones.push_back(tone);
    return true;
}

void ScoreReader::JoinTies()
{
    for (Voice& each : score.voices) {
        std::vector<Tone> joined;
        for (const Tone& tone : each.tones) {
            const auto open = std::find_if(joined.rbegin(), joined.rend(), [&](const Tone& before) {
                return before.tied && before.pitch == tone.pitch &&
                       std::abs(before.beat + before.length - tone.beat) < epsilon;
            });
            if (open == joined.rend()) {
                joined.push_back(tone);
                continue;
            }
            open->length += tone.length;
            open->tied = tone.tied;
            open->lifted = tone.lifted;
        }
        each.tones = joined;
    }
}

bool ScoreReader::Finish()
{
    JoinTies();
    for (size_t i = 0; i < score.voices.size(); i++) {
        std::vector<PatternBar> bars;
        for (const Use& use : uses)
            if (use.voice == i)
                bars.push_back({use.pattern, use.bar});
        int badBar = 0;
        std::vector<Tone>& tones = score.voices[i].tones;
        if (!PlayPatterns(score, bars, tones, badBar))
            return Fail("no harmony in bar " + std::to_string(badBar));
        std::stable_sort(tones.begin(), tones.end(), [](const Tone& a, const Tone& b) {
            return a.beat < b.beat - epsilon || (std::abs(a.beat - b.beat) < epsilon && a.pitch < b.pitch);
        });
    }
    return true;
}

bool ReadScore(const std::string& folder, Score& score, std::string& error)
{
    ScoreReader reader;
    for (const char* name : sectionFiles) {
        std::ifstream file(folder + "/" + name);
        std::ostringstream text;
        text << file.rdbuf();
        if (!file) {
            error = "cannot read " + folder + "/" + name;
            return false;
        }
        if (!reader.ReadText(name, text.str())) {
            error = reader.Error();
            return false;
        }
    }
    if (!reader.Finish()) {
        error = reader.Error();
        return false;
    }
    score = reader.Result();
    return true;
}

} // namespace waltz
