// SPDX-License-Identifier: MIT
// The window of a tool: SDL, OpenGL and Dear ImGui with the show's palette, sharp on dense screens.
//
//     platform::ToolWindow window;
//     if (!window.Open(settings, &reason))
//         return line.Fail(reason);
//     while (!window.TakeCloseRequest()) {
//         window.WaitEvents(0.1);
//         window.BeginFrame();
//         ... ImGui ...
//         window.EndFrame();
//     }
//
// One window per process. Everything but Wake belongs to the main thread.
#pragma once

#include "platform/toolwindow/KeptFrame.h"
#include "platform/toolwindow/KeyPress.h"

#include <string>
#include <vector>

namespace platform
{

struct ToolWindowSettings {
    std::string program; // names the window's class for the desktop
    std::string title;
    int width = 1280; // pixels of the design; the window is as much larger as the screen is denser
    int height = 800;
    bool maximised = false;
};

class ToolWindow
{
public:
    ToolWindow() = default;
    ~ToolWindow(); // closes it
    ToolWindow(const ToolWindow&) = delete;
    ToolWindow& operator=(const ToolWindow&) = delete;

    // False without a display, or one without OpenGL: *reason says so in a sentence without a full stop.
    bool Open(const ToolWindowSettings& settings, std::string* reason);
    void Close();

    // Waits until something happens in the window or Wake is called, so many seconds at most, and takes all of it.
    // True if there was something that a frame should be drawn for.
    bool WaitEvents(double seconds);

    // Ends a WaitEvents that waits, or the next one. From any thread.
    static void Wake();

    // Around the ImGui calls of a frame. MouseClickedPos of ImGui's IO is where a button went down, although MousePos may
    // be further on the way by the time of the frame.
    void BeginFrame();
    void EndFrame();

    // What has come since the last call.
    std::vector<KeyPress> TakeKeys();
    std::vector<std::string> TakeDroppedFiles(); // paths
    bool TakeCloseRequest();                     // the close button of the title bar
    bool TakeFocusGained();
    bool EndRequested() const { return endRequested; } // SIGINT or SIGTERM: the process is to end soon

    void SetTitle(const std::string& text); // costs nothing if it is the one that is shown
    void SetFullScreen(bool full);

    // Pixels of ImGui's coordinates per pixel of the design: every size is multiplied by it. 1 to 4.
    float Scale() const { return scale; }

    // Of the window while it is neither maximised nor full screen, for the next start.
    int DesignWidth() const { return designWidth; }
    int DesignHeight() const { return designHeight; }
    bool IsMaximised() const;

private:
    bool OpenGL(std::string* reason);
    void DrawUnseen();
    void TakeEvent(const void* event); // an SDL_Event

    void* window = nullptr;  // SDL_Window
    void* context = nullptr; // SDL_GLContext
    KeptFrame keptFrame;
    std::string shownTitle;
    float scale = 1;
    int designWidth = 0, designHeight = 0;
    bool fullScreen = false;
    bool closeRequested = false;
    bool focusGained = false;
    bool endRequested = false;
    bool eventWaits = false; // for the next frame
    struct ButtonPress {
        bool isNew = false;
        float x = 0, y = 0;
    };
    ButtonPress presses[3]; // by ImGui's numbers of the buttons
    std::vector<KeyPress> keys;
    std::vector<std::string> droppedFiles;
};

} // namespace platform
