// SPDX-License-Identifier: MIT
#include "kernel/SettingsDialog.h"

#include "platform/dialogs/StartForm.h"
#include "platform/dialogs/StartFormHooks.h"

#include <gtest/gtest.h>

class SettingsDialog : public testing::Test
{
protected:
    ~SettingsDialog() override { platform::AnswerStartForm(nullptr); }

    // Shows the dialog on the fields below. The controls in clicks are clicked one after the other; the
    // form as it came up and the answer are kept.
    bool Show(std::vector<int> clicks, int button)
    {
        platform::AnswerStartForm([&](platform::StartForm& form) {
            ++shown;
            first = form;
            for (int id : clicks)
                form.Click(id);
            return button;
        });
        return ShowSettingsDialog(width, height, music, fullscreen, reserved);
    }

    std::vector<int> CheckedAtFirst() const
    {
        std::vector<int> ids;
        for (const platform::FormControl& control : first.controls)
            if (control.checked)
                ids.push_back(control.id);
        return ids;
    }

    int width = 1024;
    int height = 768;
    bool music = true;
    bool fullscreen = true;
    bool reserved = false;

    int shown = 0;
    platform::StartForm first = {};
};

static const int go = 1000, leave = 1001;

TEST_F(SettingsDialog, HasSevenControlsWithTheirKindsTextsAndPlaces)
{
    Show({}, leave);
    EXPECT_EQ(1, shown);
    EXPECT_EQ(232, first.width);
    EXPECT_EQ(143, first.height);
    EXPECT_EQ("start-form.png", first.picture);
    EXPECT_EQ(1000, first.acceptId);
    EXPECT_EQ(1001, first.leaveId);

    // clang-format off
    const platform::FormControl expected[] = {
        {1019, platform::FormRadioButton, "640 x 480",   13,  90, 48, 10, false},
        {1020, platform::FormRadioButton, "800 x 600",   13, 100, 48, 10, false},
        {1021, platform::FormRadioButton, "1024 x 768",  13, 109, 52, 10, true},
        {1002, platform::FormCheckBox,    "Fullscreen", 170,  90, 49, 10, true},
        {1007, platform::FormCheckBox,    "Music",      170, 100, 49, 10, true},
        {1000, platform::FormPushButton,  "Go",          13, 124, 48, 10, false},
        {1001, platform::FormPushButton,  "Leave",      171, 124, 48, 10, false},
    };
    // clang-format on
    ASSERT_EQ(std::size(expected), first.controls.size());
    for (size_t i = 0; i < std::size(expected); ++i) {
        const platform::FormControl& control = first.controls[i];
        EXPECT_EQ(expected[i].id, control.id);
        EXPECT_EQ(expected[i].kind, control.kind) << control.text;
        EXPECT_EQ(expected[i].text, control.text);
        EXPECT_EQ(expected[i].x, control.x) << control.text;
        EXPECT_EQ(expected[i].y, control.y) << control.text;
        EXPECT_EQ(expected[i].width, control.width) << control.text;
        EXPECT_EQ(expected[i].height, control.height) << control.text;
        EXPECT_EQ(expected[i].checked, control.checked) << control.text;
    }
}

TEST_F(SettingsDialog, ChecksTheRadioButtonOfTheWidth)
{
    music = fullscreen = false;
    const struct {
        int width, id;
    } cases[] = {{640, 1019}, {800, 1020}, {1024, 1021}};
    for (const auto& each : cases) {
        width = each.width;
        height = 1; // has no say
        Show({}, leave);
        EXPECT_EQ(std::vector<int>{each.id}, CheckedAtFirst());
    }
}

TEST_F(SettingsDialog, AnyOtherWidthSelectsTheFirstRadioButton)
{
    music = fullscreen = false;
    for (int other : {0, -800, 639, 641, 799, 801, 1023, 1025, 1280}) {
        width = other;
        height = 768;
        Show({}, leave);
        EXPECT_EQ(std::vector<int>{1019}, CheckedAtFirst()) << other;
        EXPECT_TRUE(Show({}, go));
        EXPECT_EQ(640, width);
        EXPECT_EQ(480, height);
    }
}

