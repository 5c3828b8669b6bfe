// SPDX-License-Identifier: MIT
// A document whose disks take their time: what is begun goes on while the script is edited. A gate at the head of a
// disk's thread stands for its slowness.
#include "tools/edit/Document.h"

#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <future>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

static const char* const clouds = "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=10;\nLayerID=1;\n";

class SlowDisk : public testing::Test
{
protected:
    SlowDisk()
        : folder(testing::TempDir() + "marlinex-slow-" + std::to_string(getpid()) + "/"),
          path(folder + "script.txt"), document(std::make_unique<edit::Document>(&disks))
    {
        fs::remove_all(folder);
        fs::create_directories(folder);
        setenv("XDG_STATE_HOME", (folder + "state").c_str(), 1);
        Write(path, clouds);
        EXPECT_TRUE(document->Open(path, &reason)) << reason;
        disks.recovery.Finish();
    }
    ~SlowDisk() override { fs::remove_all(folder); }

    static void Write(const std::string& name, const std::string& text)
    {
        std::ofstream(name, std::ios::binary) << text;
    }
    void Change(int64_t milliseconds = 5) { ASSERT_TRUE(document->Move({{0, -1}}, milliseconds, 0)); }

    // The disk does nothing more until the gate is opened.
    static void Stop(edit::DiskThread* disk, std::promise<void>* gate)
    {
        disk->Do(nullptr, [gate] { gate->get_future().wait(); }, {});
    }
    void BeginSave()
    {
        document->BeginSave(document->Path(),
                            [this](const edit::SaveOutcome& done) { outcomes.push_back(done); });
    }
    std::string Recovered()
    {
        edit::Recovery found;
        std::string text;
        for (const auto& entry : fs::recursive_directory_iterator(folder + "state"))
            if (entry.path().extension() == ".script")
                text += ReadFile(entry.path());
        return text;
    }

    const std::string folder, path;
    std::string reason;
    edit::DiskThreads disks;
    std::unique_ptr<edit::Document> document;
    std::vector<edit::SaveOutcome> outcomes;
};

TEST_F(SlowDisk, SavesWhatStoodThereWhenTheSaveBeganWhileEditingGoesOn)
{
    std::promise<void> gate;
    Change();
    const std::string saved = document->Text();
    Stop(&disks.script, &gate);
    BeginSave();
    EXPECT_TRUE(document->IsSaving());
    Change();
    disks.Poll();
    EXPECT_EQ(clouds, ReadFile(path));
    EXPECT_TRUE(outcomes.empty());
    gate.set_value();
    disks.script.Finish();
    ASSERT_EQ(1u, outcomes.size());
    EXPECT_TRUE(outcomes[0].saved);
    EXPECT_FALSE(document->IsSaving());
    EXPECT_EQ(saved, ReadFile(path));
    EXPECT_TRUE(document->IsModified()) << "by what was edited meanwhile";
    EXPECT_EQ(edit::DiskSame, document->LookAtDisk());
    EXPECT_TRUE(document->Undo());
    EXPECT_FALSE(document->IsModified()) << "undo leads to what was saved";
}

TEST_F(SlowDisk, SavesInTheOrderOfTheCalls)
{
    std::promise<void> gate;
    Stop(&disks.script, &gate);
    for (int i = 0; i < 5; i++) {
        Change();
        BeginSave();
    }
    gate.set_value();
    disks.script.Finish();
    EXPECT_EQ(5u, outcomes.size());
    for (const edit::SaveOutcome& outcome : outcomes)
        EXPECT_TRUE(outcome.saved) << outcome.reason;
    EXPECT_EQ(document->Text(), ReadFile(path));
    EXPECT_FALSE(document->IsModified());
    EXPECT_EQ(edit::DiskSame, document->LookAtDisk()) << "its own saves are no other program's";
}

