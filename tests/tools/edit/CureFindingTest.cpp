// SPDX-License-Identifier: MIT
// The cures that the linter knows, applied by the document: the finding goes, and nothing else changes.
#include "tools/edit/Document.h"

#include "tests/Folders.h"
#include "tests/support/PlayedScript.h"
#include "tests/support/RandomScript.h"
#include "tests/support/ReadFile.h"
#include "tools/edit/ValueText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include <unistd.h>

namespace fs = std::filesystem;

class Cures : public testing::Test
{
protected:
    Cures() : path(testing::TempDir() + "marlinex-cures-" + std::to_string(getpid()))
    {
        options.checkFiles = false;
    }
    ~Cures() override { unlink(path.c_str()); }

    void Open(const std::string& text)
    {
        std::ofstream(path, std::ios::binary) << text;
        std::string reason;
        ASSERT_TRUE(document.Open(path, &reason)) << reason;
    }

    std::vector<lint::Finding> Findings(const std::string& code = "") const
    {
        std::vector<lint::Finding> found;
        for (const lint::Finding& finding : lint::CheckText(document.Text(), "", options).findings)
            if (code.empty() || finding.code == code)
                found.push_back(finding);
        return found;
    }

    // The first finding of this code is cured, which makes this of the script.
    void ExpectCured(const std::string& code, const std::string& before, const std::string& after)
    {
        SCOPED_TRACE(code);
        Open(before);
        const std::vector<lint::Finding> found = Findings(code);
        ASSERT_FALSE(found.empty());
        ASSERT_TRUE(edit::Document::CanCure(found[0]));
        EXPECT_TRUE(document.ApplyCure(found[0], options)) << document.LastRefusal();
        EXPECT_EQ(after, document.Text());
        EXPECT_TRUE(document.Undo());
        EXPECT_EQ(before, document.Text());
    }
    void ExpectNoCure(const std::string& code, const std::string& text)
    {
        SCOPED_TRACE(code);
        Open(text);
        const std::vector<lint::Finding> found = Findings(code);
        ASSERT_FALSE(found.empty());
        EXPECT_FALSE(edit::Document::CanCure(found[0]));
        EXPECT_FALSE(document.ApplyCure(found[0], options));
        EXPECT_EQ("Only a person can tell what is meant here.", document.LastRefusal());
        EXPECT_EQ(text, document.Text());
    }

    const std::string path;
    lint::CheckOptions options;
    edit::Document document;
};

static std::string Entry(const std::string& rest)
{
    return "[EFFECT]\nEffectName=WhiteFlashOverlay;\nStartTime=0;\nStopTime=9000;\n" + rest;
}

static std::string Flash(const std::string& rest)
{
    return Entry("LayerID=9;\n\n[MESSAGE]\nMessageText=flash;\nTargetEffect=WhiteFlashOverlay;\n" + rest);
}

TEST_F(Cures, MendTheEndsOfValues)
{
    ExpectCured("lost-character", Flash("ActivationTime=5;\nParameter=2.5 ; # quick #\n"),
                Flash("ActivationTime=5;\nParameter=2.50 ; # quick #\n"));
    ExpectCured("lost-character", Flash("ActivationTime=5;\nParameter=12;\n"),
                Flash("ActivationTime=5;\nParameter=12.00;\n"));
    ExpectCured("unfinished-entry", Entry("LayerID=9 # on top #\n"), Entry("LayerID=9; # on top #\n"));
    ExpectCured("missing-semicolon", Flash("ActivationTime=5\nParameter=2.00;\n"),
                Flash("ActivationTime=5;\nParameter=2.00;\n"));
    ExpectCured("cut-number", Flash("ActivationTime=5ms,6;\n"), Flash("ActivationTime=5,6;\n"));
    ExpectCured("cut-number", Flash("ActivationTime=5;\nParameter=2.5f;\n"),
                Flash("ActivationTime=5;\nParameter=2.50;\n"));
}

