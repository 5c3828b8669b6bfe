// SPDX-License-Identifier: MIT
#include "platform/SdlWindowSystem.h"

#include "platform/DebugChannel.h"
#include "platform/DisplayModeGuard.h"
#include "platform/GLDebug.h"
#include "platform/Threads.h"

#include <GL/glew.h>
#include <SDL.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace platform
{

static bool classRegistered = false;
static SDL_Window* shownWindow = nullptr;
static SDL_DisplayMode chosenMode;
static bool modeChosen = false;
static std::string shownTitle;

// The event filter of SDL's queue. A frame takes one event, so mouse motion and other events without a use
// are kept out: they would delay Escape.
static int KeepEvent(void*, SDL_Event* event)
{
    switch (event->type) {
    case SDL_QUIT:
    case SDL_KEYDOWN:
        return 1;
    case SDL_WINDOWEVENT:
        return event->window.event == SDL_WINDOWEVENT_EXPOSED;
    default:
        return 0;
    }
}

// Writes to the debug channel what failed, with SDL's error message.
static void TraceFailure(const char* what)
{
    OutputDebugText((std::string(what) + " failed: " + SDL_GetError() + "\n").c_str());
}

static bool RegisterClass(const char* name)
{
    if (classRegistered)
        return false;
    SDL_SetHint(SDL_HINT_APP_NAME, name);
    setenv("SDL_VIDEO_X11_WMCLASS", name, 0);
    setenv("SDL_VIDEO_WAYLAND_WMCLASS", name, 0);
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");          // a close request must not end the show
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");       // message boxes take the focus
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0"); // message boxes need compositing
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        TraceFailure("Starting the window system");
        return false;
    }
    SDL_DisableScreenSaver();
    SDL_SetEventFilter(KeepEvent, nullptr);
    classRegistered = true;
    return true;
}

static bool SetDisplayMode(int width, int height, int bits)
{
    for (int i = 0; i < SDL_GetNumDisplayModes(0); i++) {
        SDL_DisplayMode mode;
        if (SDL_GetDisplayMode(0, i, &mode) != 0 || mode.w != width || mode.h != height)
            continue;
        // X11 reports a screen of 32 bits per pixel with a depth of 24.
        if (SDL_BITSPERPIXEL(mode.format) < (bits == 32 ? 24u : unsigned(bits)))
            continue;
        chosenMode = mode;
        modeChosen = true;
        if (SDL_strcmp(SDL_GetCurrentVideoDriver(), "x11") == 0) // others restore it with the process
            StartDisplayModeGuard();
        return true;
    }
    return false;
}

static void RestoreDisplayMode()
{
    modeChosen = false;
    if (shownWindow)
        SDL_SetWindowFullscreen(shownWindow, 0);
    EndDisplayModeGuard();
}

static void ShowCursor(bool visible)
{
    SDL_ShowCursor(visible ? SDL_ENABLE : SDL_DISABLE);
}

static void GetScreenSize(int* width, int* height)
{
    SDL_Rect bounds = {0, 0, 0, 0};
    SDL_GetDisplayBounds(0, &bounds);
    *width = bounds.w;
    *height = bounds.h;
}

// A software driver starts a thread for each processor when it makes its first context, and waits for ever for
// those that the system has refused it. It keeps a few more for its caches.
static bool HasRoomForDriver()
{
    const int otherThreads = 4;
    if (CanStartThreads(SDL_GetCPUCount() + otherThreads))
        return true;
    SDL_SetError("the system refuses more threads");
    return false;
}

static WindowHandle CreateWindow(const WindowDescription& description)
{
    if (!HasRoomForDriver()) {
        TraceFailure("Creating the window");
        return nullptr;
    }
    const int channelBits = description.colourBits / 4;
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, channelBits);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, channelBits);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, channelBits);
    SDL_GL_SetAttribute(SDL_GL_ALPHA_SIZE, description.alphaBits);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 0);
#ifdef MARLINEX_DEBUG_GL
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_FLAGS, SDL_GL_CONTEXT_DEBUG_FLAG);
#endif
    // ShowWindow shows the window and makes it full screen, so that the mode changes no earlier than that.
    const Uint32 flags = SDL_WINDOW_OPENGL | SDL_WINDOW_BORDERLESS | SDL_WINDOW_HIDDEN;
    SDL_Window* window = nullptr;
    for (int depth = description.depthBits; depth >= 16 && !window; depth -= 8) {
        SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, depth);
        window = SDL_CreateWindow(description.title, description.x, description.y, description.width,
                                  description.height, flags);
    }
    if (!window) {
        TraceFailure("Creating the window");
        return nullptr;
    }
    if (description.fullscreen && modeChosen)
        SDL_SetWindowDisplayMode(window, &chosenMode);
    shownTitle = description.title;
    shownWindow = window;
    return window;
}

