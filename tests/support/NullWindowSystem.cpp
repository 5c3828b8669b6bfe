// SPDX-License-Identifier: MIT
#include "tests/support/NullWindowSystem.h"

#include <cstdint>
#include <cstdio>

static NullWindows state;
static bool classRegistered = false;
static int screenToken, deviceToken; // what handles point at

static const int modeBits = 32; // the screen on paper has modes of any size, all of this depth

static void Log(const std::string& call)
{
    state.calls.push_back(call);
}

static std::string Words(const char* call, std::vector<int> numbers)
{
    std::string words = call;
    for (const int number : numbers)
        words += " " + std::to_string(number);
    return words;
}

NullWindows& NullWindowState()
{
    return state;
}

static bool RegisterClass(const char* name)
{
    Log(std::string("registerClass ") + name);
    if (classRegistered || state.refuseClass)
        return false;
    classRegistered = true;
    return true;
}

static bool SetDisplayMode(int width, int height, int bits)
{
    Log(Words("setDisplayMode", {width, height, bits}));
    if (state.refuseMode || bits != modeBits)
        return false;
    state.modeWidth = width;
    state.modeHeight = height;
    return true;
}

static void RestoreDisplayMode()
{
    Log("restoreDisplayMode");
    state.modeWidth = state.modeHeight = 0;
}

static void ShowCursor(bool visible)
{
    Log(Words("showCursor", {visible}));
    state.cursorVisible = visible;
}

static void GetScreenSize(int* width, int* height)
{
    *width = state.screenWidth;
    *height = state.screenHeight;
}

static void SetTitle(platform::WindowHandle, const char* text)
{
    snprintf(state.title, sizeof state.title, "%s", text);
    if (state.titleSet)
        state.titleSet();
}

static platform::WindowHandle CreateWindow(const platform::WindowDescription& description)
{
    Log(std::string("createWindow ") +
        Words(description.title, {description.x, description.y, description.width, description.height}));
    if (state.refuseWindow)
        return nullptr;
    state.last = description;
    state.last.title = nullptr;
    SetTitle(nullptr, description.title);
    state.windows++;
    return &screenToken;
}

static void ShowWindow(platform::WindowHandle)
{
    Log("showWindow");
}

static void DestroyWindow(platform::WindowHandle window)
{
    Log(window == &screenToken ? "destroyWindow" : "destroyWindow of another");
    state.windows--;
}

static platform::DeviceContext GetDeviceContext(platform::WindowHandle window)
{
    return window ? &deviceToken : nullptr;
}

// A handle is the context's number, so that contextSwitched can tell it.
static platform::ContextHandle CreateContext(platform::DeviceContext device, platform::ContextHandle)
{
    if (!device || state.refuseContext)
        return nullptr;
    state.contexts++;
    Log(Words("createContext", {state.contexts}));
    return reinterpret_cast<platform::ContextHandle>(intptr_t(state.contexts));
}

static bool MakeCurrent(platform::DeviceContext, platform::ContextHandle context)
{
    const int number = int(reinterpret_cast<intptr_t>(context));
    Log(Words("makeCurrent", {number}));
    if (number != 0 && number == state.refuseCurrent)
        return false;
    state.current = context;
    if (state.contextSwitched)
        state.contextSwitched(number);
    return true;
}

static platform::ContextHandle GetCurrentContext()
{
    return state.current;
}

static platform::DeviceContext GetCurrentDevice()
{
    return state.current ? &deviceToken : nullptr;
}

static void DeleteContext(platform::ContextHandle context)
{
    Log(Words("deleteContext", {int(reinterpret_cast<intptr_t>(context))}));
    state.deletedContexts += context != nullptr;
}

static void LoadExtensions()
{
    Log("loadExtensions");
}

static const char* GetExtensions(int what)
{
    return what == platform::ExtensionsOfGL ? state.glExtensions : state.systemExtensions;
}

static void SwapBuffers(platform::DeviceContext)
{
    platform::NotifyFrameObserver();
    state.swaps++;
}

static void ShutDown() {}

void UseNullWindows()
{
    static const platform::WindowSystem table = {
        RegisterClass,  SetDisplayMode, RestoreDisplayMode, ShowCursor,       GetScreenSize,
        CreateWindow,   ShowWindow,     DestroyWindow,      SetTitle,         GetDeviceContext,
        CreateContext,  MakeCurrent,    GetCurrentContext,  GetCurrentDevice, DeleteContext,
        LoadExtensions, GetExtensions,  SwapBuffers,        ShutDown,
    };
    state = NullWindows();
    classRegistered = false;
    platform::UseWindowSystem(table);
}
