// SPDX-License-Identifier: MIT
// Writes JSON, indented by two, one member a line: RapidJSON's writer, for values that can be anything. The
// calls follow the text:
//
//     cli::JsonWriter json;
//     json.StartObject();
//     json.Key("effects");
//     json.StartArray();
//     json.String("FX_Clouds");
//     json.EndArray();
//     json.Member("layer", 3);
//     json.EndObject();
//     fputs(json.Finish().c_str(), stdout);
#pragma once

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <cstdint>
#include <string>

namespace cli
{

class JsonWriter
{
public:
    JsonWriter();

    void StartObject();
    void EndObject();
    void StartArray();
    void EndArray();
    void Key(const std::string& name); // ahead of each value inside an object

    void String(const std::string& value); // what is not UTF-8 in it becomes U+FFFD
    void Int64(int64_t value);
    void Double(double value); // the shortest form that reads back the same; null for infinities and NaN
    void Bool(bool value);
    void Null();

    // Key and value in one.
    void Member(const std::string& name, const std::string& value);
    void Member(const std::string& name, const char* value); // else a literal would become a bool
    void Member(const std::string& name, int64_t value);
    void Member(const std::string& name, int value);
    void Member(const std::string& name, uint32_t value);
    void Member(const std::string& name, double value);
    void Member(const std::string& name, bool value);

    // The whole text with a line end. Everything that was started has been ended.
    std::string Finish() const;

private:
    rapidjson::StringBuffer text;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer;
};

} // namespace cli
