// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Score.h"

#include <string>

namespace waltz
{

// Reads the notation of our own in which the score is written; art/music/score/README.md explains it.
//
// Read one text after the other with ReadText, each a section that goes on where the last one ended; then
// Finish lets the patterns and ties become tones. All return false at the first mistake, and Error tells
// file, line and what is wrong there; the score is of no use then.
class ScoreReader
{
public:
    ScoreReader();
    bool ReadText(const std::string& fileName, const std::string& text);
    bool Finish();

    const Score& Result() const { return score; }
    const std::string& Error() const { return error; }

private:
    struct Use { // of a pattern, for one bar
        size_t voice;
        std::string pattern;
        int bar;
    };

    bool ReadLine(const std::string& line);
    bool ReadSectionLine(const std::string& line);
    bool ReadHarmony(int bar, const std::string& bars);
    bool ReadRubato(int bar, const std::string& bars);
    bool ReadBars(int bar, const std::string& bars);
    bool ReadToken(const std::string& token, double& beat);
    bool ReadNote(const std::string& token, double& beat);
    bool ReadMark(const std::string& token, double beat);
    bool Add(const Tone& tone);
    void JoinTies();
    bool Fail(const std::string& what);

    Score score;
    std::vector<Use> uses;
    std::string fileName, error;
    int lineNumber = 0;
    enum class Reading { Nothing, Harmony, Rubato, Part };
    Reading reading = Reading::Nothing; // whose lines of bars these are
    size_t voice = 0;                   // the part, if it is one
    int nextBar = 0;                    // the first bar of this part that no line has filled
};

// The whole score: the files of `folder` that the table in ScoreReader.cpp names, in its order. On failure
// `error` tells why.
bool ReadScore(const std::string& folder, Score& score, std::string& error);

} // namespace waltz
