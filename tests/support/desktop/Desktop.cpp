// SPDX-License-Identifier: MIT
#include "tests/support/desktop/Desktop.h"

#include "tests/Folders.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xrandr.h>

#include <cstring>

static Display* X(void* display)
{
    return static_cast<Display*>(display);
}

// Windows come and go between two questions; an answer that can't be had is seen in the result.
static int IgnoreError(Display*, XErrorEvent*)
{
    return 0;
}

static std::string ReadText(Display* display, Window window, const char* property)
{
    Atom type;
    int format;
    unsigned long count, left;
    unsigned char* data = nullptr;
    std::string text;
    if (XGetWindowProperty(display, window, XInternAtom(display, property, False), 0, 1024, False,
                           AnyPropertyType, &type, &format, &count, &left, &data) == Success &&
        data && format == 8)
        text.assign(reinterpret_cast<char*>(data), count);
    if (data)
        XFree(data);
    return text;
}

// A property of atoms, windows or numbers.
static std::vector<unsigned long> ReadNumbers(Display* display, Window window, const char* property)
{
    Atom type;
    int format;
    unsigned long count, left;
    unsigned char* data = nullptr;
    std::vector<unsigned long> numbers;
    if (XGetWindowProperty(display, window, XInternAtom(display, property, False), 0, 1024, False,
                           AnyPropertyType, &type, &format, &count, &left, &data) == Success &&
        data && format == 32)
        numbers.assign(reinterpret_cast<unsigned long*>(data),
                       reinterpret_cast<unsigned long*>(data) + count);
    if (data)
        XFree(data);
    return numbers;
}

static bool IsOnScreen(Display* display, Window window)
{
    XWindowAttributes attributes;
    return XGetWindowAttributes(display, window, &attributes) && attributes.map_state == IsViewable;
}

// Starting and ending

bool Desktop::Start(int screenWidth, int screenHeight, Manager wanted)
{
    const int attempts = 3;
    for (int i = 0; i < attempts && !display; ++i)
        if (StartServer(screenWidth, screenHeight))
            display = XOpenDisplay(name.c_str());
    if (!display)
        return false;
    XSetErrorHandler(IgnoreError);
    width = screenWidth;
    height = screenHeight;
    return wanted == WithoutWindowManager || StartManager();
}

bool Desktop::StartServer(int screenWidth, int screenHeight)
{
    server = std::make_unique<Process>();
    const std::string screen = std::to_string(screenWidth) + "x" + std::to_string(screenHeight) + "x24";
    // The server looks for a free number itself and prints it when it is ready.
    if (!server->Start({"Xvfb", "-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp", "-noreset"}))
        return false;
    if (!WaitUntil(
            [&] { return server->Output().find('\n') != std::string::npos || !server->IsRunning(); }) ||
        !server->IsRunning())
        return false;
    const std::string output = server->Output();
    name.assign(1, ':').append(output, 0, output.find('\n'));
    return true;
}

bool Desktop::StartManager()
{
    manager = std::make_unique<Process>();
    if (!manager->Start(
            {"openbox", "--sm-disable", "--config-file", SOURCE_DIR "/tests/support/desktop/openbox.xml"},
            Environment()))
        return false;
    return WaitUntil([this] { return ManagerManages(); });
}

// The manager announces itself before it is ready, and a window that comes up in between may get lost: so
// show it one and see.
bool Desktop::ManagerManages()
{
    const double longEnough = 0.5; // seconds
    Display* const x = X(display);
    const Window probe = XCreateSimpleWindow(x, DefaultRootWindow(x), 0, 0, 1, 1, 0, 0, 0);
    XMapWindow(x, probe);
    const bool managed = WaitUntil(
        [&] { return IsOnScreen(x, probe) && !ReadNumbers(x, probe, "WM_STATE").empty(); }, longEnough);
    XDestroyWindow(x, probe);
    XSync(x, False);
    return managed;
}

