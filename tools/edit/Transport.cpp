// SPDX-License-Identifier: MIT
#include "tools/edit/Transport.h"

#include "tools/edit/Moments.h"

#include <algorithm>
#include <cmath>

namespace edit
{

static const double shortestLoop = 0.05; // seconds: below it a loop is a buzz

Transport::Transport(EditorState* editorState, MusicTransport* musicTransport)
    : state(editorState), music(musicTransport), end(0), scrubbing(false)
{
}

void Transport::SetEnd(double seconds)
{
    end = std::max(seconds, 0.0);
    state->playhead = Confined(state->playhead);
}

double Transport::LastMoment() const
{
    const int64_t frames = state->rate.FramesBefore(std::llround(end * 1e6));
    return frames > 0 ? SecondsOf(frames - 1, state->rate) : 0;
}

double Transport::Confined(double seconds) const
{
    return std::clamp(seconds, 0.0, LastMoment());
}

bool Transport::LoopHolds(double seconds) const
{
    return state->looping && seconds >= state->loopStart && seconds < state->loopEnd;
}

void Transport::Play()
{
    if (state->looping && !LoopHolds(state->playhead))
        state->playhead = state->loopStart;
    else if (state->playhead >= LastMoment())
        state->playhead = 0;
    state->playing = true;
    scrubbing = false;
    music->Play(state->playhead, state->speed);
}

void Transport::Stop()
{
    if (!state->playing)
        return;
    if (!scrubbing)
        state->playhead = Confined(music->PositionSeconds());
    music->Stop();
    state->playing = false;
    scrubbing = false;
}

void Transport::SetSpeed(double speed)
{
    state->speed = speed;
    if (state->playing && !scrubbing)
        music->Play(state->playhead, speed);
}

void Transport::GoTo(double seconds)
{
    state->playhead = Confined(seconds);
    scrubbing = false;
    if (state->playing)
        music->Play(state->playhead, state->speed);
}

void Transport::Scrub(double seconds)
{
    state->playhead = Confined(seconds);
    if (state->playing && !scrubbing)
        music->Stop();
    scrubbing = true;
}

void Transport::EndScrub()
{
    if (scrubbing && state->playing)
        music->Play(state->playhead, state->speed);
    scrubbing = false;
}

void Transport::StepFrames(int64_t frames)
{
    Stop();
    const int64_t frame = std::max<int64_t>(FrameAt(state->playhead, state->rate) + frames, 0);
    state->playhead = Confined(SecondsOf(frame, state->rate));
}

bool Transport::SetLoop(double from, double to)
{
    from = std::clamp(from, 0.0, end);
    to = std::clamp(to, 0.0, end);
    if (to - from < shortestLoop)
        return false;
    state->loopStart = from;
    state->loopEnd = to;
    return true;
}

void Transport::SetLooping(bool loop)
{
    state->looping = loop && state->loopEnd > state->loopStart;
}

bool Transport::Update()
{
    if (!state->playing || scrubbing)
        return false;
    const double before = state->playhead;
    const double heard = music->PositionSeconds();
    // A loop counts for what plays into its end; whoever starts after it plays on.
    if (state->looping && before < state->loopEnd && heard >= state->loopEnd) {
        state->playhead = state->loopStart;
        music->Play(state->playhead, state->speed);
        return true;
    }
    state->playhead = Confined(heard);
    if (heard >= end) {
        music->Stop();
        state->playing = false;
    }
    return state->playhead != before || !state->playing;
}

} // namespace edit
