// SPDX-License-Identifier: MIT
#include "display/GLWindow.h"

#include "display/RenderTarget.h"
#include "kernel/Report.h"
#include "platform/DebugChannel.h"

#include <GL/glew.h>

#include <GL/glu.h>
#include <cassert>
#include <cstring>

using platform::Windows;

static const char* const windowName = "marlinex";

static const int colourBits = 32; // independent of the display mode's bits
static const int alphaBits = 8;
static const int depthBits = 32;

static const int renderTargetSize = 512;

static const float perspectiveAspect = 1.33f;
static const float perspectiveNear = 0.1f;
static const float perspectiveFar = 2000.0f;

const ExtensionState* ExtensionState::GetInstance()
{
    static const ExtensionState instance;
    return &instance;
}

GLWindow::GLWindow()
    : state(WindowClosed), size{0, 0}, windowHandle(nullptr), glContext(nullptr), deviceContext(nullptr),
      clearEnabled(true), extensionState(nullptr)
{
}

GLWindow::~GLWindow()
{
    Destroy();
}

bool GLWindow::Create(int width, int height, int bits, bool fullscreen)
{
    if (!Windows().registerClass(windowName))
        return false;

    if (fullscreen && !Windows().setDisplayMode(width, height, bits)) {
        ReportError("Window", "Fullscreen not available!");
        platform::PostQuit(0);
        return false;
    }

    platform::WindowDescription description = {windowName, 0,          0,         width,    height,
                                               fullscreen, colourBits, alphaBits, depthBits};
    if (fullscreen) {
        Windows().showCursor(false);
    } else {
        int screenWidth, screenHeight;
        Windows().getScreenSize(&screenWidth, &screenHeight);
        description.x = screenWidth / 2 - width / 2;
        description.y = screenHeight / 2 - height / 2;
    }

    windowHandle = Windows().createWindow(description);
    if (!windowHandle) {
        ReportError("Window", "Error while creating window");
        platform::PostQuit(0);
        return false;
    }

    deviceContext = Windows().getDeviceContext(windowHandle);
    const platform::ContextHandle context = Windows().createContext(deviceContext, nullptr);
    Windows().makeCurrent(deviceContext, context);
    Windows().showWindow(windowHandle);
    size.width = width;
    size.height = height;
    Windows().loadExtensions();

    // From here on IsRunning is true, even if the rest fails.
    state = WindowRunning;
    extensionState = ExtensionState::GetInstance();

    if (!IsExtensionSupported("GL_ARB_point_sprite")) {
        ReportError("OGL Init", "GL_ARB_point_sprite is not supported");
        return false;
    }
    // The off-screen target needs framebuffer objects. The message names the older extension that they
    // replace.
    if (!IsWglExtensionSupported("GL_ARB_framebuffer_object")) {
        ReportError("OGL Init", "WGL_ARB_pbuffer is not supported");
        return false;
    }

    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glHint(GL_GENERATE_MIPMAP_HINT, GL_NICEST);
    RenderTarget::Create(this, renderTargetSize, renderTargetSize);
    return true;
}

void GLWindow::Destroy()
{
    if (state != WindowQuit)
        return;
    Windows().restoreDisplayMode(); // also in a windowed run, where this and the next call change nothing
    Windows().showCursor(true);
    Windows().makeCurrent(nullptr, nullptr);
    // No context is current after the line above, so this call deletes none: the context lives until the
    // process ends. That is intended, because the textures of the show are deleted later than the window.
    Windows().deleteContext(Windows().getCurrentContext());
    Windows().destroyWindow(windowHandle);
    windowHandle = nullptr;
    glContext = nullptr;
    deviceContext = nullptr;
    state = WindowClosed;
}

void GLWindow::PumpMessage()
{
    const platform::Event event = platform::TakeEvent();
    HandleMessage(event);
    if (event.kind == platform::EventQuit)
        state = WindowQuit;
}

void GLWindow::HandleMessage(const platform::Event& event)
{
    // All other keys are ignored.
    if (event.kind == platform::EventKeyDown && event.key == platform::KeyEscape)
        platform::PostQuit(0);
}

bool GLWindow::IsRunning() const
{
    return state == WindowRunning;
}

// Returns whether the name of this length at `occurrence` is a whole word of a list separated by blanks.
static bool IsWholeWord(const char* list, const char* occurrence, size_t length)
{
    const char behind = occurrence[length];
    return (occurrence == list || occurrence[-1] == ' ') && (behind == ' ' || behind == '\0');
}

bool GLWindow::IsExtensionSupported(const char* name) const
{
    assert(name);
    if (*name == '\0' || strchr(name, ' '))
        return false;
    const char* list = Windows().getExtensions(platform::ExtensionsOfGL);
    platform::OutputDebugText(list);
    if (!list)
        return false;
    const size_t length = strlen(name);
    for (const char* place = list; (place = strstr(place, name)); place += length)
        if (IsWholeWord(list, place, length))
            return true;
    return false;
}

bool GLWindow::IsWglExtensionSupported(const char* name) const
{
    const char* list = Windows().getExtensions(platform::ExtensionsOfWindowSystem);
    if (!list)
        list = Windows().getExtensions(platform::ExtensionsOfGL);
    if (!list)
        return false;
    // Unlike IsExtensionSupported, accept any name and continue the search at the next character. An empty
    // name is a whole word at the start of an empty list and between two blanks.
    const size_t length = strlen(name);
    for (const char* place = list; (place = strstr(place, name)); place++) {
        if (IsWholeWord(list, place, length))
            return true;
        if (*place == '\0') // an empty name also occurs at the end of the list
            return false;
    }
    return false;
}

platform::WindowHandle GLWindow::GetWindowHandle() const
{
    return windowHandle;
}

platform::ContextHandle GLWindow::GetContext() const
{
    return glContext;
}

platform::DeviceContext GLWindow::GetDeviceContext() const
{
    return deviceContext;
}

const WindowSize* GLWindow::GetSize() const
{
    return &size;
}

void GLWindow::SetLetterbox(float s)
{
    // Computed in double: in float the band would lose a line at several heights.
    const double h = size.height;
    const double edge = s;
    SetViewport(0, int(h * (1 - edge)), size.width, int(h * edge - h * (1 - edge)));
}

void GLWindow::SetPerspective(float fovY)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(fovY, perspectiveAspect, perspectiveNear, perspectiveFar);
    glMatrixMode(GL_MODELVIEW);
}

void GLWindow::ClearFrame()
{
    if (!clearEnabled)
        return;
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void GLWindow::ClearDepthAndReset()
{
    ClearDepth();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void GLWindow::ClearDepth()
{
    glClear(GL_DEPTH_BUFFER_BIT);
}

void GLWindow::SwapBuffers()
{
    Windows().swapBuffers(deviceContext);
}

void GLWindow::SetTitle(const char* text)
{
    Windows().setTitle(windowHandle, text);
}

void SetViewport(int x, int y, int width, int height)
{
    glViewport(x, y, width, height);
}
