// SPDX-License-Identifier: MIT
// What a power cut would leave: a save and unsaved work are on the disk before they take their names, and the names before
// anybody is told. The system's calls are listened to in their order.
#include "tools/edit/Document.h"

#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <climits>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

struct Call {
    enum { FlushedFile, FlushedFolder, Renamed } kind;
    std::string text; // of the file as it was flushed
    std::string name; // of the folder, or the new one
    std::string old;  // what stood under the new name
};

} // namespace

static std::vector<Call>* calls; // null: nobody listens

// In the place of the system's, for the whole program.
extern "C" int fsync(int file)
{
    if (calls) {
        const std::string link = "/proc/self/fd/" + std::to_string(file);
        if (fs::is_directory(link))
            calls->push_back({Call::FlushedFolder, "", fs::read_symlink(link), ""});
        else
            calls->push_back({Call::FlushedFile, ReadFile(link), "", ""});
    }
    return int(syscall(SYS_fsync, file));
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    if (calls)
        calls->push_back({Call::Renamed, "", to, fs::exists(to) ? ReadFile(to) : ""});
    return int(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

static const char* const before = "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=10;\nLayerID=1;\n";
static const char* const after = "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=7;\nStopTime=17;\nLayerID=1;\n";

class PowerCut : public testing::Test
{
protected:
    PowerCut() : folder(testing::TempDir() + "marlinex-power-" + std::to_string(getpid()))
    {
        fs::remove_all(folder);
        fs::create_directories(folder);
        folder = fs::canonical(folder);
        setenv("XDG_STATE_HOME", (folder + "/state").c_str(), 1);
        std::ofstream(folder + "/script.txt", std::ios::binary) << before;
        std::string reason;
        EXPECT_TRUE(document.Open(folder + "/script.txt", &reason)) << reason;
        EXPECT_TRUE(document.Move({{0, -1}}, 7, 0));
        EXPECT_EQ(after, document.Text());
        calls = &heard;
    }
    ~PowerCut() override
    {
        calls = nullptr;
        fs::remove_all(folder);
    }

    std::string folder;
    edit::Document document;
    std::vector<Call> heard;
};

TEST_F(PowerCut, FindsTheOldOrTheNewScript)
{
    std::string reason;
    ASSERT_TRUE(document.Save(&reason)) << reason;
    size_t at = 0;
    while (at < heard.size() && !(heard[at].kind == Call::FlushedFile && heard[at].text == after))
        at++;
    ASSERT_LT(at + 2, heard.size()) << "the whole text is flushed first";
    EXPECT_EQ(Call::Renamed, heard[at + 1].kind);
    EXPECT_EQ(folder + "/script.txt", heard[at + 1].name);
    EXPECT_EQ(before, heard[at + 1].old);
    EXPECT_EQ(Call::FlushedFolder, heard[at + 2].kind);
    EXPECT_EQ(folder, heard[at + 2].name);
    EXPECT_EQ(after, ReadFile(folder + "/script.txt"));
}

TEST_F(PowerCut, FindsUnsavedWork)
{
    document.Tick(1);
    size_t at = 0;
    while (at < heard.size() &&
           !(heard[at].kind == Call::FlushedFile && heard[at].text.find(after) != std::string::npos))
        at++;
    ASSERT_LT(at + 2, heard.size()) << "the whole text is flushed first";
    EXPECT_EQ(Call::Renamed, heard[at + 1].kind);
    EXPECT_EQ(Call::FlushedFolder, heard[at + 2].kind);
    EXPECT_EQ(folder + "/state/marlinex", heard[at + 2].name);
    EXPECT_EQ(heard[at + 2].name, fs::path(heard[at + 1].name).parent_path());
    EXPECT_EQ(before, ReadFile(folder + "/script.txt"));
}
