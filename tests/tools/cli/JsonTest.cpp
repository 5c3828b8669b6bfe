// SPDX-License-Identifier: MIT
#include "tools/cli/Json.h"

#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <unistd.h>

TEST(Json, IsIndentedByTwoWithOneMemberALine)
{
    cli::Json json;
    json.BeginObject();
    json.Member("text", "a");
    json.Key("list");
    json.BeginArray();
    json.Whole(1);
    json.Number(0.5);
    json.Truth(true);
    json.Null();
    json.BeginObject();
    json.EndObject();
    json.BeginArray();
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

TEST(Json, KnowsEachKindOfMember)
{
    cli::Json json;
    json.BeginObject();
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

TEST(Json, EscapesWhatMayNotStandBetweenQuotes)
{
    EXPECT_EQ("\"\\\"\\\\/\\n\\t\\u000d\\u0000\\u001f\\u007f\"",
              cli::Quoted(std::string("\"\\/\n\t\r\0\x1F\x7F", 9)));
    EXPECT_EQ("\"\xC3\xB6 \xE2\x82\xAC \xF0\x9F\x90\x9F\"",
              cli::Quoted("\xC3\xB6 \xE2\x82\xAC \xF0\x9F\x90\x9F"));
}

TEST(Json, PutsAReplacementForBytesThatAreNoText)
{
    EXPECT_EQ("\"\\ufffd\"", cli::Quoted("\xFF"));
    EXPECT_EQ("\"\\ufffd\"", cli::Quoted("\x80"));
    EXPECT_EQ("\"\\ufffda\"", cli::Quoted("\xC3"
                                          "a"));
    EXPECT_EQ("\"\\ufffd\"", cli::Quoted("\xC3")) << "cut short";
    EXPECT_EQ("\"\\ufffd\\ufffd\"", cli::Quoted("\xC0\x80")) << "overlong";
    EXPECT_EQ("\"\\ufffd\\ufffd\\ufffd\"", cli::Quoted("\xE0\x80\x80")) << "overlong";
    EXPECT_EQ("\"\\ufffd\\ufffd\\ufffd\"", cli::Quoted("\xED\xA0\x80")) << "a surrogate";
    EXPECT_EQ("\"\\ufffd\\ufffd\\ufffd\\ufffd\"", cli::Quoted("\xF4\x90\x80\x80")) << "above the last";
    EXPECT_EQ("\"\\ufffd\\ufffd\\ufffd\\ufffd\"", cli::Quoted("\xF0\x8F\xBF\xBF")) << "overlong";
}

TEST(Json, WritesNumbersThatReadBackAndNullForThoseItCannotSay)
{
    for (double value : {0.1, 1.0 / 3, 1e300, -2.5, 1e-9, 372.6}) {
        cli::Json json;
        json.Number(value);
        EXPECT_EQ(value, strtod(json.Finish().c_str(), nullptr));
    }
    for (double value : {double(INFINITY), double(-INFINITY), double(NAN)}) {
        cli::Json json;
        json.Number(value);
        EXPECT_EQ("null\n", json.Finish());
    }
}

// jq is somebody else's reader.
TEST(Json, OfAnyBytesIsReadBackByOthers)
{
    const std::string path = testing::TempDir() + "marlinex-json-" + std::to_string(getpid());
    std::mt19937 random(7);
    cli::Json json;
    json.BeginArray();
    for (int i = 0; i < 200; i++) {
        std::string bytes(random() % 40, ' ');
        for (char& c : bytes)
            c = char(random() % 256);
        json.Text(bytes);
    }
    json.EndArray();
    std::ofstream(path, std::ios::binary) << json.Finish();
    const ProgramRun run = RunProgram("/usr/bin/jq", {"length", path});
    std::filesystem::remove(path);
    EXPECT_EQ("", run.errors);
    EXPECT_EQ("200\n", run.output);
}