TEST_F(SlowDisk, TellsWhyASaveFailedAndGoesOn)
{
    Change();
    chmod(path.c_str(), 0444);
    BeginSave();
    disks.script.Finish();
    ASSERT_EQ(1u, outcomes.size());
    EXPECT_FALSE(outcomes[0].saved);
    EXPECT_EQ(path + " is read-only.", outcomes[0].reason);
    EXPECT_TRUE(document->IsModified());
    chmod(path.c_str(), 0644);
    BeginSave();
    disks.script.Finish();
    EXPECT_TRUE(outcomes.back().saved);
    EXPECT_EQ(document->Text(), ReadFile(path));
}

TEST_F(SlowDisk, FindsOutWhenTheSaveBeginsThatAnotherProgramWrote)
{
    std::promise<void> gate;
    Change();
    Stop(&disks.script, &gate);
    BeginSave();
    Write(path, "# theirs #");
    gate.set_value();
    disks.script.Finish();
    ASSERT_EQ(1u, outcomes.size());
    EXPECT_FALSE(outcomes[0].saved);
    EXPECT_EQ(edit::DiskConflict, outcomes[0].disk);
    EXPECT_EQ("# theirs #", ReadFile(path));
    document->KeepMine();
    BeginSave();
    disks.script.Finish();
    EXPECT_TRUE(outcomes.back().saved);
    EXPECT_EQ(document->Text(), ReadFile(path));
}

TEST_F(SlowDisk, AsksAboutAChangedFileIfTheScriptIsEditedWhileItIsRead)
{
    std::promise<void> gate;
    edit::DiskState seen = edit::DiskSame;
    Write(path, "# theirs #");
    Stop(&disks.script, &gate);
    document->BeginLook([&](edit::DiskState state) { seen = state; });
    Change(); // it would have been taken over without a question
    const std::string mine = document->Text();
    gate.set_value();
    disks.script.Finish();
    EXPECT_EQ(edit::DiskConflict, seen);
    EXPECT_EQ(mine, document->Text());
    EXPECT_TRUE(document->TakeDisk(&reason));
    EXPECT_EQ("# theirs #", document->Text());
    EXPECT_EQ(edit::DiskSame, document->LookAtDisk());
    EXPECT_TRUE(document->Undo());
    EXPECT_EQ(mine, document->Text());
}

TEST_F(SlowDisk, ALookThatASaveOvertookSaysNothingAboutTheOldFile)
{
    edit::DiskState seen = edit::DiskGone;
    Change();
    BeginSave();
    document->BeginLook([&](edit::DiskState state) { seen = state; });
    disks.script.Finish();
    EXPECT_TRUE(outcomes[0].saved);
    EXPECT_EQ(edit::DiskSame, seen);
    EXPECT_FALSE(document->IsModified());
}

TEST_F(SlowDisk, RecoveryIsWrittenWhileASaveWaits)
{
    std::promise<void> gate;
    Change();
    Stop(&disks.script, &gate);
    BeginSave();
    document->Tick(1);
    disks.recovery.Finish();
    EXPECT_NE(std::string::npos, Recovered().find(document->Text()));
    Change();
    document->Tick(2);
    disks.recovery.Finish();
    EXPECT_NE(std::string::npos, Recovered().find(document->Text()));
    gate.set_value();
    disks.script.Finish();
    disks.recovery.Finish();
    EXPECT_NE(std::string::npos, Recovered().find(document->Text()))
        << "what was edited meanwhile is not saved";
    document->Undo();
    document->Tick(4);
    disks.recovery.Finish();
    EXPECT_EQ("", Recovered());
}

TEST_F(SlowDisk, RecoveryIsNotGivenASecondTextWhileTheFirstIsBeingWritten)
{
    std::promise<void> gate;
    Change();
    Stop(&disks.recovery, &gate);
    document->Tick(1);
    const std::string first = document->Text();
    Change();
    for (int second = 2; second < 10; second++)
        document->Tick(second);
    gate.set_value();
    disks.recovery.Finish();
    EXPECT_NE(std::string::npos, Recovered().find(first));
    document->Tick(11);
    disks.recovery.Finish();
    EXPECT_NE(std::string::npos, Recovered().find(document->Text()));
}

