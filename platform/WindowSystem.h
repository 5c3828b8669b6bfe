// SPDX-License-Identifier: MIT
// The window system as a table of function pointers: windows and GL contexts. A show uses SDL's, see
// SdlWindowSystem.h.
//
// Handles are opaque; a null handle means none. Main thread only.
#pragma once

namespace platform
{

typedef void* WindowHandle;
typedef void* DeviceContext; // what a GL context draws to: here the window itself
typedef void* ContextHandle;

struct WindowDescription {
    const char* title;
    int x, y; // top left corner of the client area on the screen, pixels
    int width, height;
    bool fullscreen; // exclusive, in the mode that setDisplayMode chose
    int colourBits;  // all channels together
    int alphaBits;
    int depthBits; // an upper limit: the display may offer only 24 or 16
};

struct WindowSystem {
    // Starts the system under this name. False on a second call in one process and without a display.
    bool (*registerClass)(const char* name);

    // Chooses a full-screen mode. False if the display doesn't have exactly this one. The mode is set when
    // the full-screen window is shown. It ends with that window, with restoreDisplayMode or with the process,
    // however that ends (see DisplayModeGuard.h).
    bool (*setDisplayMode)(int width, int height, int bits);
    void (*restoreDisplayMode)();

    void (*showCursor)(bool visible);
    void (*getScreenSize)(int* width, int* height); // pixels

    // A borderless window, hidden until showWindow. Null on failure.
    WindowHandle (*createWindow)(const WindowDescription& description);
    void (*showWindow)(WindowHandle window); // raises it and gives it the keyboard focus
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

    // The extensions of GL or of the window system, separated by blanks; `what` as below. May be null.
    const char* (*getExtensions)(int what);

    void (*swapBuffers)(DeviceContext device);

    void (*shutDown)(); // closes everything and restores the display mode
};

const int ExtensionsOfGL = 0;
const int ExtensionsOfWindowSystem = 1;

// The table in use: SDL's until another, which is borrowed, is put in its place.
const WindowSystem& Windows();
void UseWindowSystem(const WindowSystem& system);
void UseSdlWindows();

// The frame observer is called right before each swap, when the frame is finished and the window's context is
// current. Null removes it.
typedef void (*FrameObserver)(void* user);
void SetFrameObserver(FrameObserver observer, void* user);
void NotifyFrameObserver();

} // namespace platform
