// SPDX-License-Identifier: MIT
#include "platform/toolwindow/ToolWindow.h"

#include "platform/Screen.h"
#include "platform/toolwindow/PictureTexture.h"
#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "platform/toolwindow/XErrors.h"

#include <SDL.h>
#include <SDL_opengl.h>
#include <backends/imgui_impl_opengl2.h>
#if __has_include(<backends/imgui_impl_sdl2.h>) // its name since 1.89
#include <backends/imgui_impl_sdl2.h>
#else
#include <backends/imgui_impl_sdl.h>
#endif
#include <imgui.h>
#include <imgui_internal.h> // for the darkness behind dialogs

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace platform
{

static const int smallestWidth = 640; // pixels of the design
static const int smallestHeight = 480;
static const float frameRoom = 48; // pixels of the design, for the title bar and the edge at the bottom

static SDL_Window* Sdl(void* window)
{
    return static_cast<SDL_Window*>(window);
}

static Uint32 WakeEvent()
{
    static const Uint32 type = SDL_RegisterEvents(1);
    return type;
}

ToolWindow::~ToolWindow()
{
    Close();
}

static bool StartVideo(const std::string& program, std::string* reason)
{
    // Without a display SDL would open its offscreen driver in silence.
    const char* const wayland = getenv("WAYLAND_DISPLAY");
    if (!HasDisplay() && (!wayland || !*wayland)) {
        *reason = "there is no display to open a window on";
        return false;
    }
    SDL_SetHint(SDL_HINT_APP_NAME, program.c_str());
    setenv("SDL_VIDEO_X11_WMCLASS", program.c_str(), 0);
    setenv("SDL_VIDEO_WAYLAND_WMCLASS", program.c_str(), 0);
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0"); // SDL_QUIT is then a signal, and nothing else
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    IgnoreXErrors(); // SDL has a handler of its own, and puts this one back when it ends
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        *reason = std::string("the display can't be used: ") + SDL_GetError();
        return false;
    }
    SDL_EnableScreenSaver();
    SDL_EventState(SDL_DROPFILE, SDL_ENABLE);
    WakeEvent();
    return true;
}

bool ToolWindow::Open(const ToolWindowSettings& settings, std::string* reason)
{
    if (!StartVideo(settings.program, reason))
        return false;
    scale = ScreenScale();
    SDL_Rect usable = {0, 0, 1024, 768};
    SDL_GetDisplayUsableBounds(0, &usable);
    designWidth = std::max(settings.width, smallestWidth);
    designHeight = std::max(settings.height, smallestHeight);
    const int width = int(float(designWidth) * scale), height = int(float(designHeight) * scale);
    // The frame that the window manager puts around a window belongs on the screen too. How thick it is shows only
    // when the window is there, so that a window which might not fit starts as one that certainly does.
    const int frame = int(frameRoom * scale);
    const bool fits = width + frame / 2 <= usable.w && height + frame <= usable.h;

    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 0);
    Uint32 flags = SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI;
    // A Wayland compositor ends a client whose maximised window has not the size that it was told, and SDL knows that
    // size only when the window is there.
    const bool maximised = settings.maximised || !fits;
    const bool onWayland = SDL_strcmp(SDL_GetCurrentVideoDriver(), "wayland") == 0;
    if (maximised && !onWayland)
        flags |= SDL_WINDOW_MAXIMIZED;
    shownTitle = settings.title;
    window =
        SDL_CreateWindow(settings.title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                         std::min(width, usable.w - frame / 2), std::min(height, usable.h - frame), flags);
    if (!window) {
        *reason = std::string("the display has no window with OpenGL for us: ") + SDL_GetError();
        Close();
        return false;
    }
    SDL_SetWindowMinimumSize(Sdl(window), std::min(int(float(smallestWidth) * scale), usable.w),
                             std::min(int(float(smallestHeight) * scale), usable.h));
    if (!OpenGL(reason)) {
        Close();
        return false;
    }
    if (maximised && onWayland)
        SDL_MaximizeWindow(Sdl(window));
    return true;
}

// Everything but pictures is drawn with the texture of the glyphs, plain areas with a white spot of it. A software
// rasteriser takes most of its time for reading it with a linear filter, which changes nothing where each texel falls
// on a pixel. Lines out of the texture would need the filter.
static void ReadGlyphsWithoutFilter()
{
    ImGui::GetStyle().AntiAliasedLinesUseTex = false;
    ImGui_ImplOpenGL2_CreateDeviceObjects();
    glBindTexture(GL_TEXTURE_2D, GLuint(reinterpret_cast<uintptr_t>(ImGui::GetIO().Fonts->TexID)));
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
}

