// SPDX-License-Identifier: MIT
// The one clock of the show. It is process-wide, can be read any number of times in a frame and moves only in
// Update. It counts real time and is independent of the music.
//
// The time since Init is one quotient of counter values, formed in double and rounded to float. From there on
// all arithmetic is single precision: at a few hundred seconds GetDelta is quantised to about 0.00003 s.
#pragma once

#include <cstdint>

class FrameTimer
{
public:
    // Starts the clock: GetTime is startSeconds, GetDelta and GetFPS are 0. A second call in one process does
    // not reset the scaled time, the elapsed time and the frame count of GetFPS.
    static void Init(float startSeconds);

    // Call once per frame, after Init and after the effects. The time since the last call becomes GetDelta.
    static void Update();

    static float GetTime();  // seconds of the show: scaled time plus the offset given to Init
    static float GetDelta(); // seconds, real length of the last frame; 0 in the first
    static int GetFPS();     // frames in the last full second; 0 during the first one

    static void SetTime(float seconds); // sets the scaled time: GetTime is this plus the offset
    static void SetSpeed(float factor); // changes the rate of GetTime; GetDelta stays real time

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
