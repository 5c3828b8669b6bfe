// SPDX-License-Identifier: MIT
#include "script/ParameterFile.h"

#include "kernel/Report.h"
#include "platform/Events.h"
#include "platform/Paths.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/OddFiles.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <unistd.h>

// Each test has a working directory of its own.
class Parameters : public testing::Test
{
protected:
    Parameters() : folder(testing::TempDir() + "ParameterFileTest-" + std::to_string(getpid()))
    {
        platform::CollectMessageBoxes(&boxes);
        std::filesystem::remove_all(folder);
        std::filesystem::create_directory(folder);
        std::filesystem::current_path(folder);
    }
    ~Parameters() override
    {
        platform::CollectMessageBoxes(nullptr);
        std::filesystem::current_path(testing::TempDir());
        std::filesystem::remove_all(folder);
    }

    static void Put(const std::string& text) { std::ofstream("store.dep", std::ios::binary) << text; }

    static std::string Get() { return ReadFile("store.dep"); }

    // -1 stands for "not found".
    static int ReadInteger(const std::string& text, const std::string& key)
    {
        Put(text);
        ParameterFile store("store");
        int value = 0;
        return store.Read(&value, key, ParameterInteger) ? value : -1;
    }

    const std::string folder;
    std::vector<platform::MessageBox> boxes;
};

TEST_F(Parameters, TypesHaveTheirNumbers)
{
    EXPECT_EQ(1, ParameterText);
    EXPECT_EQ(2, ParameterInteger);
    EXPECT_EQ(3, ParameterFloat);
}

TEST_F(Parameters, ANewStoreIsCreatedAndTakesTheDefaults)
{
    ParameterFile store("store");
    EXPECT_EQ("store", store.name);
    ASSERT_NE(nullptr, store.file);
    EXPECT_TRUE(std::filesystem::exists("store.dep"));
    EXPECT_EQ("", Get());

    int speed = 5;
    EXPECT_TRUE(store.ReadOrAdd(&speed, "speed", 2));
    EXPECT_EQ(5, speed);
    EXPECT_EQ("speed 5\n", Get());

    int again = 7;
    EXPECT_FALSE(store.ReadOrAdd(&again, "speed", 2));
    EXPECT_EQ(5, again);
    EXPECT_EQ("speed 5\n", Get());
}

TEST_F(Parameters, StayFromOneRunToTheNext)
{
    int speed = 5;
    float width = 1.5f;
    {
        ParameterFile store("store");
        store.ReadOrAdd(&speed, "speed", ParameterInteger);
        store.ReadOrAdd(&width, "width", ParameterFloat);
    }
    EXPECT_EQ("speed 5\nwidth 1.500000\n", Get());
    speed = 0;
    width = 0.0f;
    ParameterFile store("store");
    EXPECT_FALSE(store.ReadOrAdd(&speed, "speed", ParameterInteger));
    EXPECT_FALSE(store.ReadOrAdd(&width, "width", ParameterFloat));
    EXPECT_EQ(5, speed);
    EXPECT_EQ(1.5f, width);
}

TEST_F(Parameters, EachTypeIsWrittenInItsForm)
{
    ParameterFile store("store");
    int number = -42;
    float real = 0.1234567f;
    char text[ParameterTextSize] = "bone";
    EXPECT_FALSE(store.Write(&number, "n", 2));
    EXPECT_FALSE(store.Write(&real, "r", 3));
    EXPECT_FALSE(store.Write(text, "t", 1));
    EXPECT_EQ("n -42\nr 0.123457\nt bone", Get());
}

TEST_F(Parameters, EachTypeIsReadInItsForm)
{
    Put("n -42\nr 2.5\nt bone");
    ParameterFile store("store");
    int number = 0;
    float real = 0.0f;
    char text[ParameterTextSize] = "";
    EXPECT_TRUE(store.Read(&number, "n", 2));
    EXPECT_TRUE(store.Read(&real, "r", 3));
    EXPECT_TRUE(store.Read(text, "t", 1));
    EXPECT_EQ(-42, number);
    EXPECT_EQ(2.5f, real);
    EXPECT_STREQ("bone", text);
}

