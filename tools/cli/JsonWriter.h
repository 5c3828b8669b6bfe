// SPDX-License-Identifier: MIT
// Writes JSON, indented by two, one member a line: RapidJSON's writer, for values that can be anything. The
// calls follow the text:
//
//     cli::JsonWriter json;
//     json.StartObject();
//     json.Key("effects").StartArray();
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

class JsonWriter : rapidjson::PrettyWriter<rapidjson::StringBuffer>
{
    using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

public:
    JsonWriter();

    using Writer::EndArray;
    using Writer::EndObject;
    using Writer::StartArray;
    using Writer::StartObject;
    JsonWriter& Key(const std::string& name); // ahead of each value inside an object

    void String(const std::string& value); // what is not UTF-8 in it becomes U+FFFD
    using Writer::Int64;
    void Double(double value); // the shortest form that reads back the same; null for infinities and NaN
    using Writer::Bool;
    using Writer::Null;

    // Key and value in one.
    void Member(const std::string& name, const std::string& value) { Key(name).String(value); }
    void Member(const std::string& name, const char* value) { Key(name).String(value); } // and no bool
    void Member(const std::string& name, int64_t value) { Key(name).Int64(value); }
    void Member(const std::string& name, int value) { Key(name).Int64(value); }
    void Member(const std::string& name, uint32_t value) { Key(name).Int64(value); }
    void Member(const std::string& name, double value) { Key(name).Double(value); }
    void Member(const std::string& name, bool value) { Key(name).Bool(value); }

    // The whole text with a line end. Everything that was started has been ended.
    std::string Finish() const;

private:
    rapidjson::StringBuffer text;
};

} // namespace cli
