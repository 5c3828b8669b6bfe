// SPDX-License-Identifier: MIT
// Saving and what other programs do to the file meanwhile. Faults are real ones: a limit of the file's size stands for
// the full disk, a process without root's rights meets modes, a killed process is killed.
#include "tools/edit/Document.h"

#include "tests/support/OddFiles.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace fs = std::filesystem;

static const char* const clouds = "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=10;\nLayerID=1;\n";

static const uid_t nobody = 65534;

class ScriptOnDisk : public testing::Test
{
protected:
    ScriptOnDisk()
        : folder(testing::TempDir() + "marlinex-script-" + std::to_string(getpid()) + "/"),
          path(folder + "script.txt")
    {
        fs::remove_all(folder);
        fs::create_directories(folder);
        setenv("XDG_STATE_HOME", (folder + "state").c_str(), 1);
    }
    ~ScriptOnDisk() override { fs::remove_all(folder); }

    static void Write(const std::string& name, const std::string& text)
    {
        std::ofstream(name, std::ios::binary) << text;
    }
    void Open(const std::string& text = clouds)
    {
        Write(path, text);
        ASSERT_TRUE(document.Open(path, &reason)) << reason;
    }
    void Change(int64_t milliseconds = 5) { ASSERT_TRUE(document.Move({{0, -1}}, milliseconds, 0)); }

    // The names in the folder but for that of the recovery files.
    std::string Names() const
    {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().filename() != "state")
                names.insert(entry.path().filename());
        std::string all;
        for (const std::string& name : names)
            all += name + " ";
        return all;
    }

    // Runs it without the rights of root, in a process of its own whose failures are this test's.
    void WithoutRights(const std::function<void()>& work)
    {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
                _exit(2);
            work();
            _exit(HasFailure() ? 1 : 0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(0, WEXITSTATUS(status));
    }

    const std::string folder, path;
    std::string reason;
    edit::Document document;
};

TEST_F(ScriptOnDisk, IsOpenedWithEveryByteAndSavedWithEveryByte)
{
    const char bytes[] = "\xEF\xBB\xBF# \0 \xFF\r\n#\r\n[MUSIC]\rFileName=a.ogg";
    const std::string text(bytes, sizeof bytes - 1);
    Open(text);
    EXPECT_EQ(text, document.Text());
    EXPECT_EQ(path, document.Path());
    EXPECT_FALSE(document.IsModified());
    ASSERT_TRUE(document.SetMusic("b.ogg"));
    EXPECT_TRUE(document.IsModified());
    EXPECT_TRUE(document.Save(&reason)) << reason;
    EXPECT_FALSE(document.IsModified());
    EXPECT_EQ(document.Text(), ReadFile(path));
    EXPECT_EQ("script.txt ", Names());
    EXPECT_TRUE(document.Undo()) << "goes on across the save";
    EXPECT_TRUE(document.IsModified());
    EXPECT_TRUE(document.Save(&reason));
    EXPECT_EQ(text, ReadFile(path));
    EXPECT_TRUE(document.Redo());
    EXPECT_EQ("b.ogg", document.GetOutline().blocks[0].fileName);
}

TEST_F(ScriptOnDisk, IsNotOpenedIfItIsNoFileThatEnds)
{
    Open();
    for (const OddFile& odd : OddFiles()) {
        const std::string name = folder + "odd";
        odd.make(name);
        reason.clear();
        EXPECT_FALSE(document.Open(name, &reason)) << odd.name;
        EXPECT_FALSE(reason.empty());
        EXPECT_EQ(path, document.Path()) << "as it was";
        EXPECT_EQ(clouds, document.Text());
        remove(name.c_str());
    }
    EXPECT_FALSE(document.Open(folder + "missing", &reason));
    EXPECT_EQ("No such file or directory", reason);
    EXPECT_FALSE(document.Open("", &reason));
    Write(folder + "large", std::string((16 << 20) + 1, ' '));
    EXPECT_FALSE(document.Open(folder + "large", &reason));
    EXPECT_EQ("Larger than any script (16 MiB)", reason);
}

