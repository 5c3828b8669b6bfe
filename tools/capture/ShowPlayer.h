// SPDX-License-Identifier: MIT
// Plays the show on the counted clock in a window that nobody sees, and hands its frames to a sink. The show
// is the real one: DemoPlayer runs it, from loading screen to last frame, and this only looks on at the
// swaps.
//
// Frame 0 is the first frame of the show, at time 0. The frames of the loading screen lie before it and are
// not captured.
//
// A frame that isn't wanted is played without being drawn: every effect renders and updates as ever, since
// both move what later frames are made of, but GL throws the geometry away ahead of rasterisation.
//
// One process plays one show: order of calls is Load, Play.
#pragma once

#include "tools/capture/FrameSink.h"

#include "platform/dialogs/MessageBox.h"

class DemoPlayer;
class EffectRegistry;
class GLWindow;

namespace capture
{

class Progress;

// Where the time of a capture went, seconds.
struct Timing {
    double loading = 0;  // up to the first frame
    double skipping = 0; // frames that are played and not drawn
    double drawing = 0;
    double reading = 0; // back from GL
    double handing = 0; // to the sink: waiting for the encoder or the disk
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

    // The moment of the last stop of all entries, microseconds. 0: the script has none.
    int64_t Duration() const;

    // Opens the window and plays until the schedule's last frame has been taken. A box that comes up at any
    // time is a failure. An interruption (see Interruption.h) ends it at the next
    // frame, with PlayInterrupted.
    PlayResult Play(int width, int height, const Schedule& schedule, FrameSink& sink, Progress& progress);

    std::string error;
    std::string renderer; // GL's name for who draws; pictures are the same where this is
    Timing timing;
    int64_t taken; // frames handed to the sink

private:
    static int64_t CountsOfRead(void* show, int64_t read);
    static void FrameDone(void* show);
    void LookAtFrame(int64_t number);
    bool HandFrame(int64_t number);
    void PrepareFrame(int64_t number);
    void SetDrawing(bool on);
    bool CollectBoxText();
    void Stop();

    DemoPlayer* player; // these three live to the end of the process, as they do in the show
    GLWindow* window;
    EffectRegistry* registry;
    std::vector<platform::MessageBox> boxes;

    Schedule schedule;
    FrameSink* sink;
    Progress* progress;
    int width;
    int height;
    bool drawing;
    bool failed;
    double lastMoment; // seconds of the real clock, when the last frame was done with
};

} // namespace capture