static void ShowWindow(WindowHandle handle)
{
    SDL_Window* window = static_cast<SDL_Window*>(handle);
    SDL_ShowWindow(window);
    if (modeChosen && SDL_SetWindowFullscreen(window, SDL_WINDOW_FULLSCREEN) != 0)
        TraceFailure("Changing the display mode");
    SDL_RaiseWindow(window);
    SDL_SetWindowInputFocus(window);
}

static void DestroyWindow(WindowHandle window)
{
    if (window == shownWindow)
        shownWindow = nullptr;
    SDL_DestroyWindow(static_cast<SDL_Window*>(window));
}

static void SetTitle(WindowHandle window, const char* text)
{
    if (!window || shownTitle == text) // each change sends a request to the display
        return;
    shownTitle = text;
    SDL_SetWindowTitle(static_cast<SDL_Window*>(window), text);
}

static DeviceContext GetDeviceContext(WindowHandle window)
{
    return window;
}

static ContextHandle CreateContext(DeviceContext device, ContextHandle share)
{
    if (!device)
        return nullptr;
    SDL_GL_SetAttribute(SDL_GL_SHARE_WITH_CURRENT_CONTEXT, share ? 1 : 0);
    SDL_Window* window = static_cast<SDL_Window*>(device);
    // SDL_GL_CreateContext makes the new context current, so restore the one that was.
    SDL_Window* const oldWindow = SDL_GL_GetCurrentWindow();
    const SDL_GLContext oldContext = SDL_GL_GetCurrentContext();
    if (share && oldContext != share)
        SDL_GL_MakeCurrent(window, share);
    const SDL_GLContext context = SDL_GL_CreateContext(window);
    if (context)
        ReportGLErrors();
    else
        TraceFailure("Creating a GL context");
    SDL_GL_MakeCurrent(oldContext ? oldWindow : window, oldContext);
    return context;
}

static bool MakeCurrent(DeviceContext device, ContextHandle context)
{
    if (device && device != shownWindow) // a destroyed window, whose memory SDL would read
        return false;
    if (SDL_GL_MakeCurrent(static_cast<SDL_Window*>(device), context) == 0)
        return true;
    TraceFailure("Making a GL context current");
    return false;
}

static ContextHandle GetCurrentContext()
{
    return SDL_GL_GetCurrentContext();
}

static DeviceContext GetCurrentDevice()
{
    return SDL_GL_GetCurrentContext() ? SDL_GL_GetCurrentWindow() : nullptr;
}

static void DeleteContext(ContextHandle context)
{
    if (context)
        SDL_GL_DeleteContext(context);
}

static void LoadExtensions()
{
    // The result is ignored: on EGL, Wayland and the offscreen driver glewInit returns an error although it
    // has loaded the functions. Callers check the pointers of the functions that they need.
    glewInit();
    SDL_GL_SetSwapInterval(1);
}

static const char* GetExtensions(int what)
{
    if (!SDL_GL_GetCurrentContext())
        return nullptr;
    if (what == ExtensionsOfGL)
        return reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    // SDL has no extension list. Framebuffer objects, which the off-screen target uses, are in GL's list.
    return nullptr;
}

static void SwapBuffers(DeviceContext device)
{
    NotifyFrameObserver();
    if (device)
        SDL_GL_SwapWindow(static_cast<SDL_Window*>(device));
}

static void ShutDown()
{
    if (!classRegistered)
        return;
    shownWindow = nullptr;
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    EndDisplayModeGuard();
}

const WindowSystem& SdlWindowSystem()
{
    static const WindowSystem table = {
        RegisterClass,  SetDisplayMode, RestoreDisplayMode, ShowCursor,       GetScreenSize,
        CreateWindow,   ShowWindow,     DestroyWindow,      SetTitle,         GetDeviceContext,
        CreateContext,  MakeCurrent,    GetCurrentContext,  GetCurrentDevice, DeleteContext,
        LoadExtensions, GetExtensions,  SwapBuffers,        ShutDown,
    };
    return table;
}

} // namespace platform
