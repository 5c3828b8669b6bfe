// SPDX-License-Identifier: MIT
#include "script/ScriptParser.h"

#include "kernel/ReadScript.h"
#include "kernel/Report.h"

#include <algorithm>

bool ReadScript(DemoPlayer* player, std::string fileName)
{
    ScriptParser parser;
    parser.SetPlayer(player);
    return parser.Load(fileName);
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

// The type of the next block. The search for its header starts at *place, which is moved past the header,
// or to the end of the stream if there is none.
static BlockType FindBlock(const std::string& stream, size_t* place)
{
    std::string word;
    bool sawBracket = false;
    while (*place < stream.size()) {
        const char c = stream[(*place)++];
        if (c == '[') {
            sawBracket = true;
        } else if (c == ']' && sawBracket) {
            // The word is not cleared when nothing matches, so that after an unknown header none matches.
            const BlockType type = BlockTypeNamed(word);
            if (type != BlockNone)
                return type;
        } else {
            word += c;
        }
    }
    return BlockNone;
}

static size_t FindBodyEnd(const std::string& stream, size_t begin)
{
    return std::min(stream.find('[', begin), stream.size());
}

// Goes through the stream by index. Erasing what was read, as NextBlock and ReadBlockBody do, would take time
// quadratic in the length of the stream.
void ScriptParser::ReadBlocks(FILE* file)
{
    const std::string stream = ReadFiltered(file);
    for (size_t place = 0; place < stream.size();) {
        const size_t header = place;
        const BlockType type = FindBlock(stream, &place);
        const size_t begin = place;
        place = FindBodyEnd(stream, begin);
        const std::string body = stream.substr(begin, place - begin);
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

// isalnum would not do: which bytes it takes for letters depends on the locale.
bool ScriptParser::Keeps(int c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '[' ||
           c == ']' || c == '.' || c == ',' || c == ';' || c == '_' || c == '=' || c == '-';
}

std::string ScriptParser::ReadFiltered(FILE* file)
{
    std::string stream;
    bool inComment = false;
    size_t place = 0;
    char bytes[4096];
    for (size_t got = fread(bytes, 1, sizeof bytes, file); got > 0;
         got = fread(bytes, 1, sizeof bytes, file)) {
        for (size_t i = 0; i < got; i++, place++) {
            const char c = bytes[i];
            ByteFate fate = inComment ? ByteCommented : ByteDropped;
            if (c == '#') {
                inComment = !inComment;
                fate = ByteMark;
            } else if (!inComment && Keeps(c)) {
                stream += c;
                fate = ByteKept;
            }
            if (observer)
                observer->ByteRead(place, c, fate);
        }
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
    size_t taken = 0;
    const BlockType result = FindBlock(stream, &taken);
    stream.erase(0, taken);
    return result;
}

std::string ScriptParser::ReadBlockBody(std::string& stream)
{
    const size_t end = FindBodyEnd(stream, 0);
    const std::string body = stream.substr(0, end);
    stream.erase(0, end);
    return body;
}

bool ScriptParser::GetValue(std::string body, std::string key, std::string* value) const
{
    std::string word;
    bool found = false;
    for (auto place = body.cbegin();; ++place) {
        const auto mark = std::find_if(place, body.cend(), [](char c) { return c == '=' || c == ';'; });
        (found ? *value : word).append(place, mark);
        if (mark == body.cend())
            return false;
        // For an entry of another key the word goes on after the =, and at the ; it holds key and value
        // joined. It is compared there too, so that Start=Time; is found under the key StartTime.
        found = found || word == key;
        if (*mark == ';') {
            if (found)
                return true;
            word.clear();
        }
        place = mark;
    }
}
