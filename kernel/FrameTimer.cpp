// SPDX-License-Identifier: MIT
#include "kernel/FrameTimer.h"

#include "platform/Clock.h"

#include <cassert>

int64_t FrameTimer::frequency = 0;
int64_t FrameTimer::startCounter = 0;
int64_t FrameTimer::currentCounter = 0;
float FrameTimer::delta = 0;
float FrameTimer::elapsed = 0;
float FrameTimer::scaledTime = 0;
float FrameTimer::timeOffset = 0;
float FrameTimer::fpsWindow = 0;
int FrameTimer::frameCount = 0;
int FrameTimer::fps = 0;
float FrameTimer::speed = 1.0f;

void FrameTimer::Init(float startSeconds)
{
    frequency = platform::CounterFrequency();
    startCounter = platform::ReadCounter();
    delta = 0;
    fpsWindow = 0;
    fps = 0;
    timeOffset = startSeconds;
    frameCount++; // not reset: the first count holds one frame more than was drawn
}

void FrameTimer::Update()
{
    assert(frequency > 0); // Init has run
    currentCounter = platform::ReadCounter();
    const float oldElapsed = elapsed;
    elapsed = float(double(currentCounter - startCounter) / double(frequency));
    delta = elapsed - oldElapsed;
    scaledTime += delta * speed;

    frameCount++;
    fpsWindow += delta;
    if (fpsWindow >= 1.0f) {
        fps = frameCount;
        fpsWindow = 0; // the time over one second is not carried on
        frameCount = 0;
    }
}

float FrameTimer::GetTime()
{
    return scaledTime + timeOffset;
}

float FrameTimer::GetDelta()
{
    return delta;
}

int FrameTimer::GetFPS()
{
    return fps;
}

void FrameTimer::SetTime(float seconds)
{
    scaledTime = seconds;
}

void FrameTimer::SetSpeed(float factor)
{
    speed = factor;
}