Desktop::~Desktop()
{
    while (!programs.empty())
        programs.pop_back();
    if (display)
        XCloseDisplay(X(display));
    manager.reset();
    server.reset();
}

// The screen's modes

static std::string ModeName(int modeWidth, int modeHeight)
{
    return std::to_string(modeWidth) + "x" + std::to_string(modeHeight);
}

bool Desktop::AddMode(int modeWidth, int modeHeight)
{
    Display* const x = X(display);
    const Window root = DefaultRootWindow(x);
    std::string modeName = ModeName(modeWidth, modeHeight);
    XRRModeInfo mode = {};
    mode.width = mode.hTotal = unsigned(modeWidth);
    mode.height = mode.vTotal = unsigned(modeHeight);
    mode.dotClock = mode.width * mode.height * 60UL;
    mode.name = modeName.data();
    mode.nameLength = unsigned(modeName.size());
    XRRScreenResources* resources = XRRGetScreenResourcesCurrent(x, root);
    if (!resources || resources->noutput < 1)
        return false;
    const RRMode id = XRRCreateMode(x, root, &mode);
    XRRAddOutputMode(x, resources->outputs[0], id);
    XSync(x, False);
    XRRFreeScreenResources(resources);
    return id != None;
}

bool Desktop::SetMode(int modeWidth, int modeHeight)
{
    Display* const x = X(display);
    const Window root = DefaultRootWindow(x);
    const int millimetres = 100; // any will do
    XRRScreenResources* resources = XRRGetScreenResourcesCurrent(x, root);
    if (!resources || resources->ncrtc < 1)
        return false;
    bool set = false;
    for (int i = 0; i < resources->nmode && !set; ++i) {
        if (resources->modes[i].name != ModeName(modeWidth, modeHeight))
            continue;
        XGrabServer(x);
        XRRSetCrtcConfig(x, resources, resources->crtcs[0], CurrentTime, 0, 0, None, RR_Rotate_0, nullptr, 0);
        XRRSetScreenSize(x, root, modeWidth, modeHeight, millimetres, millimetres);
        set = XRRSetCrtcConfig(x, resources, resources->crtcs[0], CurrentTime, 0, 0, resources->modes[i].id,
                               RR_Rotate_0, resources->outputs, 1) == RRSetConfigSuccess;
        XUngrabServer(x);
        XSync(x, False);
    }
    XRRFreeScreenResources(resources);
    return set;
}

std::string Desktop::Mode()
{
    Display* const x = X(display);
    XRRScreenResources* resources = XRRGetScreenResourcesCurrent(x, DefaultRootWindow(x));
    if (!resources)
        return "";
    std::string mode;
    if (XRRCrtcInfo* crtc = XRRGetCrtcInfo(x, resources, resources->crtcs[0])) {
        mode = ModeName(int(crtc->width), int(crtc->height));
        XRRFreeCrtcInfo(crtc);
    }
    XRRFreeScreenResources(resources);
    return mode;
}

void Desktop::KillServer()
{
    manager.reset();
    XCloseDisplay(X(display));
    display = nullptr;
    server.reset();
}

void Desktop::SetDotsPerInch(int dpi)
{
    const std::string text = "Xft.dpi:\t" + std::to_string(dpi) + "\n";
    XChangeProperty(X(display), DefaultRootWindow(X(display)), XA_RESOURCE_MANAGER, XA_STRING, 8,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(text.data()), int(text.size()));
    XSync(X(display), False);
}

std::vector<std::string> Desktop::Environment() const
{
    // The sanitizer must not look for leaks: effects live to the end of the process on purpose, and the font
    // and driver libraries keep what they have as well.
    std::vector<std::string> rows = {"DISPLAY=" + name,
                                     "WAYLAND_DISPLAY",
                                     "XAUTHORITY",
                                     "SDL_VIDEODRIVER=x11",
                                     "SDL_AUDIODRIVER=dummy",
                                     "LIBGL_ALWAYS_SOFTWARE=1",
                                     "ASAN_OPTIONS=detect_leaks=0"};
    rows.insert(rows.end(), ownEnvironment.begin(), ownEnvironment.end());
    return rows;
}

