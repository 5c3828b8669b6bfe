// SPDX-License-Identifier: MIT
#include "tools/cli/JsonWriter.h"

#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <random>
#include <unistd.h>

TEST(JsonWriter, IsIndentedByTwoWithOneMemberALine)
{
    cli::JsonWriter json;
    json.StartObject();
    json.Member("text", "a");
    json.Key("list");
    json.StartArray();
    json.Int64(1);
    json.Double(0.5);
    json.Bool(true);
    json.Null();
    json.StartObject();
    json.EndObject();
    json.StartArray();
    json.EndArray();
    json.EndArray();
    json.Member("last", false);
    json.EndObject();
    EXPECT_EQ("{\n"
              "  \"text\": \"a\",\n"
              "  \"list\": [\n"
              "    1,\n"
              "    0.5,\n"
              "    true,\n"
              "    null,\n"
              "    {},\n"
              "    []\n"
              "  ],\n"
              "  \"last\": false\n"
              "}\n",
              json.Finish());
}

// RapidJSON sets the form of arrays in one of its constructors only.
TEST(JsonWriter, IsIndentedWhateverLayInItsMemory)
{
    for (const int byte : {0x00, 0xFF}) {
        alignas(cli::JsonWriter) unsigned char memory[sizeof(cli::JsonWriter)];
        memset(memory, byte, sizeof memory);
        cli::JsonWriter* const json = new (memory) cli::JsonWriter;
        json->StartArray();
        json->Int64(1);
        json->EndArray();
        EXPECT_EQ("[\n  1\n]\n", json->Finish()) << byte;
        json->~JsonWriter();
    }
}

TEST(JsonWriter, KnowsEachKindOfMember)
{
    cli::JsonWriter json;
    json.StartObject();
    json.Member("string", std::string("s"));
    json.Member("literal", "l");
    json.Member("int", -1);
    json.Member("uint32", uint32_t(4294967295u));
    json.Member("int64", int64_t(1) << 53);
    json.Member("double", 0.1);
    json.Member("bool", true);
    json.EndObject();
    EXPECT_EQ("{\n  \"string\": \"s\",\n  \"literal\": \"l\",\n  \"int\": -1,\n  \"uint32\": 4294967295,\n"
              "  \"int64\": 9007199254740992,\n  \"double\": 0.1,\n  \"bool\": true\n}\n",
              json.Finish());
}

// A string as it stands in the text, without the line end.
static std::string Written(const std::string& value)
{
    cli::JsonWriter json;
    json.String(value);
    const std::string text = json.Finish();
    return text.substr(0, text.size() - 1);
}

TEST(JsonWriter, EscapesWhatMayNotStandBetweenQuotes)
{
    EXPECT_EQ("\"\\\"\\\\/\\n\\t\\r\\u0000\\u001F\"", Written(std::string("\"\\/\n\t\r\0\x1F", 8)));
    EXPECT_EQ("\"\xC3\xB6 \xE2\x82\xAC \xF0\x9F\x90\x9F\"",
              Written("\xC3\xB6 \xE2\x82\xAC \xF0\x9F\x90\x9F"));
}

TEST(JsonWriter, PutsAReplacementForBytesThatAreNoText)
{
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ("\"" + replacement + "\"", Written("\xFF"));
    EXPECT_EQ("\"" + replacement + "\"", Written("\x80"));
    EXPECT_EQ("\"" + replacement + "a\"", Written("\xC3"
                                                  "a"));
    for (const char* wrong :
         {"\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF0\x8F\xBF\xBF"}) {
        SCOPED_TRACE(testing::PrintToString(wrong));
        std::string text = Written(std::string("a") + wrong + "b");
        EXPECT_EQ("\"a", text.substr(0, 2));
        EXPECT_EQ("b\"", text.substr(text.size() - 2));
        for (text = text.substr(2, text.size() - 4); !text.empty(); text = text.substr(replacement.size()))
            ASSERT_EQ(replacement, text.substr(0, replacement.size()));
    }
}

TEST(JsonWriter, WritesNumbersThatReadBackAndNullForThoseItCannotSay)
{
    for (double value : {0.1, 1.0 / 3, 1e300, -2.5, 1e-9, 372.6}) {
        cli::JsonWriter json;
        json.Double(value);
        EXPECT_EQ(value, strtod(json.Finish().c_str(), nullptr));
    }
    for (double value : {double(INFINITY), double(-INFINITY), double(NAN)}) {
        cli::JsonWriter json;
        json.Double(value);
        EXPECT_EQ("null\n", json.Finish());
    }
}

// jq is somebody else's reader.
TEST(JsonWriter, OfAnyBytesIsReadBackByOthers)
{
    const std::string path = testing::TempDir() + "marlinex-json-" + std::to_string(getpid());
    std::mt19937 random(7);
    cli::JsonWriter json;
    json.StartArray();
    for (int i = 0; i < 200; i++) {
        std::string bytes(random() % 40, ' ');
        for (char& c : bytes)
            c = char(random() % 256);
        json.String(bytes);
    }
    json.EndArray();
    std::ofstream(path, std::ios::binary) << json.Finish();
    const ProgramRun run = RunProgram("/usr/bin/jq", {"length", path});
    std::filesystem::remove(path);
    EXPECT_EQ("", run.errors);
    EXPECT_EQ("200\n", run.output);
}
