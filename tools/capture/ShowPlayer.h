// SPDX-License-Identifier: MIT
// Plays the show on the counted clock in an off-screen window and passes its frames to a FrameSink.
// DemoPlayer runs the show as in moonwaltz, from the loading screen to the last frame; this class is called
// at each buffer swap.
//
// Frame 0 is the first frame of the show, at time 0. The frames of the loading screen come before it and are
// not captured.
//
// Frames that are not selected are played without being drawn: every effect renders and updates, since both
// change its state, but nothing reaches pixels (display/DrawingSwitch.h).
//
// One process plays one show. Order of calls: Load, Play.
#pragma once

#include "tools/capture/FrameSink.h"

#include "platform/dialogs/MessageBox.h"

class DemoPlayer;
class EffectRegistry;
class GLWindow;

namespace capture
{

class Progress;

// Wall clock seconds that each kind of work took.
struct Timing {
    double loading = 0;  // everything before the first frame
    double skipping = 0; // frames that are played without being drawn
    double drawing = 0;  // until GL has finished the frame
    double reading = 0;  // glReadPixels
    double handing = 0;  // FrameSink::Take, which may wait for the encoder or the disk
};

enum PlayResult { PlayedToTheEnd, PlayInterrupted, PlayFailed };

class ShowPlayer
{
public:
    ShowPlayer();

    // Reads the script, given as the text of its file; pictures come from the data directory (see
    // platform/Paths.h). False if any box came up; `error` says what the boxes said. Needs neither display
    // nor GL.
    bool Load(const std::string& script);

    // The latest stop time of all entries in microseconds, 0 if the script has no entry.
    int64_t Duration() const;

    // Opens the window and plays until the last selected frame has been taken. Any message box is a failure.
    // An interruption (see Interruption.h) ends it at the next frame, with PlayInterrupted.
    PlayResult Play(int width, int height, const FrameSelection& selection, FrameSink& sink,
                    Progress& progress);

    std::string error;
    std::string renderer; // GL_RENDERER; where it is the same, so are the pixels
    Timing timing;
    int64_t taken; // number of frames that the sink has accepted

private:
    static int64_t CountsOfRead(void* show, int64_t read);
    static void FrameDone(void* show);
    void LookAtFrame(int64_t number);
    bool HandFrame(int64_t number);
    void PrepareFrame(int64_t number);
    void SetDrawing(bool on);
    bool CollectBoxText();
    void Stop();

    DemoPlayer* player; // these three are never deleted, as in moonwaltz
    GLWindow* window;
    EffectRegistry* registry;
    std::vector<platform::MessageBox> boxes;

    FrameSelection selection;
    FrameSink* sink;
    Progress* progress;
    int width;
    int height;
    bool drawing;
    bool failed;
    double lastMoment; // when the previous frame was finished, Progress::Now
};

} // namespace capture
