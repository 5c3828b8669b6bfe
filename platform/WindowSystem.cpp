// SPDX-License-Identifier: MIT
#include "platform/WindowSystem.h"

#include "platform/SdlWindowSystem.h"

namespace platform
{

static const WindowSystem* system = nullptr;
static FrameObserver frameObserver = nullptr;
static void* frameObserverUser = nullptr;

const WindowSystem& Windows()
{
    if (!system)
        system = &SdlWindowSystem();
    return *system;
}

void UseWindowSystem(const WindowSystem& other)
{
    system = &other;
}

void UseSdlWindows()
{
    system = &SdlWindowSystem();
}

void SetFrameObserver(FrameObserver observer, void* user)
{
    frameObserver = observer;
    frameObserverUser = user;
}

void NotifyFrameObserver()
{
    if (frameObserver)
        frameObserver(frameObserverUser);
}

} // namespace platform