// OpenGL leaves it open what the back buffer holds after a swap. A software rasteriser copies it to the window, and one that
// exchanges buffers has at most four: so many swaps tell. The colours are next to black.
static bool SwapLeavesBackBuffer(SDL_Window* window)
{
    static const int maxBuffers = 4;
    for (int blue = 1; blue <= maxBuffers; blue++) {
        glClearColor(0, 0, float(blue) / 255, 1);
        glClear(GL_COLOR_BUFFER_BIT);
        SDL_GL_SwapWindow(window);
        unsigned char pixel[4] = {};
        glReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
        if (pixel[0] != 0 || pixel[1] != 0 || pixel[2] != blue)
            return false;
    }
    return true;
}

bool ToolWindow::OpenGL(std::string* reason)
{
    context = SDL_GL_CreateContext(Sdl(window));
    if (!context) {
        *reason = std::string("OpenGL doesn't start on this display: ") + SDL_GetError();
        return false;
    }
    SDL_GL_SetSwapInterval(1);

    ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr; // what is remembered is the tool's to write
    io.LogFilename = nullptr;
    io.ConfigWindowsMoveFromTitleBarOnly = true;
    // A window manager that counts in points (Wayland) has more pixels than those: the glyphs get them all.
    int pointsWide = 1, pointsHigh = 1, pixelsWide = 1, pixelsHigh = 1;
    SDL_GetWindowSize(Sdl(window), &pointsWide, &pointsHigh);
    SDL_GL_GetDrawableSize(Sdl(window), &pixelsWide, &pixelsHigh);
    const float density = pointsWide > 0 ? float(pixelsWide) / float(pointsWide) : 1;
    SetToolStyle(scale);
    LoadToolFonts(scale * density);
    io.FontGlobalScale = 1 / density;
    ImGui_ImplSDL2_InitForOpenGL(Sdl(window), context);
    ImGui_ImplOpenGL2_Init();
    if (density == std::floor(density))
        ReadGlyphsWithoutFilter();
    keptFrame.Open(ToolTint(showcolours::Ink));
    if (keptFrame.Keeps() && SwapLeavesBackBuffer(Sdl(window)))
        keptFrame.KeepInBackBuffer();
    DrawUnseen();
    return true;
}

// A software rasteriser compiles machine code for each combination of states when it is drawn with for the first time, and
// takes about a tenth of a second for those of a window. That shall be over before anybody waits for an answer: what
// frames consist of is drawn here, as a whole and in a part of the window, and not shown.
void ToolWindow::DrawUnseen()
{
    const unsigned char pixels[16] = {};
    PictureTexture picture;
    picture.Upload(2, 2, pixels);
    for (int i = 0; i < 10 && (i < 2 || keptFrame.DrawnShare() == 1); i++) {
        BeginFrame();
        ImDrawList* const list = ImGui::GetBackgroundDrawList();
        list->AddRectFilled(ImVec2(8, 8), ImVec2(40, 40), ToolColour(showcolours::Amber), 4);
        list->AddLine(ImVec2(8, 8), ImVec2(40, 30), ToolColour(showcolours::Amber));
        list->AddText(ImVec2(8, 8), ToolColour(showcolours::Bone), std::to_string(i).c_str());
        picture.Draw(list, ImVec2(48, 8), ImVec2(58, 18));
        ImGui::Render();
        keptFrame.Draw(ImGui::GetDrawData());
    }
    glFinish();
    keptFrame.Forget();
}

void ToolWindow::Close()
{
    if (context) {
        keptFrame.Close();
        ImGui_ImplOpenGL2_Shutdown();
        ImGui_ImplSDL2_Shutdown();
        ImGui::DestroyContext();
        SDL_GL_DeleteContext(context);
        context = nullptr;
    }
    if (window) {
        SDL_DestroyWindow(Sdl(window));
        window = nullptr;
    }
    if (SDL_WasInit(SDL_INIT_VIDEO))
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

// Events

void ToolWindow::TakeEvent(const void* sdlEvent)
{
    const SDL_Event& event = *static_cast<const SDL_Event*>(sdlEvent);
    ImGui_ImplSDL2_ProcessEvent(&event);
    switch (event.type) {
    case SDL_QUIT:
        endRequested = true;
        break;
    case SDL_KEYDOWN:
        keys.push_back(PressOf(event.key));
        if (keys.back().key == KeyNone)
            keys.pop_back();
        break;
    case SDL_MOUSEBUTTONDOWN: {
        static const int numbers[] = {-1, ImGuiMouseButton_Left, ImGuiMouseButton_Middle,
                                      ImGuiMouseButton_Right};
        if (event.button.button >= SDL_BUTTON_LEFT && event.button.button <= SDL_BUTTON_RIGHT)
            presses[numbers[event.button.button]] = {true, float(event.button.x), float(event.button.y)};
        break;
    }
    case SDL_DROPFILE:
        droppedFiles.push_back(event.drop.file);
        SDL_free(event.drop.file);
        break;
    case SDL_WINDOWEVENT:
        switch (event.window.event) {
        case SDL_WINDOWEVENT_SIZE_CHANGED:
            keptFrame.Forget();
            break;
        case SDL_WINDOWEVENT_SHOWN:
        case SDL_WINDOWEVENT_EXPOSED:
        case SDL_WINDOWEVENT_RESTORED:
            keptFrame.Expose();
            break;
        default:
            break;
        }
        if (event.window.event == SDL_WINDOWEVENT_CLOSE)
            closeRequested = true;
        if (event.window.event == SDL_WINDOWEVENT_FOCUS_GAINED)
            focusGained = true;
        if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED && !fullScreen && !IsMaximised()) {
            designWidth = int(std::lround(float(event.window.data1) / scale));
            designHeight = int(std::lround(float(event.window.data2) / scale));
        }
        break;
    default:
        break;
    }
}