TEST_F(ScriptOnDisk, KeepsModeOwnerAndLink)
{
    fs::create_directory(folder + "deep");
    Write(folder + "deep/real.txt", clouds);
    fs::create_symlink("deep/real.txt", path);
    chmod(path.c_str(), 0640);
    if (geteuid() == 0) {
        ASSERT_EQ(0, chown(path.c_str(), nobody, nobody));
    }
    ASSERT_TRUE(document.Open(path, &reason));
    Change();
    ASSERT_TRUE(document.Save(&reason)) << reason;
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(document.Text(), ReadFile(folder + "deep/real.txt"));
    struct stat there = {};
    stat(path.c_str(), &there);
    EXPECT_EQ(mode_t(0640), there.st_mode & 07777);
    if (geteuid() == 0) {
        EXPECT_EQ(nobody, there.st_uid);
        EXPECT_EQ(nobody, there.st_gid);
    }
    EXPECT_EQ(edit::DiskSame, document.LookAtDisk());
}

TEST_F(ScriptOnDisk, KeepsItsExtendedAttributes)
{
    Open();
    if (setxattr(path.c_str(), "user.origin", "the night", 9, 0) != 0)
        GTEST_SKIP() << "this file system knows no extended attributes: " << strerror(errno);
    ASSERT_EQ(0, setxattr(path.c_str(), "user.empty", "", 0, 0));
    Change();
    ASSERT_TRUE(document.Save(&reason)) << reason;
    char value[64] = {};
    EXPECT_EQ(9, getxattr(path.c_str(), "user.origin", value, sizeof value));
    EXPECT_STREQ("the night", value);
    EXPECT_EQ(0, getxattr(path.c_str(), "user.empty", value, sizeof value));
}

// user::rw-, user:65534:r--, group::r--, mask::rw-, other::r--, as the kernel keeps it.
static const unsigned char accessList[] = {2,    0,    0,    0,    1,    0,    6,    0,    0xff, 0xff, 0xff,
                                           0xff, 2,    0,    4,    0,    0xfe, 0xff, 0,    0,    4,    0,
                                           4,    0,    0xff, 0xff, 0xff, 0xff, 16,   0,    6,    0,    0xff,
                                           0xff, 0xff, 0xff, 32,   0,    4,    0,    0xff, 0xff, 0xff, 0xff};

TEST_F(ScriptOnDisk, KeepsItsAccessControlList)
{
    Open();
    static const char* const name = "system.posix_acl_access";
    if (setxattr(path.c_str(), name, accessList, sizeof accessList, 0) != 0)
        GTEST_SKIP() << "this file system knows no access control lists: " << strerror(errno);
    Change();
    ASSERT_TRUE(document.Save(&reason)) << reason;
    unsigned char now[sizeof accessList + 1] = {};
    ASSERT_EQ(ssize_t(sizeof accessList), getxattr(path.c_str(), name, now, sizeof now));
    EXPECT_EQ(0, memcmp(accessList, now, sizeof accessList));
}

TEST_F(ScriptOnDisk, KeepsAllItsNames)
{
    for (const std::string& added : {std::string("# " + std::string(9000, 'x') + " #\n"), std::string()}) {
        Write(path, clouds + std::string("# to be cut # ") + added);
        const std::string other = folder + "other.txt";
        fs::create_hard_link(path, other);
        struct stat before = {}, after = {};
        stat(other.c_str(), &before);
        ASSERT_TRUE(document.Open(path, &reason));
        ASSERT_TRUE(document.SetValue(0, "StopTime", added.empty() ? "9" : "123456"));
        ASSERT_TRUE(document.Save(&reason)) << reason;
        stat(path.c_str(), &after);
        EXPECT_EQ(before.st_ino, after.st_ino);
        EXPECT_EQ(document.Text(), ReadFile(path));
        EXPECT_EQ(document.Text(), ReadFile(other));
        EXPECT_FALSE(document.IsModified());
        EXPECT_EQ(edit::DiskSame, document.LookAtDisk());
        EXPECT_EQ("other.txt script.txt ", Names());
        edit::Recovery found;
        EXPECT_FALSE(edit::Document::FindRecovery(path, &found)) << "the copy goes when the file is whole";
        fs::remove(other);
    }
}

