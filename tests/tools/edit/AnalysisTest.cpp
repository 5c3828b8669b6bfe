// SPDX-License-Identifier: MIT
#include "tools/edit/Analysis.h"

#include "tests/Folders.h"
#include "tests/support/ReadFile.h"
#include "tests/support/desktop/Process.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <memory>

using namespace edit;

static const char* const clouds =
    "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=10000;\nLayerID=1;\n";
static const char* const lost =
    "[MESSAGE]\nMessageText=hand;\nActivationTime=12000;\nTargetEffect=FX_Clouds;\n";

class AnalysisTest : public testing::Test
{
protected:
    AnalysisTest() : analysis([this] { calls++; })
    {
        options.data = SOURCE_DIR "/Data";
        options.checkFiles = false;
    }

    // The result for a text; null if none comes.
    std::shared_ptr<const AnalysisResult> WaitFor(uint64_t revision)
    {
        std::shared_ptr<const AnalysisResult> result;
        WaitUntil([&] {
            if (std::shared_ptr<const AnalysisResult> next = analysis.Take())
                result = next;
            return result && result->revision == revision;
        });
        return result;
    }

    std::atomic<int> calls{0};
    Analysis analysis;
    lint::CheckOptions options;
};

TEST_F(AnalysisTest, GivesFindingsAndTheTimelineOfAText)
{
    analysis.Request(std::string(clouds) + lost, 7, "night.txt", options);
    const auto result = WaitFor(7);
    ASSERT_TRUE(result);
    ASSERT_EQ(1, result->report.Count(lint::Error));
    EXPECT_EQ("message-outside", result->report.findings[0].code);
    EXPECT_EQ("night.txt", result->report.findings[0].file);
    EXPECT_EQ("night.txt", result->model.title);
    ASSERT_EQ(1u, result->model.entries.size());
    EXPECT_EQ("FX_Clouds", result->model.entries[0].effect);
    ASSERT_EQ(1u, result->model.remarks.size());
    EXPECT_EQ(12, result->model.remarks[0].start);
    EXPECT_GE(calls, 1);
}

TEST_F(AnalysisTest, GivesEachResultOnce)
{
    analysis.Request(clouds, 1, "a", options);
    ASSERT_TRUE(WaitFor(1));
    EXPECT_EQ(nullptr, analysis.Take());
    EXPECT_FALSE(analysis.IsBusy());
}

TEST_F(AnalysisTest, EndsWithTheNewestOfManyTexts)
{
    for (uint64_t i = 1; i <= 200; i++)
        analysis.Request(clouds + std::string(size_t(i), '\n'), i, "a", options);
    EXPECT_TRUE(WaitFor(200));
    EXPECT_EQ(nullptr, analysis.Take());
}

TEST_F(AnalysisTest, AddsTheWaveformWhenTheMusicIsDecoded)
{
    options.checkFiles = true;
    analysis.Request("[MUSIC]\nFileName=moonwaltz.ogg;\n" + std::string(clouds), 1, "a", options);
    std::shared_ptr<const AnalysisResult> result;
    ASSERT_TRUE(WaitUntil([&] {
        if (std::shared_ptr<const AnalysisResult> next = analysis.Take())
            result = next;
        return result && result->model.music.plays;
    }));
    EXPECT_EQ(1u, result->revision);
    EXPECT_EQ("moonwaltz.ogg", result->model.music.file);
    EXPECT_GT(result->model.music.wave.Length(), 300);
    // The next text has it at once.
    analysis.Request("[MUSIC]\nFileName=moonwaltz.ogg;\n", 2, "a", options);
    ASSERT_TRUE(WaitFor(2));
}

TEST_F(AnalysisTest, SaysWhenTheMusicIsMissingOrGone)
{
    analysis.Request("[MUSIC]\nFileName=nowhere.ogg;\n" + std::string(clouds), 1, "a", options);
    const auto result = WaitFor(1);
    ASSERT_TRUE(result);
    EXPECT_EQ("nowhere.ogg", result->model.music.file);
    EXPECT_FALSE(result->model.music.plays);
    analysis.Request(clouds, 2, "a", options);
    const auto without = WaitFor(2);
    ASSERT_TRUE(without);
    EXPECT_EQ("", without->model.music.file);
}

TEST_F(AnalysisTest, SaysWhyATextCantBeRead)
{
    analysis.Request(std::string((16 << 20) + 1, 'x'), 1, "a", options);
    const auto result = WaitFor(1);
    ASSERT_TRUE(result);
    EXPECT_FALSE(result->report.readable);
    EXPECT_NE("", result->report.reason);
}

TEST(AnalysisEnd, ComesWhileATextIsLookedAtAndMusicIsDecoded)
{
    lint::CheckOptions options;
    options.data = SOURCE_DIR "/Data";
    for (int i = 0; i < 5; i++) {
        std::atomic<bool> ended = false;
        auto analysis =
            std::make_unique<Analysis>([&] { EXPECT_FALSE(ended) << "a thread is still at work"; });
        analysis->Request("[MUSIC]\nFileName=moonwaltz.ogg;\n" + std::string(clouds), 1, "a", options);
        if (i > 2)
            WaitUntil([&] { return analysis->Take() != nullptr; });
        analysis.reset();
        ended = true;
    }
}
