// SPDX-License-Identifier: MIT
// What the editor hears of files that others write. Time is the test's own.
#include "tools/edit/DataWatch.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

class WatchedData : public testing::Test
{
protected:
    WatchedData()
    {
        std::string name = testing::TempDir() + "marlinex-watch-XXXXXX";
        folder = mkdtemp(name.data());
        fs::create_directory(folder + "/Data");
        Write("Data/tree.jpg");
        Write("night.txt");
    }
    ~WatchedData() override { fs::remove_all(folder); }

    void Watch(const std::string& script = "night.txt")
    {
        std::string reason;
        ASSERT_TRUE(watch.Watch(script.empty() ? "" : PathOf(script), PathOf("Data"), &reason)) << reason;
        EXPECT_EQ("", Changes());
    }
    void Write(const std::string& name) { std::ofstream(PathOf(name)) << "text"; }
    std::string PathOf(const std::string& name) const { return folder + "/" + name; }

    // What is told when all has been quiet for a while: "script" or names, each with a blank behind it.
    std::string Changes()
    {
        std::string text = Told(watch.Poll(now));
        now += edit::DataWatch::LookSeconds;
        text += Told(watch.Poll(now));
        now += edit::DataWatch::QuietSeconds;
        return text + Told(watch.Poll(now));
    }
    static std::string Told(const std::vector<edit::DataChange>& changes)
    {
        std::string text;
        for (const edit::DataChange& change : changes)
            text += (change.isScript ? "script" : change.name.empty() ? "all" : change.name) + " ";
        return text;
    }

    std::string folder;
    edit::DataWatch watch;
    double now = 100;
};

TEST_F(WatchedData, AFileThatIsWrittenOrMovedIntoPlaceIsTold)
{
    Watch();
    Write("Data/tree.jpg");
    EXPECT_EQ("tree.jpg ", Changes());
    EXPECT_EQ("", Changes());
    Write("Data/new.png");
    Write("Data/tree.jpg");
    EXPECT_EQ("new.png tree.jpg ", Changes());
    Write("night.txt");
    EXPECT_EQ("script ", Changes());
    Write("other.txt");
    EXPECT_EQ("", Changes());
    fs::rename(PathOf("other.txt"), PathOf("night.txt"));
    EXPECT_EQ("script ", Changes());
    fs::remove(PathOf("Data/tree.jpg"));
    EXPECT_EQ("tree.jpg ", Changes());
    fs::create_symlink("new.png", PathOf("Data/link.png"));
    EXPECT_EQ("link.png ", Changes());
    fs::permissions(PathOf("Data/new.png"), fs::perms(0600));
    EXPECT_EQ("new.png ", Changes());
}

TEST_F(WatchedData, AFileIsToldWhenItIsWholeAndAllIsQuiet)
{
    Watch();
    const int file = open(PathOf("Data/long.jpg").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    ASSERT_EQ(1, write(file, "a", 1));
    EXPECT_EQ("", Changes());
    ASSERT_EQ(1, write(file, "b", 1));
    EXPECT_EQ("", Changes());
    close(file);
    EXPECT_EQ("", Told(watch.Poll(now)));
    EXPECT_EQ("", Told(watch.Poll(now + 0.09)));
    Write("Data/long.jpg"); // again, so that the wait begins anew
    EXPECT_EQ("", Told(watch.Poll(now + 0.09)));
    EXPECT_EQ("", Told(watch.Poll(now + 0.18)));
    EXPECT_EQ("long.jpg ", Told(watch.Poll(now + 0.2)));
    now += 1;
    EXPECT_EQ("", Changes());
}

TEST_F(WatchedData, EditorsWaysOfSavingAreOneChange)
{
    Watch();
    // Away with the old one, the new one under its name.
    fs::rename(PathOf("night.txt"), PathOf("night.txt~"));
    Write("night.txt");
    EXPECT_EQ("script ", Changes());
    // A new one under another name, moved over it.
    Write(".night.txt.swp");
    fs::rename(PathOf(".night.txt.swp"), PathOf("night.txt"));
    EXPECT_EQ("script ", Changes());
}

TEST_F(WatchedData, AReplacedFolderIsToldAndWatched)
{
    Watch();
    fs::rename(PathOf("Data"), PathOf("Old"));
    fs::create_directory(PathOf("Data"));
    EXPECT_EQ("all ", Changes());
    Write("Old/tree.jpg");
    EXPECT_EQ("", Changes());
    Write("Data/tree.jpg");
    EXPECT_EQ("tree.jpg ", Changes());
    fs::remove_all(PathOf("Data"));
    EXPECT_EQ("all ", Changes());
    fs::create_directory(PathOf("Data"));
    EXPECT_EQ("all ", Changes());
    Write("Data/tree.jpg");
    EXPECT_EQ("tree.jpg ", Changes());
}

TEST_F(WatchedData, FoldersThatAreNotThereYetMayCome)
{
    std::string reason;
    ASSERT_TRUE(watch.Watch(PathOf("later/show.txt"), PathOf("later/Data"), &reason)) << reason;
    EXPECT_EQ("", Changes());
    fs::create_directories(PathOf("later/Data"));
    EXPECT_EQ("script all ", Changes());
    Write("later/show.txt");
    Write("later/Data/a.png");
    EXPECT_EQ("script a.png ", Changes());
}

TEST_F(WatchedData, AScriptAmongTheDataIsTheScript)
{
    Watch("Data/script.txt");
    Write("Data/script.txt");
    Write("Data/tree.jpg");
    EXPECT_EQ("script tree.jpg ", Changes());
}

TEST_F(WatchedData, AScriptBehindASymbolicLinkIsWatchedWhereItLies)
{
    fs::create_directory(PathOf("real"));
    Write("real/a.txt");
    fs::create_symlink("real/a.txt", PathOf("link.txt"));
    Watch("link.txt");
    Write("real/a.txt");
    EXPECT_EQ("script ", Changes());
    Write("real/b.txt");
    EXPECT_EQ("", Changes());
}

TEST_F(WatchedData, WithoutAScriptOnlyTheDataAreTold)
{
    Watch("");
    Write("night.txt");
    Write("Data/tree.jpg");
    EXPECT_EQ("tree.jpg ", Changes());
    watch.Stop();
    Write("Data/tree.jpg");
    EXPECT_EQ("", Changes());
}