// While it is written over neither the old nor the new text is whole: a copy must be safe first.
TEST_F(ScriptOnDisk, WithSeveralNamesIsNotWrittenOverWithoutACopy)
{
    Open();
    fs::create_hard_link(path, folder + "other.txt");
    Write(folder + "state", "a file in the place of the recovery folder");
    Change();
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ(
        path +
            " has several names (hard links), and would be written over in its place. That needs a copy of "
            "the text elsewhere: " +
            folder + "state/marlinex: Not a directory.",
        reason);
    EXPECT_EQ(clouds, ReadFile(path));
}

TEST_F(ScriptOnDisk, WithSeveralNamesIsTheOldOneWhereTheDiskIsFull)
{
    Open(std::string(clouds) + "#" + std::string(3000, 'x') + "#");
    fs::create_hard_link(path, folder + "other.txt");
    const std::string old = document.Text();
    for (int i = 0; i < 30; i++)
        ASSERT_FALSE(document.Paste(clouds, 5000).empty());
    const std::string text = document.Text();
    ASSERT_GT(text.size(), 4000u);
    const rlimit limit = {4000, 4000}; // the copy is larger, and so is the script
    ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &limit));
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ(old, ReadFile(path));
    EXPECT_EQ(text, document.Text());
}

// A disk of a few pages, full to the last.
TEST_F(ScriptOnDisk, IsTheOldOneOnADiskThatIsReallyFull)
{
    const std::string disk = folder + "disk";
    fs::create_directory(disk);
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "needs the right to mount a small file system: " << strerror(errno);
    const std::string script = disk + "/script.txt",
                      old = std::string(clouds) + "#" + std::string(9000, 'x') + "#";
    Write(script, old);
    ASSERT_TRUE(document.Open(script, &reason)) << reason;
    Change();
    // All but nothing is left.
    std::ofstream filler(disk + "/filler", std::ios::binary);
    while (filler << std::string(4096, 'f') << std::flush) {
    }
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ(script + " can't be written: No space left on device.", reason);
    EXPECT_EQ(old, ReadFile(script));
    EXPECT_TRUE(document.IsModified());
    EXPECT_EQ(2, std::distance(fs::directory_iterator(disk), fs::directory_iterator()))
        << "nothing lies beside it";
    EXPECT_TRUE(document.WriteRecovery()) << "which lies elsewhere: " << document.RecoveryFailure();

    // A file with two names is written over in its place, which needs no room where it does not grow.
    fs::create_hard_link(script, disk + "/other.txt");
    EXPECT_TRUE(document.Save(&reason)) << reason;
    EXPECT_EQ(document.Text(), ReadFile(disk + "/other.txt"));
    for (int i = 0; i < 100; i++)
        ASSERT_FALSE(document.Paste(clouds, 5000).empty());
    const std::string now = ReadFile(script);
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ(script + " can't be written: No space left on device.", reason);
    EXPECT_EQ(now, ReadFile(script).substr(0, now.size()));

    filler.close();
    fs::remove(disk + "/filler");
    EXPECT_TRUE(document.Save(&reason)) << reason;
    EXPECT_EQ(document.Text(), ReadFile(script));
    EXPECT_EQ(0, umount2(disk.c_str(), MNT_DETACH));
}

TEST_F(ScriptOnDisk, IsTheOldOneWhereTheDiskIsFull)
{
    Open(std::string(clouds) + "#" + std::string(5000, 'x') + "#");
    const std::string old = document.Text();
    Change();
    const rlimit limit = {4000, 4000};
    ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &limit));
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ(path + " can't be written: File too large.", reason);
    EXPECT_EQ(old, ReadFile(path));
    EXPECT_EQ("script.txt ", Names());
    EXPECT_TRUE(document.IsModified());
    EXPECT_FALSE(document.WriteRecovery());
    EXPECT_FALSE(document.RecoveryFailure().empty());
}

TEST_F(ScriptOnDisk, IsNotReplacedIfItOrItsFolderIsReadOnly)
{
    Open();
    Change();
    chmod(path.c_str(), 0444);
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ(path + " is read-only.", reason);
    chmod(path.c_str(), 0644);
    WithoutRights([&] {
        EXPECT_FALSE(document.Save(&reason)) << "of somebody else";
        EXPECT_EQ(path + (geteuid() == nobody ? " is read-only." : ""), reason);
    });
    chmod(path.c_str(), 0666);
    chmod(folder.c_str(), 0555);
    WithoutRights([&] {
        EXPECT_FALSE(document.Save(&reason));
        EXPECT_EQ(path + " can't be written: Permission denied.", reason);
    });
    chmod(folder.c_str(), 0755);
    EXPECT_EQ(clouds, ReadFile(path));
    EXPECT_EQ("script.txt ", Names());
    EXPECT_TRUE(document.IsModified());
    EXPECT_TRUE(document.Save(&reason)) << reason;
}

