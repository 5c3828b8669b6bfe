// SPDX-License-Identifier: MIT
// Measures the frames of each effect of the show on the GL driver at hand. Each effect plays its own show of
// tests/shows, with the messages of that script spread over the frames, on the stepped clock, so that every
// machine plays the same frames. The measured time is real time, from the clear of the frame until the driver
// has finished it (glFinish), without the swap, which may wait for the display. The processor time of the same
// span is that of all threads of the process: with the software rasteriser it is the whole cost of a frame, and
// other programs on the machine hardly change it.
//
// One object per process, which stands in the project's folder. Main thread only.
#pragma once

#include "display/GLWindow.h"
#include "kernel/EffectRegistry.h"
#include "platform/dialogs/MessageBox.h"

#include <string>
#include <vector>

class DemoPlayer;

// Milliseconds.
struct FrameTime {
    double median;    // of a frame
    double longest;   // the longest frame without its messages and without the first frame
    double processor; // median of a frame's processor time
    double message;   // the longest time of one message ahead of its frame; 0 if there was none
    double replay;    // median of a frame's GL calls played back from a display list; 0: not to be had
};

enum FrameMode {
    DrawnFrames,
    UndrawnFrames, // as a tool plays them that plays the show up to a moment
    ReplayedFrames // drawn, and each drawn again from a display list of its calls
};

class EffectFrames
{
public:
    EffectFrames();

    // Opens an off-screen window, unless SDL_VIDEODRIVER in the environment says otherwise. It takes the
    // graphics card where SDL finds one; with LIBGL_ALWAYS_SOFTWARE=1 it is the software rasteriser. False:
    // `error` says why.
    bool Open(int width, int height);

    std::string Driver() const; // name and version

    FrameTime MeasureEmpty(int frames);

    // The effects in the order of their table. False: `error` says why. The first measurement of an effect
    // also loads its files.
    size_t Count() const { return registry.effects.size(); }
    std::string Name(size_t effect) const { return registry.effects[effect].name; }
    bool Measure(size_t effect, int frames, FrameMode mode, FrameTime* time);

    std::string error;

private:
    double MeasureFrame(Effect* effect, double* processor);
    double MeasureReplay(Effect* effect);

    GLWindow window;
    EffectRegistry registry;
    std::vector<platform::MessageBox> boxes; // collected here, since a box would wait for a click
};