TEST_F(Parameters, WriteAppendsEvenAKeyThatIsThere)
{
    Put("speed 5\n");
    ParameterFile store("store");
    int value = 6;
    EXPECT_FALSE(store.Write(&value, "speed", ParameterInteger));
    EXPECT_EQ("speed 5\nspeed 6\n", Get());
    EXPECT_TRUE(store.Read(&value, "speed", ParameterInteger));
    EXPECT_EQ(5, value) << "the first match wins";
}

TEST_F(Parameters, WriteAppendsAlsoAfterAReadInTheMiddle)
{
    Put("a 1\nb 2\n");
    ParameterFile store("store");
    int value = 0;
    EXPECT_TRUE(store.Read(&value, "a", ParameterInteger));
    value = 3;
    store.Write(&value, "c", ParameterInteger);
    EXPECT_EQ("a 1\nb 2\nc 3\n", Get());
    EXPECT_TRUE(store.Read(&value, "b", ParameterInteger)) << "the search starts in front again";
    EXPECT_EQ(2, value);
}

TEST_F(Parameters, TwoTextEntriesAreGluedTogether)
{
    ParameterFile store("store");
    char x[ParameterTextSize] = "x";
    char y[ParameterTextSize] = "y";
    EXPECT_TRUE(store.ReadOrAdd(x, "a", ParameterText));
    EXPECT_TRUE(store.ReadOrAdd(y, "b", ParameterText));
    EXPECT_EQ("a xb y", Get());

    char value[ParameterTextSize] = "untouched";
    EXPECT_FALSE(store.Read(value, "b", ParameterText));
    EXPECT_STREQ("untouched", value);
    EXPECT_TRUE(store.Read(value, "a", ParameterText));
    EXPECT_STREQ("xb", value);
}

TEST_F(Parameters, AKeyIsComparedByteForByteAndAsAWhole)
{
    EXPECT_EQ(5, ReadInteger("Speed 4\nspeed 5\n", "speed"));
    EXPECT_EQ(-1, ReadInteger("speeds 4\n", "speed"));
    EXPECT_EQ(-1, ReadInteger("spee 4\n", "speed"));
    EXPECT_EQ(6, ReadInteger("  speed\n\n\t6", "speed"));
}

TEST_F(Parameters, AValueThatEqualsTheKeyIsTakenForIt)
{
    EXPECT_EQ(7, ReadInteger("mode speed 7 8\nspeed 9\n", "speed"));
}

TEST_F(Parameters, AMatchCountsThoughNoNumberFollows)
{
    Put("speed fast");
    ParameterFile store("store");
    int value = 3;
    EXPECT_TRUE(store.Read(&value, "speed", ParameterInteger));
    EXPECT_EQ(3, value);
    float real = 4.0f;
    EXPECT_TRUE(store.Read(&real, "speed", ParameterFloat));
    EXPECT_EQ(4.0f, real);
    EXPECT_FALSE(store.ReadOrAdd(&value, "speed", ParameterInteger));
    EXPECT_EQ("speed fast", Get());
}

TEST_F(Parameters, AKeyThatEndsTheFileWithALineEndIsAMatch)
{
    EXPECT_EQ(0, ReadInteger("speed\n", "speed")) << "with nothing behind it the value stays";
    EXPECT_EQ(0, ReadInteger("speed", "speed"));
}

TEST_F(Parameters, AnEmptyKeyMatchesTheEndOfTheFile)
{
    EXPECT_EQ(0, ReadInteger("", ""));
    EXPECT_EQ(0, ReadInteger("a 1\n", ""));
    EXPECT_EQ(-1, ReadInteger("a 1", "")) << "the last token reached the end, and no empty read follows";
}