Process* Desktop::Run(const std::string& program, const std::vector<std::string>& arguments,
                      const std::string& directory)
{
    const bool isOfTests = program != "moonwaltz" && !program.starts_with("marlinex-");
    const std::string folder = isOfTests ? BINARY_DIR "/tests/" : BINARY_DIR "/";
    std::vector<std::string> command = {folder + program};
    command.insert(command.end(), arguments.begin(), arguments.end());
    programs.push_back(std::make_unique<Process>());
    return programs.back()->Start(command, Environment(), directory) ? programs.back().get() : nullptr;
}

// Windows

static std::string ReadTitle(Display* display, Window window)
{
    const std::string title = ReadText(display, window, "_NET_WM_NAME");
    return title.empty() ? ReadText(display, window, "WM_NAME") : title;
}

// All programs' windows that are on the screen, below `parent`.
static void CollectWindows(Display* display, Window parent, std::vector<WindowId>& found)
{
    Window root, ignored, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display, parent, &root, &ignored, &children, &count))
        return;
    for (unsigned i = 0; i < count; ++i) {
        if (!ReadText(display, children[i], "WM_CLASS").empty() && IsOnScreen(display, children[i]))
            found.push_back(children[i]);
        CollectWindows(display, children[i], found);
    }
    if (children)
        XFree(children);
}

std::vector<WindowId> Desktop::FindWindows(const std::string& title)
{
    std::vector<WindowId> all, found;
    CollectWindows(X(display), DefaultRootWindow(X(display)), all);
    for (WindowId window : all)
        if (Title(window) == title)
            found.push_back(window);
    return found;
}

WindowId Desktop::FindWindow(const std::string& title)
{
    const std::vector<WindowId> found = FindWindows(title);
    return found.empty() ? 0 : found.back();
}

WindowId Desktop::FindWindowStarting(const std::string& beginning)
{
    std::vector<WindowId> all;
    WindowId found = 0;
    CollectWindows(X(display), DefaultRootWindow(X(display)), all);
    for (WindowId window : all)
        if (Title(window).compare(0, beginning.size(), beginning) == 0)
            found = window;
    return found;
}

std::string Desktop::Title(WindowId window)
{
    return ReadTitle(X(display), window);
}

WindowPlace Desktop::Place(WindowId window)
{
    XWindowAttributes attributes;
    WindowPlace place = {0, 0, 0, 0};
    Window child;
    if (window && XGetWindowAttributes(X(display), window, &attributes) &&
        XTranslateCoordinates(X(display), window, DefaultRootWindow(X(display)), 0, 0, &place.x, &place.y,
                              &child)) {
        place.width = attributes.width;
        place.height = attributes.height;
    }
    return place;
}

WindowId Desktop::Focused()
{
    Window focused = None;
    int revertTo;
    XGetInputFocus(X(display), &focused, &revertTo);
    return focused;
}

std::vector<std::string> Desktop::States(WindowId window)
{
    std::vector<std::string> states;
    for (unsigned long atom : ReadNumbers(X(display), window, "_NET_WM_STATE")) {
        char* text = XGetAtomName(X(display), atom);
        states.push_back(text ? text : "");
        XFree(text);
    }
    return states;
}

WindowId Desktop::Owner(WindowId window)
{
    const std::vector<unsigned long> owner = ReadNumbers(X(display), window, "WM_TRANSIENT_FOR");
    return owner.empty() ? 0 : owner[0];
}

bool Desktop::IsDecorated(WindowId window)
{
    for (unsigned long extent : ReadNumbers(X(display), window, "_NET_FRAME_EXTENTS"))
        if (extent > 1) // a thin border is no frame
            return true;
    return false;
}

WindowId Desktop::WaitForWindow(const std::string& title, double seconds)
{
    WindowId window = 0;
    WaitUntil([&] { return (window = FindWindow(title)) != 0; }, seconds);
    return window;
}

