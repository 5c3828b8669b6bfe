// SPDX-License-Identifier: MIT
// The one clock of the show: process-wide, read any number of times in a frame, moved only by Update. It
// counts real time and knows nothing of the music. All arithmetic is single precision: at a few hundred
// seconds a delta is quantised to about 0.00003 s, and effects get it like that.
#pragma once

#include <cstdint>

class FrameTimer
{
public:
    // Starts the clock: GetTime is startSeconds, GetDelta and GetFPS are 0. The counter that an fps window
    // has gathered, the scaled time and the elapsed time are left as they are.
    static void Init(float startSeconds);

    // Once per frame, behind the effects: takes the frame's length.
    static void Update();

    static float GetTime();  // seconds of the show: scaled time plus the offset given to Init
    static float GetDelta(); // seconds, real length of the last frame; 0 in the first
    static int GetFPS();     // frames of the last full second; 0 during the first

    static void SetTime(float seconds);
    static void SetSpeed(float factor); // of GetTime alone; GetDelta stays real

private:
    static int64_t frequency; // counts per second
    static int64_t startCounter;
    static int64_t currentCounter;
    static float delta;
    static float elapsed;
    static float scaledTime;
    static float timeOffset;
    static float fpsWindow;
    static int frameCount;
    static int fps;
    static float speed;
};