TEST_F(Parameters, AnUnknownTypeReadsAndWritesNothing)
{
    Put("speed 5 speed 6\n");
    ParameterFile store("store");
    for (int type : {0, 4, -1}) {
        int value = 3;
        EXPECT_FALSE(store.Read(&value, "speed", type));
        EXPECT_FALSE(store.Write(&value, "speed", type));
        EXPECT_TRUE(store.ReadOrAdd(&value, "speed", type));
        EXPECT_EQ(3, value);
    }
    EXPECT_EQ("speed 5 speed 6\n", Get());
}

TEST_F(Parameters, ATokenThatIsTooLongStaysInsideTheBuffers)
{
    const std::string longToken(1000, 'x');
    EXPECT_EQ(8, ReadInteger(longToken + " 1\nspeed 8\n", "speed"));

    Put("name " + longToken + "\n");
    ParameterFile store("store");
    char guarded[ParameterTextSize + 16];
    memset(guarded, '#', sizeof guarded);
    EXPECT_TRUE(store.Read(guarded, "name", ParameterText));
    EXPECT_EQ(longToken, guarded);

    memset(guarded, '#', sizeof guarded);
    EXPECT_FALSE(store.ReadOrAdd(guarded, "name", ParameterText, 256));
    EXPECT_EQ(std::string(255, 'x'), guarded);
    EXPECT_EQ('#', guarded[256]);

    Put("name " + std::string(5000, 'y') + "\n");
    memset(guarded, '#', sizeof guarded);
    store.Reopen();
    EXPECT_TRUE(store.Read(guarded, "name", ParameterText));
    EXPECT_EQ(std::string(4095, 'y'), guarded);
    EXPECT_EQ('#', guarded[4096]);
}

TEST_F(Parameters, ATextOfAnyLengthComesBackWholeWhereThereIsRoom)
{
    ParameterFile store("store");
    for (const size_t length : {254, 255, 256, 257, 1000, 9999}) {
        char text[10000] = "";
        const std::string key = "name" + std::to_string(length);
        std::string stored(length, 'x');
        stored.back() = '.';
        fprintf(store.file, "\n"); // ends the text entry before
        EXPECT_TRUE(store.ReadOrAdd(stored.data(), key, ParameterText, length + 1));
        EXPECT_TRUE(store.Read(text, key, ParameterText, sizeof text));
        EXPECT_EQ(stored, text);
    }
}

TEST_F(Parameters, ATextWithoutRoomStaysUntouched)
{
    Put("name bone");
    ParameterFile store("store");
    char text[2] = "x";
    EXPECT_TRUE(store.Read(text, "name", ParameterText, 1));
    EXPECT_TRUE(store.Read(text, "name", ParameterText, 0));
    EXPECT_STREQ("x", text);
    EXPECT_TRUE(store.Read(text, "name", ParameterText, 2));
    EXPECT_STREQ("b", text);
}

TEST_F(Parameters, ANameWithAFolderInItLiesUnderTheWorkingDirectory)
{
    platform::SetDataDirectory(folder + "/elsewhere");
    std::filesystem::create_directory("elsewhere");
    for (const char* name : {"data", "Data"}) {
        std::filesystem::create_directory(name);
        ParameterFile store(std::string(name) + "/store");
        EXPECT_TRUE(std::filesystem::exists(std::string(name) + "/store.dep"));
    }
    ParameterFile odd("data\\store");
    EXPECT_TRUE(std::filesystem::exists("data\\store.dep")) << "a backslash is a letter like others";
    EXPECT_TRUE(std::filesystem::is_empty("elsewhere"));
    EXPECT_TRUE(boxes.empty());
    platform::SetDataDirectory("Data");
}

TEST_F(Parameters, AKeyOf255BytesIsFound)
{
    const std::string key(255, 'k');
    EXPECT_EQ(4, ReadInteger("a 1\n" + key + " 4\n", key));
}

TEST_F(Parameters, AKeyOf256BytesIsNever)
{
    const std::string key(256, 'k');
    EXPECT_EQ(-1, ReadInteger("a 1\n" + key + " 4\n", key));
}

