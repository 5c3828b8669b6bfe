// SPDX-License-Identifier: MIT
// The one top-level window, the GL context that draws into it, and the operations that a frame is made of.
//
// Order of calls: constructor, Create once, then frames (IsRunning, the frame operations, PumpMessage), then
// Destroy, destructor. Main thread only; the window's context is current from Create on, except between
// RenderTarget::Begin and End.
#pragma once

#include "platform/Events.h"
#include "platform/WindowSystem.h"

enum WindowState {
    WindowClosed = 1,  // no window
    WindowRunning = 2, // the run goes on
    WindowQuit = 3     // a quit message was pumped
};

struct WindowSize {
    int width; // of the client area, pixels
    int height;
};

// What is known of the extensions beyond their names: nothing so far. One object for the process.
class ExtensionState
{
public:
    static const ExtensionState* GetInstance(); // made on first use
};

class GLWindow
{
public:
    GLWindow();
    ~GLWindow();

    // Opens the window, full screen in exactly this mode or centred on the screen; bits serves the display
    // mode alone. Makes the GL context and the 512 by 512 RenderTarget. False if the window can't be had or
    // one of the two extensions that the show insists on is missing; both are reported.
    bool Create(int width, int height, int bits, bool fullscreen);

    // Closes the window if a quit was pumped. In any other state nothing happens: the window of a show that
    // came to its natural end stays up until the process ends.
    void Destroy();

    // Handles at most one event, so that a backlog of n events takes n frames.
    void PumpMessage();

    // True from Create on, even if its last steps fail, until a quit message is pumped.
    bool IsRunning() const;

    // True if `name` is a whole word of GL's extension list. False for an empty name and one with a blank.
    bool IsExtensionSupported(const char* name) const;

    // The same for the window system's list, or GL's where it has none, but any name is searched for.
    bool IsWglExtensionSupported(const char* name) const;

    platform::WindowHandle GetWindowHandle() const;
    platform::ContextHandle GetContext() const; // always null
    platform::DeviceContext GetDeviceContext() const;
    const WindowSize* GetSize() const;

    // The band of the picture: s is its top edge as a fraction of the window's height, so that the bars are
    // 1 - s each. 1 is the whole window; 0.5 a height of 0; below that GL refuses and the old band stays.
    // Nothing restores an earlier band: it stays in force for all later layers and frames.
    void SetLetterbox(float s);

    // Resets the projection to a perspective with this vertical field of view in degrees, aspect 1.33, near
    // 0.1, far 2000, whatever the window's shape. Leaves the matrix mode at modelview, that matrix as it was.
    // Static, because most effects have no window to call it on.
    static void SetPerspective(float fovY);

    void ClearFrame();                // colour, depth, identity modelview
    static void ClearDepthAndReset(); // depth, identity modelview
    static void ClearDepth();
    void SwapBuffers();
    void SetTitle(const char* text);

private:
    static void HandleMessage(const platform::Event& event);

    int state; // WindowState
    WindowSize size;
    platform::WindowHandle windowHandle;

    // Stays null for the whole run, since Create keeps the context in a local variable.
    platform::ContextHandle glContext;
    platform::DeviceContext deviceContext;
    bool clearEnabled;                    // nothing ever switches it off
    const ExtensionState* extensionState; // null until Create has a context; nothing reads it
};

// Calls glViewport.
void SetViewport(int x, int y, int width, int height);
