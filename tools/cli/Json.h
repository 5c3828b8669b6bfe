// SPDX-License-Identifier: MIT
// Writes JSON, indented by two, one member a line. The calls follow the text:
//
//     cli::Json json;
//     json.BeginObject();
//     json.Key("effects");
//     json.BeginArray();
//     json.Text("FX_Clouds");
//     json.EndArray();
//     json.Member("layer", 3);
//     json.EndObject();
//     fputs(json.Finish().c_str(), stdout);
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cli
{

class Json
{
public:
    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();
    void Key(const std::string& name); // ahead of each value inside an object

    void Text(const std::string& value); // bytes that are no UTF-8 become U+FFFD
    void Whole(int64_t value);
    void Number(double value); // the shortest that reads back the same; null for what JSON has no words for
    void Truth(bool value);
    void Null();

    // Key and value in one.
    void Member(const std::string& name, const std::string& value);
    void Member(const std::string& name, const char* value);
    void Member(const std::string& name, int64_t value);
    void Member(const std::string& name, int value);
    void Member(const std::string& name, uint32_t value);
    void Member(const std::string& name, double value);
    void Member(const std::string& name, bool value);

    // The whole text with a line end. Everything that was begun has been ended.
    std::string Finish() const;

private:
    void Open(char bracket);
    void Close(char bracket);
    void Place(); // what goes between the last value and the next one

    struct Level {
        bool empty;
    };
    std::string text;
    std::vector<Level> levels;
    bool afterKey = false;
};

// The text between quotes, with JSON's escapes.
std::string Quoted(const std::string& text);

} // namespace cli
