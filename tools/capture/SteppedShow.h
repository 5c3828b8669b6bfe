// SPDX-License-Identifier: MIT
// The show on the counted clock in an off-screen window, frame by frame at a fixed rate: what all programs share that
// hand its frames on. DemoPlayer runs the show as in moonwaltz, from the loading screen to the last frame; a listener
// is called in between and decides how it goes on.
//
// Frame 0 is the first frame of the show, at time 0. The frames of the loading screen come before it.
//
// Frames can be played without being drawn: every effect renders and updates, since both change its state, but
// nothing reaches pixels (display/DrawingSwitch.h).
//
// One process plays one show. Order of calls: Load, Open, Play.
#pragma once

#include "tools/capture/FrameRate.h"

#include "platform/dialogs/MessageBox.h"

#include <vector>

class DemoPlayer;
class EffectRegistry;
class GLWindow;

namespace capture
{

// Number of frames that are drawn before each one that is handed on. No effect of today shows what an earlier frame
// drew. For one that draws into a texture and keeps it, a frame of lead is enough; the second is a reserve.
const int64_t WarmUpFrames = 2;

class FrameListener
{
public:
    virtual ~FrameListener() {}
    virtual void LoadingStep() = 0;             // ahead of each effect that loads
    virtual void Loaded() = 0;                  // ahead of frame 0
    virtual void FrameDone(int64_t number) = 0; // finished, and not swapped yet: ReadPixels may be called
};

class SteppedShow
{
public:
    SteppedShow();
    SteppedShow(const SteppedShow&) = delete;
    SteppedShow& operator=(const SteppedShow&) = delete;

    // Reads the script, given as the text of its file; pictures come from the data directory (see platform/Paths.h).
    // From here on message boxes are collected. Needs neither display nor GL.
    void Load(const std::string& script);

    // Reads a script into a player, as Load does it. The player has to be ready.
    static void ReadScript(const std::string& script, DemoPlayer* player);

    // The latest stop time of all entries in microseconds, 0 if the script has no entry. Not once Play was called.
    int64_t Duration() const;

    // Opens the window. False: `error` says why.
    bool Open(int width, int height);

    // Plays until Stop is called, whatever the script's end, or until the show ends itself because something is
    // missing.
    void Play(const FrameRate& rate, FrameListener& listener);

    // For the listener. Drawing is on at first.
    void DrawNext(bool on);                     // whether the frames from the next one on are drawn
    void ReadPixels(unsigned char* rgba) const; // the frame; waits until GL has finished it
    void Stop();

    // Makes each box that came up since the last call a line of `error`, without the paragraph that all error boxes
    // share. True if there was any.
    bool CollectBoxText();

    DemoPlayer* Player() const { return player; }
    EffectRegistry* Registry() const { return registry; }
    GLWindow* Window() const { return window; }

    std::string error;
    std::string renderer; // GL_RENDERER; where it is the same, so are the pixels

private:
    static int64_t CountsOfRead(void* show, int64_t read);
    static void BeforeSwap(void* show);

    DemoPlayer* player; // these three are never deleted, as in moonwaltz
    GLWindow* window;
    EffectRegistry* registry;
    std::vector<platform::MessageBox> boxes;

    FrameRate rate;
    FrameListener* listener;
    int width;
    int height;
    bool drawing;
};

} // namespace capture