TEST_F(ScriptOnDisk, IsNotReplacedIfItsOwnerWouldChange)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to give a file away";
    Open();
    Change();
    chmod(path.c_str(), 0666);
    chmod(folder.c_str(), 0777);
    WithoutRights([&] {
        EXPECT_FALSE(document.Save(&reason));
        EXPECT_EQ(path + " can't be written: Operation not permitted.", reason);
    });
    EXPECT_EQ(clouds, ReadFile(path));
    EXPECT_EQ("script.txt ", Names());
}

TEST_F(ScriptOnDisk, WithoutANameIsSavedUnderOne)
{
    EXPECT_FALSE(document.IsModified());
    EXPECT_TRUE(document.InsertEntry("FX_Clouds", 0, 10, 1));
    EXPECT_TRUE(document.IsModified());
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ("The script has no name yet.", reason);
    EXPECT_FALSE(document.SaveAs(folder + "no/such/script.txt", &reason));
    EXPECT_FALSE(document.SaveAs(folder, &reason));
    EXPECT_EQ("", document.Path());
    EXPECT_TRUE(document.SaveAs(path, &reason)) << reason;
    EXPECT_EQ(clouds, ReadFile(path));
    EXPECT_EQ(path, document.Path());
    EXPECT_FALSE(document.IsModified());
}

// ---- Other programs

TEST_F(ScriptOnDisk, ThatAnotherProgramWroteIsTakenOverAsOneStep)
{
    Open();
    EXPECT_EQ(edit::DiskSame, document.LookAtDisk());
    const std::string theirs = std::string(clouds) + "# theirs #\n";
    Write(path, theirs);
    EXPECT_EQ(edit::DiskChanged, document.LookAtDisk());
    EXPECT_EQ(clouds, document.Text());
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ("Another program has written " + path + " since it was read.", reason);
    EXPECT_TRUE(document.TakeDisk(&reason));
    EXPECT_EQ(theirs, document.Text());
    EXPECT_FALSE(document.IsModified());
    EXPECT_EQ(edit::DiskSame, document.LookAtDisk());
    EXPECT_TRUE(document.Undo());
    EXPECT_EQ(clouds, document.Text());
    EXPECT_TRUE(document.IsModified());
    EXPECT_TRUE(document.Save(&reason)) << reason;
    EXPECT_EQ(clouds, ReadFile(path));
}

TEST_F(ScriptOnDisk, AndTheTextThatBothChangedAreAConflict)
{
    Open();
    Change();
    const std::string mine = document.Text(), theirs = std::string(clouds) + "# theirs #\n";
    Write(folder + "new", theirs);
    fs::rename(folder + "new", path); // as editors save
    EXPECT_EQ(edit::DiskConflict, document.LookAtDisk());
    EXPECT_FALSE(document.Save(&reason));
    EXPECT_EQ(theirs, ReadFile(path));
    document.KeepMine();
    EXPECT_EQ(edit::DiskSame, document.LookAtDisk());
    EXPECT_TRUE(document.IsModified());
    EXPECT_TRUE(document.Save(&reason)) << reason;
    EXPECT_EQ(mine, ReadFile(path));

    Change();
    Write(path, theirs);
    EXPECT_EQ(edit::DiskConflict, document.LookAtDisk());
    EXPECT_TRUE(document.TakeDisk());
    EXPECT_EQ(theirs, document.Text());
    EXPECT_TRUE(document.Undo()) << "what was mine is not lost";
    EXPECT_TRUE(document.Undo());
    EXPECT_EQ(mine, document.Text());
}

