// SPDX-License-Identifier: MIT
// Plays the show (see SteppedShow.h) and passes the selected frames to a FrameSink. The others are played without
// being drawn.
//
// One process plays one show. Order of calls: Load, Play.
#pragma once

#include "tools/capture/FrameSink.h"
#include "tools/capture/SteppedShow.h"

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

class ShowPlayer : private FrameListener
{
public:
    ShowPlayer();

    // Reads the script, given as the text of its file; pictures come from the data directory (see
    // platform/Paths.h). False if any box came up; `error` says what the boxes said. Needs neither display
    // nor GL.
    bool Load(const std::string& script);

    int64_t Duration() const; // see SteppedShow

    // Opens the off-screen window and its GL context. False: `error` says why. Call it ahead of anything else that
    // starts threads or processes: where they are limited, some GL drivers hang without theirs.
    bool Open(int width, int height);

    // Plays in the open window until the last selected frame has been taken. Any message box is a failure.
    // An interruption (see Interruption.h) ends it at the next frame, with PlayInterrupted.
    PlayResult Play(const FrameSelection& selection, FrameSink& sink, Progress& progress);

    std::string error;
    std::string renderer; // GL_RENDERER; where it is the same, so are the pixels
    Timing timing;
    int64_t taken; // number of frames that the sink has accepted

private:
    void LoadingStep() override;
    void Loaded() override;
    void FrameDone(int64_t number) override;
    void LookAtFrame(int64_t number);
    bool HandFrame(int64_t number);
    bool CollectBoxText();

    SteppedShow show;
    FrameSelection selection;
    FrameSink* sink;
    Progress* progress;
    int width;
    int height;
    bool failed;
    double lastMoment; // when the previous frame was finished, seconds of cli::MonotonicSeconds
};

} // namespace capture