TEST_F(Cures, MendLists)
{
    ExpectCured("empty-item", Flash("ActivationTime=5,,6;\n"), Flash("ActivationTime=5,6;\n"));
    ExpectCured("empty-item", Flash("ActivationTime= ,5;\n"), Flash("ActivationTime= 5;\n"));
    ExpectNoCure("empty-item", Flash("ActivationTime=,;\n"));
    ExpectNoCure("empty-item", Flash("ActivationTime=5;\nParameter=1.00,,2.00;\n"));
    ExpectCured("unused-parameter", Flash("ActivationTime=5;\nParameter=2.5,7.00,8;\n"),
                Flash("ActivationTime=5;\nParameter=2.50;\n"));
    ExpectCured("unused-parameter",
                "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=9000;\nLayerID=1;\n[MESSAGE]\n"
                "MessageText=hand;\nParameter=2.00;\nActivationTime=5;\nTargetEffect=FX_Clouds;\n",
                "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=9000;\nLayerID=1;\n[MESSAGE]\n"
                "MessageText=hand;\nActivationTime=5;\nTargetEffect=FX_Clouds;\n");
    const std::string scheme = "[COLORSCHEME]\nSupportColor=1,2,3;\nFlowColor=1,2,3;\n";
    ExpectCured("colour-count", scheme + "GlobalColor=7;\n", scheme + "GlobalColor=7,0,0;\n");
    ExpectCured("colour-count", scheme + "GlobalColor=7,8;\n", scheme + "GlobalColor=7,8,0;\n");
    ExpectCured("colour-count", scheme + "GlobalColor=7,8,9,10,11;\n", scheme + "GlobalColor=7,8,9;\n");
}

TEST_F(Cures, MendKeys)
{
    ExpectCured("unknown-key", Entry("LayerId=9;\n"), Entry("LayerID=9;\n"));
    ExpectNoCure("unknown-key", Entry("LayerID=9;\nLayerId=7;\n"));
    ExpectNoCure("unknown-key", Entry("LayerID=9;\nNonsense=7;\n"));
    ExpectCured("repeated-key", Entry("LayerID=9;\nLayerID=7;\n# end #\n"), Entry("LayerID=9;\n# end #\n"));
    ExpectCured("repeated-key", Entry("LayerID=9; LayerID=7; # end #\n"), Entry("LayerID=9;  # end #\n"));
    ExpectCured("joined-key", Entry("Layer=ID=9;\n"), Entry("LayerID=9;\n"));
    ExpectCured("extra-equals", Entry("LayerID==9;\n"), Entry("LayerID=9;\n"));
    ExpectCured("blank-in-value", "[MUSIC]\nFileName=my slow\ttune.ogg;\n",
                "[MUSIC]\nFileName=myslowtune.ogg;\n");
    ExpectNoCure("missing-key", Entry(""));
    ExpectNoCure("negative-number", Entry("LayerID=-1;\n"));
    ExpectNoCure("not-a-number", Entry("LayerID=top;\n"));
}

TEST_F(Cures, MendNames)
{
    ExpectCured("unknown-effect", "[EFFECT]\nEffectName=FX_Cloud;\nStartTime=0;\nStopTime=9;\nLayerID=1;\n",
                "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=9;\nLayerID=1;\n");
    ExpectNoCure("unknown-effect", "[EFFECT]\nEffectName=Zebra;\nStartTime=0;\nStopTime=9;\nLayerID=1;\n");
    ExpectCured("unknown-message",
                Entry("LayerID=9;\n[MESSAGE]\nMessageText=Flash;\nActivationTime=5;\nTargetEffect="
                      "WhiteFlashOverlay;\n"),
                Entry("LayerID=9;\n[MESSAGE]\nMessageText=flash;\nActivationTime=5;\nTargetEffect="
                      "WhiteFlashOverlay;\n"));
}

TEST_F(Cures, MendHeadersAndComments)
{
    ExpectCured("odd-header", "[[MUSIC]\nFileName=a.ogg;\n", "[MUSIC]\nFileName=a.ogg;\n");
    ExpectCured("unknown-block", "[music]\nFileName=a.ogg;\n", "[MUSIC]\nFileName=a.ogg;\n");
    ExpectNoCure("unknown-block", "[ZEBRA]\nFileName=a.ogg;\n");
    ExpectCured("junk", "My show, 2026\n[MUSIC]\nFileName=a.ogg;\n",
                "#My show, 2026#\n[MUSIC]\nFileName=a.ogg;\n");
    ExpectNoCure("junk", "MUSIC]\nFileName=a.ogg;\n[MUSIC]\nFileName=b.ogg;\n");
    ExpectCured("replaced-block", "[MUSIC]\nFileName=a.ogg;\n\n# two #\n\n[MUSIC]\nFileName=b.ogg;\n",
                "# two #\n\n[MUSIC]\nFileName=b.ogg;\n");
    ExpectCured("open-comment", "[MUSIC]\nFileName=a.ogg;\n# the end\n",
                "[MUSIC]\nFileName=a.ogg;\n# the end#\n");
    ExpectCured("open-comment", "[MUSIC]\nFileName=a.ogg;\n#\n", "[MUSIC]\nFileName=a.ogg;\n");
    ExpectNoCure("open-comment", "[MUSIC]\nFileName=a.ogg;\n# the end\n[MUSIC]\nFileName=b.ogg;\n");
    ExpectNoCure("open-comment", "# a [MUSIC]\nFileName=a.ogg;# \n# the end\n");
}