TEST_F(Parameters, CloseAndReopen)
{
    Put("speed 5\n");
    ParameterFile store("store");
    store.Close();
    EXPECT_EQ(nullptr, store.file);
    store.Close();
    int value = 3;
    EXPECT_FALSE(store.Read(&value, "speed", ParameterInteger));
    EXPECT_FALSE(store.Write(&value, "other", ParameterInteger));
    EXPECT_TRUE(store.ReadOrAdd(&value, "speed", ParameterInteger));
    EXPECT_EQ(3, value);
    EXPECT_EQ("speed 5\n", Get());

    store.Reopen();
    EXPECT_TRUE(store.Read(&value, "speed", ParameterInteger));
    EXPECT_EQ(5, value);
    store.Reopen();
    store.Open();
    EXPECT_TRUE(store.Read(&value, "speed", ParameterInteger));
}

TEST_F(Parameters, AFileThatCannotBeOpenedIsReportedAndLeavesAHarmlessStore)
{
    ParameterFile store("no/such/folder/store");
    EXPECT_EQ(nullptr, store.file);
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: File Not Found!", boxes[0].caption);
    EXPECT_EQ(std::string("Bad: no/such/folder/store.dep") + ErrorTail, boxes[0].body);
    EXPECT_EQ(platform::EventQuit, platform::TakeEvent().kind);

    int value = 3;
    EXPECT_FALSE(store.Read(&value, "speed", ParameterInteger));
    EXPECT_FALSE(store.Write(&value, "speed", ParameterInteger));
    EXPECT_TRUE(store.ReadOrAdd(&value, "speed", ParameterInteger));
    EXPECT_EQ(3, value);
}

TEST_F(Parameters, WhatIsNoFileIsReportedAndLeavesAHarmlessStore)
{
    for (const OddFile& odd : OddFiles()) {
        odd.make("store.dep");
        boxes.clear();
        ParameterFile store("store");
        EXPECT_EQ(nullptr, store.file) << odd.name;
        ASSERT_EQ(1u, boxes.size()) << odd.name;
        EXPECT_EQ(std::string("Bad: store.dep") + ErrorTail, boxes[0].body);
        remove("store.dep");
    }
}

TEST_F(Parameters, ADestroyedStoreHasClosedItsFile)
{
    ParameterFile* store = new ParameterFile("store");
    const int descriptor = fileno(store->file);
    EXPECT_TRUE(std::filesystem::exists("/proc/self/fd/" + std::to_string(descriptor)));
    delete store;
    EXPECT_FALSE(std::filesystem::exists("/proc/self/fd/" + std::to_string(descriptor)));
}

TEST_F(Parameters, OpenedAgainAStoreHasOneFileOpenAsBefore)
{
    ParameterFile store("store");
    const int next = dup(STDOUT_FILENO); // the lowest number that is free
    close(next);
    store.Open();
    store.Reopen();
    const int nextNow = dup(STDOUT_FILENO);
    close(nextNow);
    EXPECT_EQ(next, nextNow);
}

TEST_F(Parameters, NumbersAreTheSameUnderALocaleWithADecimalComma)
{
    ASSERT_EQ("", MakeCommaLocale(folder));
    setenv("LOCPATH", folder.c_str(), 1);
    ASSERT_NE(nullptr, setlocale(LC_NUMERIC, "comma"));
    char sample[16];
    snprintf(sample, sizeof sample, "%.1f", 0.5);
    ASSERT_STREQ("0,5", sample) << "the locale of this test must bite";

    ParameterFile store("store");
    float value = 2.5f;
    EXPECT_TRUE(store.ReadOrAdd(&value, "width", ParameterFloat));
    EXPECT_EQ("width 2.500000\n", Get());
    value = 0.0f;
    EXPECT_TRUE(store.Read(&value, "width", ParameterFloat));
    EXPECT_EQ(2.5f, value);

    snprintf(sample, sizeof sample, "%.1f", 0.5);
    EXPECT_STREQ("0,5", sample) << "the program's own locale is back";
    setlocale(LC_NUMERIC, "C");
}