WindowId Desktop::WaitForFocusedWindow(const std::string& title, double seconds)
{
    WindowId window = 0;
    WaitUntil([&] { return (window = FindWindow(title)) != 0 && Focused() == window; }, seconds);
    return window && Focused() == window ? window : 0;
}

bool Desktop::WaitUntilGone(WindowId window, double seconds)
{
    return WaitUntil([&] { return !IsOnScreen(X(display), window); }, seconds);
}

// Mouse and keyboard

void Desktop::XDo(const std::vector<std::string>& words)
{
    Process xdotool;
    std::vector<std::string> command = {"xdotool"};
    command.insert(command.end(), words.begin(), words.end());
    if (xdotool.Start(command, Environment()))
        xdotool.WaitForExit();
}

void Desktop::Key(const std::string& key)
{
    XDo({"key", "--clearmodifiers", key});
}

void Desktop::KeyDown(const std::string& key)
{
    XDo({"keydown", key});
}

void Desktop::KeyUp(const std::string& key)
{
    XDo({"keyup", key});
}

void Desktop::MoveMouse(WindowId window, int x, int y)
{
    const WindowPlace place = Place(window);
    XDo({"mousemove", std::to_string(place.x + x), std::to_string(place.y + y)});
}

void Desktop::MoveMouseBy(int x, int y)
{
    XDo({"mousemove_relative", "--", std::to_string(x), std::to_string(y)});
}

void Desktop::Click(WindowId window, int x, int y)
{
    MoveMouse(window, x, y);
    XDo({"click", "1"});
}

void Desktop::MouseDown()
{
    XDo({"mousedown", "1"});
}

void Desktop::MouseUp()
{
    XDo({"mouseup", "1"});
}

void Desktop::Drag(WindowId window, int fromX, int fromY, int toX, int toY)
{
    MoveMouse(window, fromX, fromY);
    MouseDown();
    MoveMouseBy(toX - fromX, toY - fromY);
    MouseUp();
}

void Desktop::MouseWheel(WindowId window, int steps)
{
    const WindowPlace place = Place(window);
    MoveMouse(window, place.width / 2, place.height / 2);
    for (int i = 0; i < (steps < 0 ? -steps : steps); ++i)
        XDo({"click", steps < 0 ? "4" : "5"});
}

void Desktop::Close(WindowId window)
{
    XEvent ask = {};
    ask.xclient.type = ClientMessage;
    ask.xclient.window = window;
    ask.xclient.message_type = XInternAtom(X(display), "_NET_CLOSE_WINDOW", False);
    ask.xclient.format = 32;
    XSendEvent(X(display), DefaultRootWindow(X(display)), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &ask);
    XSync(X(display), False);
}

// Pictures

Screenshot Desktop::Capture(WindowPlace place)
{
    Screenshot shot;
    // The server refuses a part that isn't all on the screen.
    const int right = std::min(place.x + place.width, width),
              bottom = std::min(place.y + place.height, height);
    place.x = std::max(place.x, 0);
    place.y = std::max(place.y, 0);
    if (right <= place.x || bottom <= place.y)
        return shot;
    XImage* image = XGetImage(X(display), DefaultRootWindow(X(display)), place.x, place.y,
                              unsigned(right - place.x), unsigned(bottom - place.y), AllPlanes, ZPixmap);
    if (!image)
        return shot;
    shot.width = image->width;
    shot.height = image->height;
    for (int y = 0; y < shot.height; ++y)
        for (int x = 0; x < shot.width; ++x) {
            const unsigned long pixel = XGetPixel(image, x, y);
            shot.pixels.push_back({int(pixel >> 16 & 255), int(pixel >> 8 & 255), int(pixel & 255)});
        }
    XDestroyImage(image);
    return shot;
}

Screenshot Desktop::Capture()
{
    return Capture({0, 0, width, height});
}

Screenshot Desktop::Capture(WindowId window)
{
    return Capture(Place(window));
}