static std::string Scene(const std::string& name, int start, int stop, int layer)
{
    return "[EFFECT]\nEffectName=" + name + ";\nStartTime=" + std::to_string(start) +
           ";\nStopTime=" + std::to_string(stop) + ";\nLayerID=" + std::to_string(layer) + ";\n";
}

TEST_F(Cures, KeepEntriesOutOfEachOther)
{
    ExpectCured("overlap", Scene("FX_Clouds", 0, 1000, 1) + Scene("FX_Clouds", 900, 2000, 1),
                Scene("FX_Clouds", 0, 900, 1) + Scene("FX_Clouds", 900, 2000, 1));
    ExpectCured("overlap", Scene("FX_Clouds", 900, 2000, 1) + Scene("FX_Clouds", 0, 1000, 2),
                Scene("FX_Clouds", 900, 2000, 1) + Scene("FX_Clouds", 0, 900, 2));
    ExpectCured("overlap", Scene("FX_Clouds", 0, 2000, 1) + "\n" + Scene("FX_Clouds", 500, 1000, 1),
                Scene("FX_Clouds", 0, 2000, 1));
    ExpectCured("overlap", Scene("FX_Clouds", 500, 1000, 1) + Scene("FX_Clouds", 0, 2000, 1),
                Scene("FX_Clouds", 0, 2000, 1));
    ExpectNoCure("overlap", Scene("FX_Clouds", 0, 2000, 1) + Scene("FX_Clouds", 500, 1000, 2));
    ExpectCured("same-layer", Scene("FX_Clouds", 0, 2000, 1) + Scene("FX_Path", 500, 3000, 1),
                Scene("FX_Clouds", 0, 2000, 1) + Scene("FX_Path", 500, 3000, 2));
    const std::string three = Scene("FX_Towers", 1000, 2500, 2) + Scene("FX_Clouds", 0, 2000, 1);
    ExpectCured("same-layer", three + Scene("FX_Path", 500, 3000, 1), three + Scene("FX_Path", 500, 3000, 0));
    const std::string four = Scene("FX_Towers", 1000, 2500, 0) + three;
    ExpectNoCure("same-layer", Scene("FX_Credits", 1000, 2500, 0) + three + Scene("FX_Path", 500, 3000, 1));
}

TEST_F(Cures, FindTheMusicThatIsWrittenOtherwise)
{
    const std::string data = path + "-data";
    fs::create_directories(data);
    fs::copy_file(fs::path(SOURCE_DIR) / "tests/fuzz/corpus/Tune/mono.wav", data + "/Mono.wav",
                  fs::copy_options::overwrite_existing);
    options.data = data;
    options.checkFiles = true;
    ExpectCured("missing-music", "[MUSIC]\nFileName=mono.wav;\n", "[MUSIC]\nFileName=Mono.wav;\n");
    ExpectNoCure("missing-music", "[MUSIC]\nFileName=stereo.wav;\n");
    fs::remove_all(data);
}

TEST_F(Cures, AreRefusedWhenTheFindingIsGoneAndFoundAgainWhenItHasMoved)
{
    Open(Flash("ActivationTime=5;\nParameter=2.5;\n"));
    const lint::Finding old = Findings("lost-character")[0];
    ASSERT_TRUE(document.SetMusic("a.ogg")) << "lines above it";
    EXPECT_TRUE(document.ApplyCure(old, options));
    EXPECT_NE(std::string::npos, document.Text().find("Parameter=2.50;"));
    const std::string now = document.Text();
    EXPECT_FALSE(document.ApplyCure(old, options));
    EXPECT_EQ("The script has changed: this is no longer in it.", document.LastRefusal());
    EXPECT_EQ(now, document.Text());
}

// Codes whose cure makes explicit what the show does already.
static const std::set<std::string> silent = {"cut-number",     "colour-count",   "repeated-key",
                                             "joined-key",     "extra-equals",   "odd-header",
                                             "blank-in-value", "replaced-block", "unused-parameter"};