TEST_F(SlowDisk, ADocumentThatEndsWaitsForNothingAndLeavesNothingBehind)
{
    std::promise<void> scriptGate, recoveryGate;
    Change();
    const std::string text = document->Text();
    Stop(&disks.recovery, &recoveryGate);
    Stop(&disks.script, &scriptGate);
    document->Tick(1);
    BeginSave();
    document.reset(); // would hang here
    scriptGate.set_value();
    recoveryGate.set_value();
    disks.script.Finish();
    disks.recovery.Finish();
    EXPECT_EQ(text, ReadFile(path)) << "what was begun is done";
    EXPECT_TRUE(outcomes.empty());
    EXPECT_EQ("", Recovered());
    EXPECT_TRUE(fs::is_empty(folder + "state/marlinex")) << "the lock as well";
}

TEST_F(SlowDisk, AKillDuringASlowSaveLosesNothing)
{
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) { // threads do not live on in it: it has its own
        edit::DiskThreads own;
        edit::Document work(&own);
        std::promise<void> gate;
        if (!work.Open(path, &reason) || !work.Move({{0, -1}}, 77, 0))
            _exit(1);
        work.Tick(1);
        own.recovery.Finish();
        Stop(&own.script, &gate);
        work.BeginSave(path, [](const edit::SaveOutcome&) {});
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(clouds, ReadFile(path));
    edit::Recovery found;
    ASSERT_TRUE(edit::Document::FindRecovery(path, &found));
    EXPECT_NE(std::string::npos, found.text.find("StartTime=77;"));
}

// The linter is as slow as the gate makes it.
class SlowCure : public SlowDisk
{
protected:
    SlowCure()
    {
        Write(path, std::string(clouds) + "[MUSIC]\nFileName==a.ogg;\n");
        EXPECT_TRUE(document->Open(path, &reason)) << reason;
        options.checkFiles = false;
        for (const lint::Finding& finding : lint::CheckText(document->Text(), "", options).findings)
            if (finding.code == "extra-equals")
                extraEquals = finding;
        Stop(&disks.cures, &gate);
        document->BeginCure(extraEquals, options, [this](bool cured) { told.push_back(cured); });
    }

    lint::CheckOptions options;
    lint::Finding extraEquals;
    std::promise<void> gate;
    std::vector<bool> told;
};

TEST_F(SlowCure, KeepsWhatIsEditedMeanwhile)
{
    Change();
    disks.Poll();
    EXPECT_TRUE(told.empty());
    const std::string edited = document->Text();
    EXPECT_NE(std::string::npos, edited.find("StartTime=5;"));
    EXPECT_NE(std::string::npos, edited.find("FileName==a.ogg;"));
    gate.set_value();
    disks.cures.Finish();
    EXPECT_EQ(std::vector<bool>{true}, told);
    EXPECT_NE(std::string::npos, document->Text().find("StartTime=5;"));
    EXPECT_NE(std::string::npos, document->Text().find("FileName=a.ogg;"));
    EXPECT_EQ("Cure", document->UndoName());
    EXPECT_TRUE(document->Undo());
    EXPECT_EQ(edited, document->Text());
}

TEST_F(SlowCure, IsRefusedWhereTheFindingHasGoneMeanwhile)
{
    ASSERT_TRUE(document->SetMusic(""));
    const std::string edited = document->Text();
    gate.set_value();
    disks.cures.Finish();
    EXPECT_EQ(std::vector<bool>{false}, told);
    EXPECT_EQ("The script has changed: this is no longer in it.", document->LastRefusal());
    EXPECT_EQ(edited, document->Text());
}

TEST_F(SlowCure, OfADocumentThatEndsIsToldNobody)
{
    document.reset();
    gate.set_value();
    disks.cures.Finish();
    EXPECT_TRUE(told.empty());
}
