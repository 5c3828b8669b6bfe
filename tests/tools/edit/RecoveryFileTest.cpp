// SPDX-License-Identifier: MIT
#include "tools/edit/RecoveryFile.h"
#include "tools/edit/Document.h"
#include "tools/edit/Session.h"

#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

static const char* const clouds = "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=10;\nLayerID=1;\n";

class Recovering : public testing::Test
{
protected:
    Recovering()
        : folder(testing::TempDir() + "marlinex-recovery-" + std::to_string(getpid()) + "/"),
          path(folder + "script.txt")
    {
        fs::remove_all(folder);
        fs::create_directories(folder);
        setenv("XDG_STATE_HOME", (folder + "state").c_str(), 1);
        std::ofstream(path) << clouds;
    }
    ~Recovering() override { fs::remove_all(folder); }

    // A process that edits the script and is killed. With a save as its last deed if `saves`.
    void CrashWith(uint32_t start, bool saves = false)
    {
        const pid_t child = fork();
        if (child == 0) {
            edit::Document document;
            if (!document.Open(path, &reason) || !document.SetTime({0, -1}, start) ||
                !document.WriteRecovery() || (saves && !document.Save(&reason)))
                _exit(1);
            kill(getpid(), SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
    }
    static uint32_t StartIn(const std::string& text)
    {
        const edit::Outline outline = edit::ReadOutline(text);
        return outline.blocks.empty() ? 0 : outline.blocks[0].start;
    }
    size_t FilesInState() const
    {
        const fs::path state = folder + "state/marlinex";
        return fs::exists(state)
                   ? size_t(std::distance(fs::directory_iterator(state), fs::directory_iterator()))
                   : 0;
    }

    const std::string folder, path;
    std::string reason;
    edit::Recovery found;
};

TEST_F(Recovering, LiesWhereTheDesktopKeepsState)
{
    EXPECT_EQ(folder + "state/marlinex", edit::RecoveryFile::Folder());
    setenv("XDG_STATE_HOME", "relative", 1);
    setenv("HOME", "/home/somebody", 1);
    EXPECT_EQ("/home/somebody/.local/state/marlinex", edit::RecoveryFile::Folder());
}

TEST_F(Recovering, FindsTheWorkOfAProcessThatWasKilled)
{
    EXPECT_FALSE(edit::Document::FindRecovery(path, &found));
    CrashWith(77);
    EXPECT_EQ(clouds, ReadFile(path));
    ASSERT_TRUE(edit::Document::FindRecovery(path, &found));
    EXPECT_EQ(77u, StartIn(found.text));
    EXPECT_EQ(19u, found.when.size());
    EXPECT_EQ("20", found.when.substr(0, 2));
    EXPECT_FALSE(edit::Document::FindRecovery(folder + "other.txt", &found)) << "of another script";
    EXPECT_FALSE(edit::Document::FindRecovery("", &found));
    const std::string roundabout =
        folder + "../" + fs::path(folder).parent_path().filename().string() + "/script.txt";
    EXPECT_TRUE(edit::Document::FindRecovery(roundabout, &found)) << "the same script";
}

TEST_F(Recovering, TakesTheWorkOverAsOneStepAndKeepsItSafeMeanwhile)
{
    CrashWith(77);
    ASSERT_TRUE(edit::Document::FindRecovery(path, &found));
    {
        edit::Document document;
        ASSERT_TRUE(document.Open(path, &reason));
        EXPECT_TRUE(document.Recover(found));
        EXPECT_EQ(77u, StartIn(document.Text()));
        EXPECT_TRUE(document.IsModified());
        EXPECT_FALSE(fs::exists(found.file)) << "it is in the document's own file now";
        edit::Recovery other;
        EXPECT_FALSE(edit::Document::FindRecovery(path, &other)) << "whose process lives";
        EXPECT_TRUE(document.Undo());
        EXPECT_EQ(clouds, document.Text());
        EXPECT_TRUE(document.Redo());
        EXPECT_TRUE(document.Save(&reason)) << reason;
        EXPECT_EQ(77u, StartIn(ReadFile(path)));
    }
    EXPECT_EQ(0u, FilesInState()) << "nothing is left behind";
}

TEST_F(Recovering, OffersTheNewestAndThenTheOthers)
{
    CrashWith(5);
    CrashWith(6);
    CrashWith(7);
    const struct timeval past[] = {{1000000, 0}, {1000000, 0}};
    ASSERT_TRUE(edit::Document::FindRecovery(path, &found));
    const uint32_t first = StartIn(found.text);
    utimes(found.file.c_str(), past); // it is the oldest now
    std::set<uint32_t> all;
    while (edit::Document::FindRecovery(path, &found)) {
        all.insert(StartIn(found.text));
        if (all.size() < 3) {
            EXPECT_NE(first, StartIn(found.text));
        }
        edit::Document::DiscardRecovery(found);
    }
    EXPECT_EQ(std::set<uint32_t>({5, 6, 7}), all);
}

TEST_F(Recovering, DoesNotOfferWhatWasSaved)
{
    CrashWith(77, true);
    EXPECT_EQ(77u, StartIn(ReadFile(path)));
    EXPECT_FALSE(edit::Document::FindRecovery(path, &found));
    CrashWith(78);
    ASSERT_TRUE(edit::Document::FindRecovery(path, &found));
    std::ofstream(path) << found.text; // the same work by another road
    EXPECT_FALSE(edit::Document::FindRecovery(path, &found));
}

TEST_F(Recovering, OffersTheWorkOnAScriptThatIsGone)
{
    CrashWith(77);
    fs::remove(path);
    EXPECT_TRUE(edit::Document::FindRecovery(path, &found));
}

TEST_F(Recovering, PassesOverWhatIsNoRecoveryFile)
{
    CrashWith(77);
    ASSERT_TRUE(edit::Document::FindRecovery(path, &found));
    const std::string whole = ReadFile(found.file);
    for (const std::string& broken :
         {std::string(), std::string("nonsense"), whole.substr(0, whole.size() - 1), whole + "x",
          std::string("marlinex-recovery 1\n99999999999999999999 3\n"),
          std::string("marlinex-recovery 1\n1")}) {
        std::ofstream(found.file, std::ios::binary) << broken;
        edit::Recovery other;
        EXPECT_FALSE(edit::Document::FindRecovery(path, &other)) << broken.substr(0, 40);
    }
}

TEST_F(Recovering, WritesOnceASecondWhileThereIsUnsavedWork)
{
    edit::Document document;
    ASSERT_TRUE(document.Open(path, &reason));
    document.Tick(10);
    EXPECT_EQ(0u, FilesInState()) << "nothing is unsaved";
    document.Move({{0, -1}}, 1, 0);
    document.Tick(10.5);
    EXPECT_EQ(2u, FilesInState()) << "the text and its lock";
    std::string file;
    for (const auto& entry : fs::directory_iterator(folder + "state/marlinex"))
        if (entry.path().extension() == ".script")
            file = entry.path();
    EXPECT_NE(std::string::npos, ReadFile(file).find(document.Text()));
    document.Move({{0, -1}}, 1, 0);
    document.Tick(11.4);
    EXPECT_EQ(std::string::npos, ReadFile(file).find(document.Text())) << "not a second ago";
    document.Tick(11.5);
    EXPECT_NE(std::string::npos, ReadFile(file).find(document.Text()));
    fs::remove(file);
    document.Tick(20);
    EXPECT_FALSE(fs::exists(file)) << "nothing is new";
    document.Move({{0, -1}}, 1, 0);
    document.Tick(21);
    EXPECT_TRUE(fs::exists(file));
    document.Undo();
    document.Undo();
    document.Undo();
    document.Tick(23);
    EXPECT_FALSE(fs::exists(file)) << "nothing is unsaved any more";
    document.Redo();
    document.Tick(25);
    EXPECT_TRUE(fs::exists(file));
    EXPECT_TRUE(document.Save(&reason)) << reason;
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(Recovering, TellsWhereItCantWrite)
{
    std::ofstream(folder + "state") << "a file where the folder should be";
    edit::Document document;
    ASSERT_TRUE(document.Open(path, &reason));
    EXPECT_EQ("", document.RecoveryFailure());
    document.Move({{0, -1}}, 1, 0);
    document.Tick(1);
    EXPECT_NE(std::string::npos, document.RecoveryFailure().find("state/marlinex: Not a directory"));
    EXPECT_FALSE(document.WriteRecovery());
    fs::remove(folder + "state");
    document.Tick(3);
    EXPECT_EQ("", document.RecoveryFailure());
}

TEST_F(Recovering, TheUserIsToldOnceWhereItCantWrite)
{
    std::ofstream(folder + "state") << "a file where the folder should be";
    edit::Session session({}, [] {});
    ASSERT_TRUE(session.Open(path, &reason));
    session.state.notice.clear();
    session.GetDocument().Move({{0, -1}}, 1, 0);
    session.Tick(1);
    session.FinishDisks();
    EXPECT_TRUE(session.Tick(1.5)) << "there is something to draw";
    EXPECT_EQ(0u, session.state.notice.find("Unsaved work is not safe from a crash: "));
    EXPECT_NE(std::string::npos, session.state.notice.find("state/marlinex: Not a directory"));
    session.state.notice.clear();
    session.GetDocument().Move({{0, -1}}, 1, 0);
    for (const double seconds : {4, 5, 6}) {
        session.Tick(seconds);
        session.FinishDisks();
    }
    EXPECT_EQ("", session.state.notice);
}

TEST_F(Recovering, TwoDocumentsOfOneScriptKeepApart)
{
    edit::RecoveryFile one, two;
    ASSERT_TRUE(one.Open(path, &reason));
    ASSERT_TRUE(two.Open(path, &reason));
    EXPECT_TRUE(one.Write("1", &reason));
    EXPECT_TRUE(two.Write("2", &reason));
    EXPECT_EQ(4u, FilesInState());
    one.Clear();
    EXPECT_EQ(3u, FilesInState());
    EXPECT_FALSE(edit::RecoveryFile::Find(path, nullptr, &found)) << "both live";
    two.Remove();
    one.Remove();
    EXPECT_EQ(0u, FilesInState());
    EXPECT_FALSE(one.Write("1", &reason));
}