// ImGui looks at keys once a frame. A key that goes down and up between two frames would be lost, so its going up
// waits for the next frame, and all that came after it.
static bool EndsPress(const SDL_Event& event, const std::vector<SDL_Scancode>& pressed)
{
    return event.type == SDL_KEYUP &&
           std::find(pressed.begin(), pressed.end(), event.key.keysym.scancode) != pressed.end();
}

bool ToolWindow::WaitEvents(double seconds)
{
    static SDL_Event waiting;
    SDL_Event event;
    if (std::exchange(eventWaits, false))
        event = waiting;
    else if (!SDL_WaitEventTimeout(&event, std::max(int(seconds * 1000), 0)))
        return false;
    std::vector<SDL_Scancode> pressed;
    do {
        if (EndsPress(event, pressed)) {
            waiting = event;
            eventWaits = true;
            break;
        }
        if (event.type == SDL_KEYDOWN)
            pressed.push_back(event.key.keysym.scancode);
        TakeEvent(&event);
    } while (SDL_PollEvent(&event));
    return true;
}

void ToolWindow::Wake()
{
    SDL_Event event = {};
    event.type = WakeEvent();
    SDL_PushEvent(&event);
}

void ToolWindow::BeginFrame()
{
    ImGui_ImplOpenGL2_NewFrame();
    ImGui_ImplSDL2_NewFrame();
    // The backend asks for the pointer's place on the whole screen. Under X11 SDL learns of that from the devices alone,
    // and so misses a pointer that a program has moved; the window is told of every motion.
    if (SDL_GetMouseFocus() == Sdl(window)) {
        int x = 0, y = 0;
        SDL_GetMouseState(&x, &y);
        ImGui::GetIO().MousePos = ImVec2(float(x), float(y));
    }
    ImGui::NewFrame();
    // Behind a dialog the window is dark at once: each step of a transition would draw all of it anew.
    ImGuiContext& gui = *ImGui::GetCurrentContext();
    gui.DimBgRatio = ImGui::GetTopMostPopupModal() || gui.NavWindowingTarget ? 1.0f : 0.0f;
    for (int i = 0; i < 3; i++) {
        if (presses[i].isNew)
            ImGui::GetIO().MouseClickedPos[i] = ImVec2(presses[i].x, presses[i].y);
        presses[i].isNew = false;
    }
}

void ToolWindow::EndFrame()
{
    ImGui::Render();
    if (keptFrame.Draw(ImGui::GetDrawData()))
        SDL_GL_SwapWindow(Sdl(window));
}

std::vector<KeyPress> ToolWindow::TakeKeys()
{
    std::vector<KeyPress> taken;
    taken.swap(keys);
    return taken;
}

std::vector<std::string> ToolWindow::TakeDroppedFiles()
{
    std::vector<std::string> taken;
    taken.swap(droppedFiles);
    return taken;
}

bool ToolWindow::TakeCloseRequest()
{
    return std::exchange(closeRequested, false);
}

bool ToolWindow::TakeFocusGained()
{
    return std::exchange(focusGained, false);
}

void ToolWindow::SetTitle(const std::string& text)
{
    if (text == shownTitle) // each change is a request to the display
        return;
    shownTitle = text;
    SDL_SetWindowTitle(Sdl(window), text.c_str());
}

void ToolWindow::SetFullScreen(bool full)
{
    if (full == fullScreen)
        return;
    fullScreen = full;
    SDL_SetWindowFullscreen(Sdl(window), full ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
}

bool ToolWindow::IsMaximised() const
{
    return (SDL_GetWindowFlags(Sdl(window)) & SDL_WINDOW_MAXIMIZED) != 0;
}

} // namespace platform
