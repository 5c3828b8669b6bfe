// SPDX-License-Identifier: MIT
#include "kernel/SettingsDialog.h"

#include "platform/dialogs/StartForm.h"

enum ControlId {
    ControlGo = 1000,
    ControlLeave = 1001,
    ControlFullscreen = 1002,
    ControlReserved = 1003,
    ControlMusic = 1007,
    Control640 = 1019,
    Control800 = 1020,
    Control1024 = 1021
};

struct Resolution {
    int id;
    int width;
    int height;
};

// clang-format off
static const Resolution resolutions[] = {
    {Control640,   640, 480},
    {Control800,   800, 600},
    {Control1024, 1024, 768},
};

// There is no control with the id ControlReserved.
static const platform::FormControl controls[] = {
    // id               kind                       text            x    y  width height
    {Control640,        platform::FormRadioButton, "640 x 480",   13,  90, 48,   10, false},
    {Control800,        platform::FormRadioButton, "800 x 600",   13, 100, 48,   10, false},
    {Control1024,       platform::FormRadioButton, "1024 x 768",  13, 109, 52,   10, false},
    {ControlFullscreen, platform::FormCheckBox,    "Fullscreen", 170,  90, 49,   10, false},
    {ControlMusic,      platform::FormCheckBox,    "Music",      170, 100, 49,   10, false},
    {ControlGo,         platform::FormPushButton,  "Go",          13, 124, 48,   10, false},
    {ControlLeave,      platform::FormPushButton,  "Leave",      171, 124, 48,   10, false},
};
// clang-format on

static const int formWidth = 232;  // dialog units
static const int formHeight = 143; // dialog units

static int ResolutionOfWidth(int width)
{
    for (const Resolution& resolution : resolutions)
        if (resolution.width == width)
            return resolution.id;
    return Control640;
}

bool ShowSettingsDialog(int& width, int& height, bool& music, bool& fullscreen, bool& reserved)
{
    platform::StartForm form;
    form.width = formWidth;
    form.height = formHeight;
    form.picture = "start-form.png";
    form.controls.assign(std::begin(controls), std::end(controls));
    form.acceptId = ControlGo;
    form.leaveId = ControlLeave;

    form.Check(ResolutionOfWidth(width), true);
    form.Check(ControlMusic, music);
    form.Check(ControlFullscreen, fullscreen);
    form.Check(ControlReserved,
               reserved); // has no effect without such a control, and IsChecked below gives false

    if (platform::ShowStartForm(form) != ControlGo)
        return false;

    fullscreen = form.IsChecked(ControlFullscreen);
    music = form.IsChecked(ControlMusic);
    reserved = form.IsChecked(ControlReserved);
    for (const Resolution& resolution : resolutions)
        if (form.IsChecked(resolution.id)) {
            width = resolution.width;
            height = resolution.height;
        }
    return true;
}
