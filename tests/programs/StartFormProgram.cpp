// SPDX-License-Identifier: MIT
// Shows the settings dialog on the values given, width height music fullscreen, and says on stdout what came
// of it: "go" or "leave" and the five values, reserved last, which went in as true. Then it waits to be
// ended, so that one can see that the form has left the screen.
#include "kernel/SettingsDialog.h"
#include "platform/Screen.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (!platform::HasDisplay()) {
        fputs("no display\n", stderr);
        return 1;
    }
    int width = argc > 1 ? atoi(argv[1]) : 1024;
    int height = argc > 2 ? atoi(argv[2]) : 768;
    bool music = argc > 3 ? atoi(argv[3]) != 0 : true;
    bool fullscreen = argc > 4 ? atoi(argv[4]) != 0 : true;
    bool reserved = true;
    const bool go = ShowSettingsDialog(width, height, music, fullscreen, reserved);
    printf("%s %d %d %d %d %d\n", go ? "go" : "leave", width, height, music, fullscreen, reserved);
    fflush(stdout);
    pause();
    return 0;
}