TEST_F(SettingsDialog, ShowsMusicAndFullscreenEachInItsOwnBox)
{
    fullscreen = false;
    Show({}, leave);
    EXPECT_EQ((std::vector<int>{1021, 1007}), CheckedAtFirst());
    fullscreen = true;
    music = false;
    Show({}, leave);
    EXPECT_EQ((std::vector<int>{1021, 1002}), CheckedAtFirst());
}

TEST_F(SettingsDialog, GoWithoutAChangeGivesTheDefaultsBack)
{
    EXPECT_TRUE(Show({}, go));
    EXPECT_EQ(1024, width);
    EXPECT_EQ(768, height);
    EXPECT_TRUE(music);
    EXPECT_TRUE(fullscreen);
    EXPECT_FALSE(reserved);
}

TEST_F(SettingsDialog, GoWritesTheChosenResolution)
{
    const struct {
        int id, width, height;
    } cases[] = {{1019, 640, 480}, {1020, 800, 600}, {1021, 1024, 768}};
    for (const auto& each : cases) {
        width = height = 5;
        EXPECT_TRUE(Show({each.id}, go));
        EXPECT_EQ(each.width, width);
        EXPECT_EQ(each.height, height);
    }
}

TEST_F(SettingsDialog, GoReadsMusicAndFullscreenBack)
{
    EXPECT_TRUE(Show({1007}, go));
    EXPECT_FALSE(music);
    EXPECT_TRUE(fullscreen);
    EXPECT_TRUE(Show({1002}, go));
    EXPECT_FALSE(music);
    EXPECT_FALSE(fullscreen);
    EXPECT_TRUE(Show({1007, 1002}, go));
    EXPECT_TRUE(music);
    EXPECT_TRUE(fullscreen);
}

TEST_F(SettingsDialog, ReservedAlwaysComesBackFalseAsItsControlDoesNotExist)
{
    reserved = true;
    EXPECT_TRUE(Show({1003}, go));
    EXPECT_FALSE(reserved);
    EXPECT_EQ(nullptr, first.Find(1003));
}

TEST_F(SettingsDialog, ReservedWouldComeFromControl1003)
{
    platform::AnswerStartForm([](platform::StartForm& form) {
        form.controls.push_back({1003, platform::FormCheckBox, "", 0, 0, 1, 1, true});
        return go;
    });
    EXPECT_TRUE(ShowSettingsDialog(width, height, music, fullscreen, reserved));
    EXPECT_TRUE(reserved);
}

TEST_F(SettingsDialog, LeaveAndCloseWriteNothing)
{
    reserved = true;
    for (int end : {leave, platform::FormClosed, 1019, 999, 1002}) {
        EXPECT_FALSE(Show({1019, 1002, 1007}, end)) << end;
        EXPECT_EQ(1024, width);
        EXPECT_EQ(768, height);
        EXPECT_TRUE(music);
        EXPECT_TRUE(fullscreen);
        EXPECT_TRUE(reserved);
    }
}

TEST_F(SettingsDialog, ReadsTheRadioButtonsInOrderSoThatTheLastCheckedOneWins)
{
    platform::AnswerStartForm([](platform::StartForm& form) {
        form.Check(1019, true);
        form.Check(1020, true);
        form.Check(1021, false);
        return go;
    });
    EXPECT_TRUE(ShowSettingsDialog(width, height, music, fullscreen, reserved));
    EXPECT_EQ(800, width);
    EXPECT_EQ(600, height);
}

TEST_F(SettingsDialog, WithoutACheckedRadioButtonTheSizeStays)
{
    width = 1024;
    height = 12;
    EXPECT_TRUE(Show({}, go));
    EXPECT_EQ(768, height);
    platform::AnswerStartForm([](platform::StartForm& form) {
        form.Check(1021, false);
        return go;
    });
    height = 12;
    EXPECT_TRUE(ShowSettingsDialog(width, height, music, fullscreen, reserved));
    EXPECT_EQ(1024, width);
    EXPECT_EQ(12, height);
}
