// SPDX-License-Identifier: MIT
// Reads a script in two layers: a lexical one, and above it the four kinds of block, each of which becomes
// calls on the DemoPlayer.
//
// The file is first reduced to one string, the stream. It holds letters, digits and [ ] . , ; _ = - ; all
// other characters, white space and comments (from one # to the next, across lines) are dropped. A block is a
// header such as [EFFECT] and the entries Key=Value; up to the next [. script/BlockSyntax.h lists headers and
// keys.
//
// Existing shows depend on how the format treats errors, so the reader must not be stricter or more lenient:
// text ahead of a header, or a header of an unknown name, makes the rest of the file ignored without a
// message, and a list of parameters loses its last character. docs/SCRIPT.md describes the format to script
// writers.
#pragma once

#include "kernel/ColorScheme.h"
#include "script/ScriptObserver.h"

#include <cstdio>
#include <string>

class DemoPlayer;

class ScriptParser
{
public:
    // Both are borrowed; null, as at first, for none.
    void SetPlayer(DemoPlayer* newPlayer) { player = newPlayer; }
    void SetObserver(ScriptObserver* newObserver) { observer = newObserver; }

    // Reads a script of the data directory. True if the file could be opened, whatever was in it; if it could
    // not, that was reported and a quit posted.
    bool Load(std::string fileName);

    // Reads the blocks of an open file, from its present position to its end. Load does this with its file.
    void ReadBlocks(FILE* file);

    // True for a character that the stream holds where it stands outside comments.
    static bool Keeps(int c);

    // The lexical layer. NextBlock, ReadBlockBody and PopChar remove from the front of the stream what they
    // read.
    std::string ReadFiltered(FILE* file);
    BlockType NextBlock(std::string& stream);       // past the next header; BlockNone: none was left
    std::string ReadBlockBody(std::string& stream); // up to the next [, which stays
    char PopChar(std::string& stream);              // 0 if it is empty
    char PeekChar(const std::string& stream) const; // 0 if it is empty

    // Appends the value of the first entry with exactly this key to *value. True if the entry has its ;.
    bool GetValue(std::string body, std::string key, std::string* value) const;

    // The blocks. If a needed entry is missing, an information box says so and the block is skipped.
    void ParseMusic(std::string body);
    void ParseEffect(std::string body);
    void ParseMessage(std::string body);
    void ParseColorScheme(std::string body);

    // "r,g,b" of 0 to 255 into three floats of 0 to 1. Not clamped; further components are ignored, missing
    // ones leave rgb as it is.
    void ParseColor(std::string text, float* rgb) const;

private:
    void ParseParameters(std::string text, float* params, int count);

    DemoPlayer* player = nullptr;
    ScriptObserver* observer = nullptr;
};
