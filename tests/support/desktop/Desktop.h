// SPDX-License-Identifier: MIT
// A desktop of a test's own: an X server without a screen (Xvfb) on a free display number, a window manager
// (openbox), somebody at mouse and keyboard (xdotool). Any number of them run side by side. All of it ends
// with this object, and with the test's process however that ends.
#pragma once

#include "tests/support/desktop/Process.h"
#include "tests/support/desktop/Screenshot.h"

#include <memory>
#include <string>
#include <vector>

typedef unsigned long WindowId; // 0 is none

struct WindowPlace {
    int x, y; // of what the program draws, without the window manager's frame, on the screen
    int width, height;
};

class Desktop
{
public:
    enum Manager { WithWindowManager, WithoutWindowManager };

    Desktop() = default;
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    // False if one of the programs is missing or doesn't come up. The size is also the only full-screen mode
    // that the screen has, until AddMode gives it another.
    bool Start(int width, int height, Manager manager = WithWindowManager);

    // Gives the screen one more mode, which must not be larger than the screen at its start.
    bool AddMode(int modeWidth, int modeHeight);
    bool SetMode(int modeWidth, int modeHeight); // switches to one of the screen's modes
    std::string Mode();                          // the one in force, "1024x768"

    // Sets the desktop's dots per inch; programs started from then on see them.
    void SetDotsPerInch(int dpi);

    // "NAME=value" rows that put a program on this desktop, with software GL and without sound; then those of
    // the test's own, which win.
    std::vector<std::string> Environment() const;
    std::vector<std::string> ownEnvironment;

    // Starts a program of the build on this desktop: "moonwaltz", "marlinex-edit", or one of tests/programs. Its working
    // directory is the test's own if none is named. Null if it can't be started. It ends with the desktop.
    Process* Run(const std::string& program, const std::vector<std::string>& arguments = {},
                 const std::string& directory = "");

    // Ends the X server, as a crash of it would.
    void KillServer();

    // Windows that are on the screen, by their exact title: the lowest one first. Those without a class
    // don't count, so that windows of the window manager itself are left out.
    std::vector<WindowId> FindWindows(const std::string& title);
    WindowId FindWindow(const std::string& title); // the highest one, or 0
    // The highest one whose title starts like that, for titles that change.
    WindowId FindWindowStarting(const std::string& beginning);
    std::string Title(WindowId window);
    WindowPlace Place(WindowId window);               // all 0 if it is gone
    WindowId Focused();                               // who gets the keyboard
    std::vector<std::string> States(WindowId window); // "_NET_WM_STATE_ABOVE" and the like
    WindowId Owner(WindowId window);                  // whom it is transient for
    bool IsDecorated(WindowId window);                // has a frame of the window manager's

    // Waits for a window of that title that is on the screen and, if it should, has the keyboard. 0 if none
    // comes.
    WindowId WaitForWindow(const std::string& title, double seconds = Patience);
    WindowId WaitForFocusedWindow(const std::string& title, double seconds = Patience);
    bool WaitUntilGone(WindowId window, double seconds = Patience);

    // Keys as xdotool names them: "Return", "shift+Tab". They go to whoever has the keyboard.
    void Key(const std::string& key);
    void KeyDown(const std::string& key);
    void KeyUp(const std::string& key);
    // Points relative to a window's place.
    void MoveMouse(WindowId window, int x, int y);
    // As a hand moves it. MoveMouse sets it, which programs that listen to the device itself notice late.
    void MoveMouseBy(int x, int y);
    void Click(WindowId window, int x, int y);
    void MouseDown();
    void MouseUp();
    // Press, move and release at once: a program may see the way as one jump, or only where it ended.
    void Drag(WindowId window, int fromX, int fromY, int toX, int toY);
    void MouseWheel(WindowId window, int steps); // up is negative

    // Asks a window to close, as the button in its title bar does.
    void Close(WindowId window);

    // What is to be seen: of the whole screen, or where a window is, with whatever lies above it.
    Screenshot Capture();
    Screenshot Capture(WindowId window);

    int width = 0;
    int height = 0;

private:
    bool StartServer(int screenWidth, int screenHeight);
    bool StartManager();
    bool ManagerManages();
    void XDo(const std::vector<std::string>& words);
    Screenshot Capture(WindowPlace place);

    // In the order in which they start, and end the other way round.
    std::unique_ptr<Process> server;
    std::unique_ptr<Process> manager;
    std::vector<std::unique_ptr<Process>> programs;
    std::string name; // ":7"
    void* display = nullptr;
};
