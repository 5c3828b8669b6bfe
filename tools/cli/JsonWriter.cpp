// SPDX-License-Identifier: MIT
#include "tools/cli/JsonWriter.h"

#include <utf8.h>

#include <cmath>
#include <iterator>

namespace cli
{

JsonWriter::JsonWriter()
{
    Reset(text);
    SetFormatOptions(rapidjson::kFormatDefault); // which the constructor without a stream leaves unset
    SetIndent(' ', 2);
}

JsonWriter& JsonWriter::Key(const std::string& name)
{
    String(name);
    return *this;
}

void JsonWriter::String(const std::string& value)
{
    std::string valid; // RapidJSON would pass other bytes on as they are
    utf8::replace_invalid(value.begin(), value.end(), std::back_inserter(valid));
    Writer::String(valid.data(), rapidjson::SizeType(valid.size()));
}

void JsonWriter::Double(double value)
{
    if (std::isfinite(value))
        Writer::Double(value);
    else
        Null();
}

std::string JsonWriter::Finish() const
{
    return text.GetString() + std::string("\n");
}

} // namespace cli