// The corpus of the linter has a script for each code.
TEST_F(Cures, OfTheCorpusLeaveOnlyFindingsThatHaveNone)
{
    int cured = 0;
    std::set<std::string> codes;
    for (const auto& file : fs::directory_iterator(fs::path(SOURCE_DIR) / "tests/tools/lint/corpus")) {
        if (file.path().extension() != ".txt" || fs::file_size(file.path()) > 20000)
            continue;
        SCOPED_TRACE(file.path().filename().string());
        const std::string text = ReadFile(file.path());
        Open(text);
        bool any = true;
        for (int round = 0; any && round < 60; round++) {
            any = false;
            for (const lint::Finding& finding : Findings()) {
                if (!edit::Document::CanCure(finding))
                    continue;
                const PlayedScript before = Play(document.Text());
                const std::string was = document.Text();
                ASSERT_TRUE(document.ApplyCure(finding, options)) << finding.code << document.LastRefusal();
                if (silent.count(finding.code) && finding.code != "unused-parameter") {
                    EXPECT_EQ(Told(before), Told(Play(document.Text()))) << finding.code;
                }
                codes.insert(finding.code);
                cured++;
                any = true;
                break;
            }
        }
        EXPECT_FALSE(any) << "no end of it";
        while (document.Undo()) {
        }
        EXPECT_EQ(text, document.Text());
    }
    EXPECT_GT(cured, 30);
    EXPECT_GT(codes.size(), 17u);
}

TEST_F(Cures, OfRandomScriptsTakeTheirFindingAway)
{
    const std::vector<std::string> effects = {"FX_Clouds", "WhiteFlashOverlay", "FX_Path"};
    const std::vector<std::string> messages = {"hand", "flash", "tree1"};
    int cured = 0, refused = 0;
    for (unsigned seed = 0; seed < 400; seed++) {
        RandomScript source(seed, effects, messages);
        const std::string text = seed % 3 ? source.Write(8, true) : source.Mutate(source.Write(8, true));
        SCOPED_TRACE(text);
        Open(text);
        for (const lint::Finding& finding : Findings()) {
            if (!edit::Document::CanCure(finding))
                continue;
            const std::string was = document.Text();
            if (document.ApplyCure(finding, options)) {
                cured++;
                const auto isSame = [&](const lint::Finding& other) {
                    return other.code == finding.code && other.text == finding.text &&
                           other.line == finding.line && other.column == finding.column;
                };
                const std::vector<lint::Finding> now = Findings(finding.code);
                // What stands behind it may have come to its place.
                EXPECT_TRUE(std::none_of(now.begin(), now.end(), isSame) ||
                            was.size() > document.Text().size())
                    << finding.code;
                EXPECT_TRUE(document.Undo());
            } else {
                refused++;
            }
            ASSERT_EQ(was, document.Text());
        }
    }
    EXPECT_GT(cured, 500);
    EXPECT_LT(refused * 20, cured);
}

// ---- The numbers that lose nothing

TEST(ValueText, WithoutLossIsWhatTheReaderReadsWhole)
{
    const struct {
        const char *written, *whole;
    } rows[] = {{"2.00", "2.00"}, {"2", "2.00"},     {"12", "12.00"},         {"2.5", "2.50"},  {"0", "0"},
                {"0.0", "0.0"},   {"-1.5", "-1.50"}, {"1.5,2.5", "1.5,2.50"}, {"1.5,", "1.5,"}, {"7.", "7."}};
    for (const auto& row : rows)
        EXPECT_EQ(row.whole, edit::WithoutLoss(row.written));
}

TEST(ValueText, AnyNumberSurvivesTheReader)
{
    std::mt19937 random(5);
    for (int i = 0; i < 2000; i++) {
        const double number = (int(random() % 2000001) - 1000000) / std::pow(10.0, random() % 7);
        char text[64];
        snprintf(text, sizeof text, "%.*f", int(random() % 7), number);
        if (strtof(text, nullptr) == 0)
            continue; // -0 is written and read as 0
        std::string value, reason;
        ASSERT_TRUE(edit::MakeValue("Parameter", text, &value, &reason)) << text << reason;
        const std::vector<std::string> played =
            Play("[MESSAGE]MessageText=flash;TargetEffect=WhiteFlashOverlay;ActivationTime=0;Parameter=" +
                 value + ";")
                .messages;
        char wanted[128];
        snprintf(wanted, sizeof wanted, "WhiteFlashOverlay flash at 0 (%.9g)", double(strtof(text, nullptr)));
        ASSERT_EQ(std::vector<std::string>({wanted}), played) << value;
    }
}
