// SPDX-License-Identifier: MIT
#include "script/ScriptParser.h"

#include "kernel/DemoPlayer.h"
#include "kernel/Report.h"

#include <algorithm>

ScriptParser::ScriptParser() : player(nullptr), observer(nullptr) {}

ScriptParser::~ScriptParser()
{
    player = nullptr;
}

void ScriptParser::SetPlayer(DemoPlayer* newPlayer)
{
    player = newPlayer;
}

void ScriptParser::SetObserver(ScriptObserver* newObserver)
{
    observer = newObserver;
}

// Here the sequencer and the parser need each other: this file is the one place that knows both.
bool DemoPlayer::LoadScript(std::string fileName)
{
    if (state != PlayerReady)
        return false;
    ScriptParser parser;
    parser.SetPlayer(this);
    const bool loaded = parser.Load(fileName);
    if (loaded)
        SortMessages();
    return loaded;
}

bool ScriptParser::Load(std::string fileName)
{
    FILE* file = OpenFile(("Data\\" + fileName).c_str(), "rb");
    if (!file)
        return false;
    ReadBlocks(file);
    CloseFile(file);
    return true;
}

void ScriptParser::ReadBlocks(FILE* file)
{
    std::string stream = ReadFiltered(file);
    const size_t length = stream.size();
    while (!stream.empty()) {
        const size_t header = length - stream.size();
        const BlockType type = NextBlock(stream);
        const size_t begin = length - stream.size();
        const std::string body = ReadBlockBody(stream);
        if (observer)
            observer->BlockBegins(type, header, begin, body);
        switch (type) {
        case BlockMusic:
            ParseMusic(body);
            break;
        case BlockEffect:
            ParseEffect(body);
            break;
        case BlockMessage:
            ParseMessage(body);
            break;
        case BlockColorScheme:
            ParseColorScheme(body);
            break;
        case BlockNone:
            break;
        }
        if (observer)
            observer->BlockEnds();
    }
}

// Not isalnum: what counts as a letter there depends on the locale.
static bool IsPermitted(int c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '[' ||
           c == ']' || c == '.' || c == ',' || c == ';' || c == '_' || c == '=' || c == '-';
}

std::string ScriptParser::ReadFiltered(FILE* file)
{
    std::string stream;
    bool inComment = false;
    size_t place = 0;
    for (int c = fgetc(file); c != EOF; c = fgetc(file)) {
        ByteFate fate = inComment ? ByteCommented : ByteDropped;
        if (c == '#') {
            inComment = !inComment;
            fate = ByteMark;
        } else if (!inComment && IsPermitted(c)) {
            stream += char(c);
            fate = ByteKept;
        }
        if (observer)
            observer->ByteRead(place, char(c), fate);
        place++;
    }
    return stream;
}

char ScriptParser::PopChar(std::string& stream)
{
    const char c = PeekChar(stream);
    if (!stream.empty())
        stream.erase(0, 1);
    return c;
}

char ScriptParser::PeekChar(const std::string& stream) const
{
    return stream.empty() ? '\0' : stream[0];
}

BlockType ScriptParser::NextBlock(std::string& stream)
{
    std::string word;
    bool sawBracket = false;
    BlockType result = BlockNone;
    size_t taken = 0;
    while (taken < stream.size() && result == BlockNone) {
        const char c = stream[taken++];
        if (c == '[') {
            sawBracket = true;
        } else if (c == ']' && sawBracket) {
            // The word is kept when nothing matches, so one unknown header spoils all that follow.
            if (word == "MUSIC")
                result = BlockMusic;
            else if (word == "EFFECT")
                result = BlockEffect;
            else if (word == "MESSAGE")
                result = BlockMessage;
            else if (word == "COLORSCHEME")
                result = BlockColorScheme;
        } else {
            word += c;
        }
    }
    stream.erase(0, taken); // once, not for each character: a long file of junk must not stall the start
    return result;
}

std::string ScriptParser::ReadBlockBody(std::string& stream)
{
    const size_t end = std::min(stream.find('['), stream.size());
    const std::string body = stream.substr(0, end);
    stream.erase(0, end);
    return body;
}

bool ScriptParser::GetValue(std::string body, std::string key, std::string* value) const
{
    std::string word;
    bool found = false;
    for (char c : body) {
        if (c != '=' && c != ';') {
            if (found)
                *value += c;
            else
                word += c;
        } else {
            // At a ; the word holds key and value of an entry that was not asked for, joined, and is compared
            // all the same: Start=Time; is found as StartTime.
            if (word == key)
                found = true;
            if (c == ';') {
                if (found)
                    return true;
                word.clear();
            }
        }
    }
    return false;
}
