// SPDX-License-Identifier: MIT
// Windows and GL contexts, as a table of plain functions. The one that a show uses is SDL's
// (SdlWindowSystem).
//
// Handles are opaque; null is none. Main thread only.
#pragma once

namespace platform
{

typedef void* WindowHandle;
typedef void* DeviceContext; // what a GL context draws to; here one with the window that it belongs to
typedef void* ContextHandle;

struct WindowDescription {
    const char* title;
    int x, y; // of the client area on the screen, pixels
    int width, height;
    bool fullscreen; // exclusive, in the mode that SetDisplayMode chose
    int colourBits;  // all channels together
    int alphaBits;
    int depthBits; // the deepest of 32, 24, 16 up to this that the display has
};

struct WindowSystem {
    // Starts the system and takes the name for this process. False the second time, and without a display.
    bool (*registerClass)(const char* name);

    // Chooses a full-screen mode. False if the display hasn't exactly this one. It takes force when the
    // full-screen window appears and ends with it, with restoreDisplayMode, or with the process, whatever way
    // that ends (see DisplayModeGuard.h).
    bool (*setDisplayMode)(int width, int height, int bits);
    void (*restoreDisplayMode)();

    void (*showCursor)(bool visible);
    void (*getScreenSize)(int* width, int* height); // pixels

    // A borderless window, hidden until showWindow. Null on failure.
    WindowHandle (*createWindow)(const WindowDescription& description);
    void (*showWindow)(WindowHandle window); // shows it, in front, with the keyboard
    void (*destroyWindow)(WindowHandle window);
    void (*setTitle)(WindowHandle window, const char* text); // cheap when the text is the same as before

    DeviceContext (*getDeviceContext)(WindowHandle window);

    // A GL context for the device, sharing textures, display lists and programs with `share` (null: none).
    ContextHandle (*createContext)(DeviceContext device, ContextHandle share);
    bool (*makeCurrent)(DeviceContext device, ContextHandle context); // nulls release it
    ContextHandle (*getCurrentContext)();
    DeviceContext (*getCurrentDevice)();
    void (*deleteContext)(ContextHandle context); // null does nothing

    // Loads the extension entry points for the current context.
    void (*loadExtensions)();

    // The extensions of GL (what 0) and of the off-screen facility (what 1), divided by blanks; may be null.
    const char* (*getExtensions)(int what);

    void (*swapBuffers)(DeviceContext device);

    void (*shutDown)(); // ends it all, restores the display mode
};

const int ExtensionsOfGL = 0;
const int ExtensionsOfWindowSystem = 1;

// The table in use: SDL's until another, which is borrowed, is put in its place.
const WindowSystem& Windows();
void UseWindowSystem(const WindowSystem& system);
void UseSdlWindows();

// The frame observer sees each finished frame: it is called at the swap, ahead of it, with the window's
// context current. Null takes it off again.
typedef void (*FrameObserver)(void* user);
void SetFrameObserver(FrameObserver observer, void* user);
void NotifyFrameObserver();

} // namespace platform
