// SPDX-License-Identifier: MIT
#include "platform/DisplayModeGuard.h"

#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <vector>

namespace platform
{

static const int maxStartTime = 5000;     // milliseconds that the guard has to record the modes
static const unsigned settlingTime = 200; // milliseconds after which the restored modes are checked again

static int guardPipe = -1; // the write end of the pipe to the guard; -1 while none is running

// The configuration of one CRTC, the part of the graphics card that feeds a screen.
struct CrtcState {
    RRCrtc crtc;
    int x, y;
    RRMode mode; // None if the CRTC is off
    Rotation rotation;
    std::vector<RROutput> outputs;

    bool operator==(const CrtcState& other) const = default;
};

struct DesktopState {
    int width, height, widthMillimetres, heightMillimetres;
    std::vector<CrtcState> crtcs;
};

// ---- The guard's process

static DesktopState ReadDesktop(Display* display)
{
    const Window root = DefaultRootWindow(display);
    DesktopState desktop = {};
    XWindowAttributes attributes;
    XGetWindowAttributes(display, root, &attributes);
    desktop.width = attributes.width;
    desktop.height = attributes.height;
    desktop.widthMillimetres = DisplayWidthMM(display, DefaultScreen(display));
    desktop.heightMillimetres = DisplayHeightMM(display, DefaultScreen(display));
    XRRScreenResources* resources = XRRGetScreenResourcesCurrent(display, root);
    for (int i = 0; resources && i < resources->ncrtc; ++i)
        if (XRRCrtcInfo* info = XRRGetCrtcInfo(display, resources, resources->crtcs[i])) {
            desktop.crtcs.push_back({resources->crtcs[i], info->x, info->y, info->mode, info->rotation,
                                     std::vector<RROutput>(info->outputs, info->outputs + info->noutput)});
            XRRFreeCrtcInfo(info);
        }
    if (resources)
        XRRFreeScreenResources(resources);
    return desktop;
}

static void SetDesktop(Display* display, const DesktopState& wanted)
{
    const DesktopState present = ReadDesktop(display);
    if (present.crtcs == wanted.crtcs && present.width == wanted.width && present.height == wanted.height)
        return;
    const Window root = DefaultRootWindow(display);
    XRRScreenResources* resources = XRRGetScreenResourcesCurrent(display, root);
    if (!resources)
        return;
    // A CRTC must not show a part of the desktop that its new size lacks, so turn changed ones off first.
    XGrabServer(display);
    for (const CrtcState& crtc : present.crtcs)
        if (std::count(wanted.crtcs.begin(), wanted.crtcs.end(), crtc) == 0)
            XRRSetCrtcConfig(display, resources, crtc.crtc, CurrentTime, 0, 0, None, RR_Rotate_0, nullptr, 0);
    XRRSetScreenSize(display, root, wanted.width, wanted.height, wanted.widthMillimetres,
                     wanted.heightMillimetres);
    for (const CrtcState& crtc : wanted.crtcs)
        if (crtc.mode != None && std::count(present.crtcs.begin(), present.crtcs.end(), crtc) == 0) {
            std::vector<RROutput> outputs = crtc.outputs;
            XRRSetCrtcConfig(display, resources, crtc.crtc, CurrentTime, crtc.x, crtc.y, crtc.mode,
                             crtc.rotation, outputs.data(), int(outputs.size()));
        }
    XUngrabServer(display);
    XSync(display, False);
    XRRFreeScreenResources(resources);
}

static int IgnoreXError(Display*, XErrorEvent*)
{
    return 0;
}

static int LeaveWithXServer(Display*)
{
    _exit(0);
}

// Detaches the guard from the terminal, signals and files of the guarded process, except for the two pipes.
static void Detach(int listen, int answer)
{
    setsid();
    for (const int ignored : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGUSR1, SIGUSR2})
        signal(ignored, SIG_IGN);
    const int nowhere = open("/dev/null", O_RDWR);
    for (int standard = 0; nowhere >= 0 && standard <= 2; ++standard)
        dup2(nowhere, standard);
    const int low = std::min(listen, answer), high = std::max(listen, answer);
    close_range(3, unsigned(low - 1), 0);
    close_range(unsigned(low + 1), unsigned(high - 1), 0);
    close_range(unsigned(high + 1), ~0u, 0);
}

[[noreturn]] static void Guard(int listen, int answer)
{
    Detach(listen, answer);
    XSetErrorHandler(IgnoreXError);
    XSetIOErrorHandler(LeaveWithXServer);
    Display* display = XOpenDisplay(nullptr);
    int event, error, major, minor;
    if (!display || !XRRQueryExtension(display, &event, &error) ||
        !XRRQueryVersion(display, &major, &minor) || (major == 1 && minor < 3))
        _exit(0);
    const DesktopState desktop = ReadDesktop(display);
    char word = 1;
    if (write(answer, &word, 1) != 1)
        _exit(0);
    close(answer);

    if (read(listen, &word, 1) == 0) { // end of file: the process ended without EndDisplayModeGuard
        SetDesktop(display, desktop);
        // The X server may serve the last mode request of the ended process after SetDesktop.
        usleep(settlingTime * 1000);
        SetDesktop(display, desktop);
    }
    XCloseDisplay(display);
    _exit(0);
}

// ---- The guarded process

void StartDisplayModeGuard()
{
    int toGuard[2], fromGuard[2];
    if (guardPipe >= 0 || pipe2(toGuard, O_CLOEXEC) != 0)
        return;
    if (pipe2(fromGuard, O_CLOEXEC) != 0) {
        close(toGuard[0]);
        close(toGuard[1]);
        return;
    }
    // The guard is a grandchild, so that this process need not wait for its end.
    const pid_t child = fork();
    if (child == 0) {
        if (fork() == 0)
            Guard(toGuard[0], fromGuard[1]);
        _exit(0);
    }
    if (child > 0)
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    close(toGuard[0]);
    close(fromGuard[1]);
    pollfd answer = {fromGuard[0], POLLIN, 0};
    char word;
    if (child > 0 && poll(&answer, 1, maxStartTime) == 1 && read(fromGuard[0], &word, 1) == 1)
        guardPipe = toGuard[1];
    else
        close(toGuard[1]);
    close(fromGuard[0]);
}

void EndDisplayModeGuard()
{
    if (guardPipe < 0)
        return;
    // If the guard is gone, SIGPIPE must not end this process.
    struct sigaction ignore = {}, old;
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &ignore, &old);
    const char word = 1;
    [[maybe_unused]] const ssize_t written = write(guardPipe, &word, 1);
    sigaction(SIGPIPE, &old, nullptr);
    close(guardPipe);
    guardPipe = -1;
}

} // namespace platform
