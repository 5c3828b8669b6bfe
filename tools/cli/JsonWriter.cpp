// SPDX-License-Identifier: MIT
#include "tools/cli/JsonWriter.h"

#include <utf8.h>

#include <cmath>
#include <iterator>

namespace cli
{

JsonWriter::JsonWriter() : writer(text)
{
    writer.SetIndent(' ', 2);
}

void JsonWriter::StartObject()
{
    writer.StartObject();
}

void JsonWriter::EndObject()
{
    writer.EndObject();
}

void JsonWriter::StartArray()
{
    writer.StartArray();
}

void JsonWriter::EndArray()
{
    writer.EndArray();
}

void JsonWriter::Key(const std::string& name)
{
    String(name);
}

void JsonWriter::String(const std::string& value)
{
    std::string valid; // RapidJSON would pass other bytes on as they are
    utf8::replace_invalid(value.begin(), value.end(), std::back_inserter(valid));
    writer.String(valid.data(), rapidjson::SizeType(valid.size()));
}

void JsonWriter::Int64(int64_t value)
{
    writer.Int64(value);
}

void JsonWriter::Double(double value)
{
    if (std::isfinite(value))
        writer.Double(value);
    else
        writer.Null();
}

void JsonWriter::Bool(bool value)
{
    writer.Bool(value);
}

void JsonWriter::Null()
{
    writer.Null();
}

void JsonWriter::Member(const std::string& name, const std::string& value)
{
    Key(name);
    String(value);
}

void JsonWriter::Member(const std::string& name, const char* value)
{
    Key(name);
    String(value);
}

void JsonWriter::Member(const std::string& name, int64_t value)
{
    Key(name);
    Int64(value);
}

void JsonWriter::Member(const std::string& name, int value)
{
    Key(name);
    Int64(value);
}

void JsonWriter::Member(const std::string& name, uint32_t value)
{
    Key(name);
    Int64(value);
}

void JsonWriter::Member(const std::string& name, double value)
{
    Key(name);
    Double(value);
}

void JsonWriter::Member(const std::string& name, bool value)
{
    Key(name);
    Bool(value);
}

std::string JsonWriter::Finish() const
{
    return text.GetString() + std::string("\n");
}

} // namespace cli
