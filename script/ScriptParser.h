// SPDX-License-Identifier: MIT
// Reads a script: first the lexical layer, then the four kinds of block, each of which becomes calls on the
// DemoPlayer.
//
// The file is boiled down to one string, the stream: comments (from one # to the next, across lines) and all
// but letters, digits and [ ] . , ; _ = - are gone from it, white space included. A block is a header such as
// [EFFECT], then entries Key=Value; up to the next [.
//
// The format has its accidents: junk ahead of a header or a header of an unknown name eats up the rest of the
// file in silence, and a parameter list loses its last character. Shows depend on what is read, so all of
// them stay. docs/SCRIPT.md tells script writers about them.
#pragma once

#include "kernel/ColorScheme.h"
#include "script/ScriptObserver.h"

#include <cstdio>
#include <string>

class DemoPlayer;

class ScriptParser
{
public:
    ScriptParser();
    ~ScriptParser();

    void SetPlayer(DemoPlayer* newPlayer);         // borrowed
    void SetObserver(ScriptObserver* newObserver); // borrowed; null, as at first, for none

    // Reads a script of the data directory. True if the file could be opened, whatever was in it; if it could
    // not, that was reported and a quit posted.
    bool Load(std::string fileName);

    void ReadBlocks(FILE* file); // what Load does with the open file, from where it stands to its end

    // The lexical layer. Streams and texts are consumed at the front.
    std::string ReadFiltered(FILE* file);
    BlockType NextBlock(std::string& stream);       // consumes a header; BlockNone means the stream is empty
    std::string ReadBlockBody(std::string& stream); // consumes up to the next [, which stays
    char PopChar(std::string& stream);              // 0 if it is empty
    char PeekChar(const std::string& stream) const; // 0 if it is empty

    // Appends the value of the first entry with exactly this key to *value. True if the entry has its ;.
    bool GetValue(std::string body, std::string key, std::string* value) const;

    // The blocks. What a block lacks is shown in an information box, and the block is skipped.
    void ParseMusic(std::string body);
    void ParseEffect(std::string body);
    void ParseMessage(std::string body);
    void ParseColorScheme(std::string body);

    // "r,g,b" of 0 to 255 into three floats of 0 to 1. Not clamped; further components are ignored, missing
    // ones leave rgb as it is.
    void ParseColor(std::string text, float* rgb) const;

private:
    void ParseParameters(std::string text, float* params, int count);

    DemoPlayer* player;
    ScriptObserver* observer;
};
