// SPDX-License-Identifier: MIT
// The program where it has no window.
#include "tests/Folders.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

static const std::vector<std::string> noDisplay = {
    "DISPLAY", "WAYLAND_DISPLAY", "XDG_CONFIG_HOME=/nonexistent", "XDG_STATE_HOME=/nonexistent"};

TEST(EditProgram, SaysInALineThatThereIsNoDisplay)
{
    const ProgramRun run = RunProgram("marlinex-edit", {SOURCE_DIR "/Data/script.txt"}, noDisplay);
    EXPECT_EQ(2, run.status);
    EXPECT_EQ("", run.output);
    EXPECT_EQ("marlinex-edit: there is no display to open a window on\n", run.errors);
}

TEST(EditProgram, SaysInALineThatThereIsNoSuchScript)
{
    const ProgramRun run = RunProgram("marlinex-edit", {"/nowhere/night.txt"}, noDisplay);
    EXPECT_EQ(2, run.status);
    EXPECT_EQ("marlinex-edit: /nowhere/night.txt: No such file or directory\n", run.errors);
}

TEST(EditProgram, RefusesOptionsThatMakeNoSense)
{
    for (const char* option : {"--size=640", "--size=0x10", "--rate=fast", "--memory=0", "--memory=much"}) {
        const ProgramRun run = RunProgram("marlinex-edit", {option}, noDisplay);
        EXPECT_EQ(2, run.status) << option;
        EXPECT_EQ(0u, run.errors.find("marlinex-edit: ")) << option << run.errors;
    }
    EXPECT_EQ(2, RunProgram("marlinex-edit", {"a.txt", "b.txt"}, noDisplay).status);
}
