// SPDX-License-Identifier: MIT
// For tests of edits on a script that one can see as a whole.
#pragma once

#include "tools/edit/Document.h"

#include <gtest/gtest.h>

#include <fstream>

#include <unistd.h>

using edit::ItemId;

inline const char* const night = "# A night #\n"
                                 "\n"
                                 "[MUSIC]\n"
                                 "FileName=waltz.ogg;\n"
                                 "\n"
                                 "[EFFECT]\n"
                                 "EffectName=WhiteFlashOverlay;\n"
                                 "StartTime=0;\n"
                                 "StopTime=20000;\n"
                                 "LayerID=9;\n"
                                 "\n"
                                 "# The clouds #\n"
                                 "[EFFECT]\n"
                                 "EffectName=FX_Clouds;  # a comment #\n"
                                 "StartTime = 1000 ;\n"
                                 "StopTime=11000;\n"
                                 "LayerID=1;\n"
                                 "\n"
                                 "[MESSAGE]\n"
                                 "MessageText=hand;\n"
                                 "ActivationTime=2000, 4000, 6000;\n"
                                 "TargetEffect=FX_Clouds;\n"
                                 "\n"
                                 "[MESSAGE]\n"
                                 "MessageText=flash;\n"
                                 "ActivationTime=3000;\n"
                                 "TargetEffect=WhiteFlashOverlay;\n"
                                 "Parameter=2.00;\n"
                                 "Steps=4;\n"
                                 "TimeDelta=500;\n";

// The blocks of the night.
enum { Music, White, Clouds, Hand, Flash };

// Puts `with` in the place of `what`, which must stand in the text once.
inline std::string Exchanged(std::string text, const std::string& what, const std::string& with)
{
    const size_t at = text.find(what);
    EXPECT_NE(std::string::npos, at) << what;
    EXPECT_EQ(std::string::npos, text.find(what, at + 1)) << what << " stands there twice";
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

// A document that reads a file of the test's own.
class DocumentFixture : public testing::Test
{
protected:
    DocumentFixture() : path(testing::TempDir() + "marlinex-document-" + std::to_string(getpid())) {}
    ~DocumentFixture() override { unlink(path.c_str()); }

    void Open(const std::string& text)
    {
        std::ofstream(path, std::ios::binary) << text;
        std::string reason;
        ASSERT_TRUE(document.Open(path, &reason)) << reason;
        ASSERT_EQ(text, document.Text());
    }

    // The text is now this, and undo leads back to what it was.
    void ExpectNow(const std::string& before, const std::string& now)
    {
        EXPECT_EQ(now, document.Text());
        EXPECT_EQ("", document.LastRefusal());
        EXPECT_TRUE(document.Undo());
        EXPECT_EQ(before, document.Text());
        EXPECT_TRUE(document.Redo());
        EXPECT_EQ(now, document.Text());
    }

    void ExpectRefusal(const std::string& sentence)
    {
        EXPECT_EQ(sentence, document.LastRefusal());
        EXPECT_FALSE(document.CanUndo());
    }

    const std::string path;
    edit::Document document;
};
