// SPDX-License-Identifier: MIT
#include "kernel/Effect.h"

Effect::Effect() : window(nullptr), player(nullptr), initialised(false), localTime(0) {}

Effect::~Effect() {}

void Effect::Attach(GLWindow* newWindow, DemoPlayer* newPlayer)
{
    if (!newWindow || !newPlayer)
        return;
    window = newWindow;
    player = newPlayer;
    initialised = true;
}

bool Effect::IsInitialised() const
{
    return initialised;
}

float Effect::GetLocalTime() const
{
    return localTime;
}

void Effect::SetLocalTime(float seconds)
{
    localTime = seconds;
}

void Effect::AddLocalTime(float delta)
{
    localTime += delta;
}