TEST_F(ScriptOnDisk, WrittenAnewWithTheSameBytesIsTheSame)
{
    Open();
    Write(path, clouds);
    EXPECT_EQ(edit::DiskSame, document.LookAtDisk());
    Change();
    Write(path, document.Text());
    EXPECT_EQ(edit::DiskSame, document.LookAtDisk()) << "it has what the text has";
    EXPECT_FALSE(document.IsModified());
}

TEST_F(ScriptOnDisk, IsSeenToChangeEvenIfItsTimesDoNot)
{
    Open();
    struct stat before = {};
    stat(path.c_str(), &before);
    std::string other = clouds;
    other[other.find("=10")] = '\t'; // of the same length
    const int file = open(path.c_str(), O_WRONLY);
    ASSERT_EQ(ssize_t(other.size()), write(file, other.data(), other.size()));
    const timespec times[] = {before.st_atim, before.st_mtim};
    futimens(file, times);
    close(file);
    EXPECT_EQ(edit::DiskChanged, document.LookAtDisk());
}

TEST_F(ScriptOnDisk, ThatWasDeletedIsToldAndCanBeSavedAgain)
{
    Open();
    fs::remove(path);
    EXPECT_EQ(edit::DiskGone, document.LookAtDisk());
    EXPECT_TRUE(document.IsModified()) << "it is nowhere but here";
    EXPECT_FALSE(document.TakeDisk(&reason));
    EXPECT_EQ(clouds, document.Text());
    EXPECT_TRUE(document.Save(&reason)) << reason;
    EXPECT_EQ(clouds, ReadFile(path));
    EXPECT_EQ(edit::DiskSame, document.LookAtDisk());
    fs::remove(path);
    EXPECT_EQ(edit::DiskGone, document.LookAtDisk());
    document.KeepMine();
    EXPECT_EQ(edit::DiskSame, document.LookAtDisk()) << "told once";
    EXPECT_TRUE(document.IsModified());
    Write(path, "# back #");
    EXPECT_EQ(edit::DiskConflict, document.LookAtDisk());
    fs::remove_all(folder);
    document.KeepMine();
    EXPECT_FALSE(document.Save(&reason));
}

// ---- Killed

// Edits and saves without end, and tells through the pipe what it has saved last.
static void SaveForEver(const std::string& path, int pipe)
{
    edit::Document document;
    std::string reason;
    if (!document.Open(path, &reason))
        _exit(1);
    for (uint32_t i = document.GetOutline().blocks[0].start + 1;; i++) {
        if (!document.SetTime({0, -1}, i) || !document.WriteRecovery() || !document.Save(&reason))
            _exit(1);
        if (write(pipe, &i, sizeof i) != sizeof i)
            _exit(1);
    }
}

TEST_F(ScriptOnDisk, LosesNothingHoweverOftenItsEditorIsKilled)
{
    const std::string comment = "#" + std::string(20000, 'x') + "#\n"; // some pages long
    Write(path, clouds + comment);
    uint32_t saved = 0;
    for (int round = 0; round < 100; round++) {
        int ends[2];
        ASSERT_EQ(0, pipe(ends));
        const pid_t child = fork();
        if (child == 0) {
            close(ends[0]);
            SaveForEver(path, ends[1]);
        }
        close(ends[1]);
        uint32_t told = 0;
        ASSERT_EQ(ssize_t(sizeof told), read(ends[0], &told, sizeof told)) << "it saves";
        usleep(useconds_t(round % 20) * 150); // the kill falls somewhere within the next ones
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        do
            saved = std::max(saved, told);
        while (read(ends[0], &told, sizeof told) == ssize_t(sizeof told));
        close(ends[0]);
        // The file is whole, and holds what was saved last or one more.
        const std::string text = ReadFile(path);
        const edit::Outline outline = edit::ReadOutline(text);
        ASSERT_EQ(1u, outline.blocks.size());
        ASSERT_GE(outline.blocks[0].start, saved);
        ASSERT_LE(outline.blocks[0].start, saved + 1);
        ASSERT_EQ(comment, text.substr(text.size() - comment.size()));
        saved = outline.blocks[0].start;
        // What was edited and not saved any more is in the recovery file.
        edit::Recovery found;
        if (edit::Document::FindRecovery(path, &found)) {
            ASSERT_EQ(saved + 1, edit::ReadOutline(found.text).blocks[0].start);
            edit::Document::DiscardRecovery(found);
        }
    }
}
