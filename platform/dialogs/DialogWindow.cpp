// SPDX-License-Identifier: MIT
#define FL_INTERNALS // Fl_X, for a window of our own making

#include "platform/dialogs/DialogWindow.h"

#include "platform/Screen.h"
#include "platform/ShowColours.h"
#include "platform/dialogs/Shapes.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>
#include <FL/x.H>
#include <SDL.h>
#include <SDL_syswm.h>
#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace platform
{

using namespace showcolours;

static const double signalPollInterval = 0.1; // seconds between two checks for SIGINT and SIGTERM

// The show's window, or null while there is none on the screen.
static SDL_Window* ShowWindow()
{
    if (!SDL_WasInit(SDL_INIT_VIDEO))
        return nullptr;
    const Uint32 highestId = 64; // ids count up from 1
    for (Uint32 id = 1; id <= highestId; ++id) {
        SDL_Window* window = SDL_GetWindowFromID(id);
        if (window && !(SDL_GetWindowFlags(window) & (SDL_WINDOW_HIDDEN | SDL_WINDOW_MINIMIZED)))
            return window;
    }
    return nullptr;
}

static Window XWindowOf(SDL_Window* window)
{
    SDL_SysWMinfo system;
    SDL_VERSION(&system.version);
    if (!window || !SDL_GetWindowWMInfo(window, &system) || system.subsystem != SDL_SYSWM_X11)
        return None;
    return system.info.x11.window;
}

static PixelRect RoomForWindows()
{
    fl_open_display();
    PixelRect room;
    SDL_Window* show = ShowWindow();
    if (XWindowOf(show) && (SDL_GetWindowFlags(show) & SDL_WINDOW_FULLSCREEN)) {
        SDL_GetWindowPosition(show, &room.x, &room.y);
        SDL_GetWindowSize(show, &room.width, &room.height);
        return room;
    }
    Fl::check(); // the screen may have changed since the last window
    int pointerX, pointerY;
    Fl::get_mouse(pointerX, pointerY);
    Fl::screen_xywh(room.x, room.y, room.width, room.height, pointerX, pointerY);
    return room;
}

static Atom Named(const char* name)
{
    return XInternAtom(fl_display, name, False);
}

static void SetAtoms(Window window, const char* property, std::vector<Atom> atoms)
{
    XChangeProperty(fl_display, window, Named(property), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<unsigned char*>(atoms.data()), int(atoms.size()));
}

// The keys that were already down when the window got the keyboard, one bit per key code. They are ignored
// until they are released: a user who holds Enter or Escape has not read the window yet.
static char heldKeys[32];

static int SwallowHeldKeys(void* event, void*)
{
    const XEvent& x = *static_cast<XEvent*>(event);
    static bool justFocused = false;
    const bool ownFocus = justFocused;
    justFocused = x.type == FocusIn;
    if (x.type == KeymapNotify && ownFocus)
        std::copy_n(x.xkeymap.key_vector, sizeof heldKeys, heldKeys);
    if (x.type != KeyPress && x.type != KeyRelease)
        return 0;
    char& held = heldKeys[x.xkey.keycode / 8 % sizeof heldKeys];
    const char bit = char(1 << x.xkey.keycode % 8);
    if (!(held & bit))
        return 0;
    if (x.type == KeyRelease)
        held = char(held & ~bit);
    return x.type == KeyPress;
}

// Tells the window manager which decorations to draw and which functions to offer.
static void SetDecorations(Window window, bool titled)
{
    const unsigned long move = 4, close = 32;             // functions
    const unsigned long border = 2, title = 8, menu = 16; // decorations
    unsigned long hints[] = {1 | 2, move | close, titled ? border | title | menu : 0, 0, 0};
    const Atom name = Named("_MOTIF_WM_HINTS");
    XChangeProperty(fl_display, window, name, name, 32, PropModeReplace,
                    reinterpret_cast<unsigned char*>(hints), int(std::size(hints)));
}

DialogWindow::DialogWindow(Decoration wantedDecoration, std::string caption)
    : Fl_Double_Window(1, 1), scale(ScreenScale()), managed(HasWindowManager()), area(RoomForWindows()),
      decoration(wantedDecoration), title(caption)
{
    end();
    box(FL_NO_BOX);
    static bool prepared = false;
    if (prepared)
        return;
    prepared = true;
    Fl::add_system_handler(SwallowHeldKeys, nullptr);
    Bool supported;
    XkbSetDetectableAutoRepeat(fl_display, True, &supported);
}

int DialogWindow::Scaled(float length) const
{
    return int(std::lround(length * scale));
}

// Showing

// An X window for the dialog, in its place and of its size.
static Window CreateWindowFor(const Fl_Window& dialog)
{
    XSetWindowAttributes attributes;
    attributes.colormap = fl_colormap;
    attributes.border_pixel = 0;
    attributes.background_pixel = fl_xpixel(ToolkitColour(Ink));
    attributes.event_mask = ExposureMask | StructureNotifyMask | KeyPressMask | KeyReleaseMask |
                            KeymapStateMask | FocusChangeMask | ButtonPressMask | ButtonReleaseMask |
                            EnterWindowMask | LeaveWindowMask | PropertyChangeMask | PointerMotionMask;
    return XCreateWindow(fl_display, RootWindow(fl_display, fl_screen), dialog.x(), dialog.y(),
                         unsigned(dialog.w()), unsigned(dialog.h()), 0, fl_visual->depth, InputOutput,
                         fl_visual->visual, CWColormap | CWBorderPixel | CWBackPixel | CWEventMask,
                         &attributes);
}

static void SetHints(Window window, const Fl_Window& dialog)
{
    XSizeHints size = {};
    size.flags = USPosition | PPosition | USSize | PSize | PMinSize | PMaxSize;
    size.x = dialog.x();
    size.y = dialog.y();
    size.width = size.min_width = size.max_width = dialog.w();
    size.height = size.min_height = size.max_height = dialog.h();
    XWMHints hints = {};
    hints.flags = InputHint | StateHint;
    hints.input = True;
    hints.initial_state = NormalState;
    char name[] = "marlinex";
    XClassHint classHint = {name, name};
    XSetWMProperties(fl_display, window, nullptr, nullptr, nullptr, 0, &size, &hints, &classHint);
    Atom protocols[] = {Named("WM_DELETE_WINDOW")};
    XSetWMProtocols(fl_display, window, protocols, 1);
    SetAtoms(window, "_NET_WM_WINDOW_TYPE", {Named("_NET_WM_WINDOW_TYPE_DIALOG")});
}

// Asks the window manager for the keyboard focus.
static void RequestFocus(Window window)
{
    XEvent request = {};
    request.xclient.type = ClientMessage;
    request.xclient.window = window;
    request.xclient.message_type = Named("_NET_ACTIVE_WINDOW");
    request.xclient.format = 32;
    request.xclient.data.l[0] = 2; // the request comes from the user
    XSendEvent(fl_display, RootWindow(fl_display, fl_screen), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &request);
}

void DialogWindow::show()
{
    if (shown()) {
        Fl_Double_Window::show();
        return;
    }

    const Window owner = XWindowOf(ShowWindow());
    resize(area.x + (area.width - w()) / 2, area.y + (area.height - h()) / 2, w(), h());
    const Window window = CreateWindowFor(*this);
    Fl_X::set_xid(this, window);
    copy_label(title.c_str());
    SetHints(window, *this);
    std::vector<Atom> states = {Named("_NET_WM_STATE_ABOVE")};
    if (decoration == Undecorated)
        states.push_back(Named("_NET_WM_STATE_SKIP_TASKBAR"));
    SetDecorations(window, decoration == TitleBar);
    if (owner) {
        XSetTransientForHint(fl_display, window, owner);
        states.push_back(Named("_NET_WM_STATE_MODAL"));
        // The show is standing still and does not repaint the area of this window. Let the server restore it,
        // or a closed box would seem to be there still.
        XSetWindowBackground(fl_display, owner, BlackPixel(fl_display, fl_screen));
    }
    SetAtoms(window, "_NET_WM_STATE", states);

    set_visible();
    handle(FL_SHOW);
    redraw();
    XMapRaised(fl_display, window);
    XSync(fl_display, False);

    if (managed)
        RequestFocus(window);
    else
        XSetInputFocus(fl_display, window, RevertToParent, CurrentTime);
}

void DialogWindow::Run()
{
    Window focusBefore;
    int revertTo;
    XGetInputFocus(fl_display, &focusBefore, &revertTo);

    show();
    while (shown()) {
        Fl::wait(signalPollInterval);
        if (SDL_WasInit(SDL_INIT_VIDEO)) {
            SDL_PumpEvents();
            if (SDL_HasEvent(SDL_QUIT))
                hide();
        }
    }
    Fl::flush(); // without it the window stays on the screen
    if (!managed && focusBefore != None)
        XSetInputFocus(fl_display, focusBefore, revertTo, CurrentTime);
    XSync(fl_display, False);
}

int DialogWindow::handle(int event)
{
    switch (event) {
    case FL_FOCUS:
    case FL_UNFOCUS:
        return 1; // FLTK sends keys only to widgets that accept the focus
    default:
        return Fl_Double_Window::handle(event);
    }
}

} // namespace platform
