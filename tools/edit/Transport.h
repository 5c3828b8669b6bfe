// SPDX-License-Identifier: MIT
// Moves the play head: playing, stepping, looping, dragging. What is heard leads, the picture follows.
#pragma once

#include "tools/edit/EditorState.h"
#include "tools/edit/MusicTransport.h"

namespace edit
{

class Transport
{
public:
    // Both are borrowed. Of the state it changes the play head, what belongs to playing and the loop's region.
    Transport(EditorState* editorState, MusicTransport* musicTransport);

    // Seconds; the play head stays at its last frame or ahead of it.
    void SetEnd(double seconds);
    double LastMoment() const; // when the last frame begins

    void Play(); // from the play head; from the start (of the loop) if that is over
    void Stop();
    void SetSpeed(double speed);

    // Moves the play head, also while it plays.
    void GoTo(double seconds);

    // As GoTo, for each step of a drag of the play head: the music is silent until EndScrub.
    void Scrub(double seconds);
    void EndScrub();
    bool IsScrubbing() const { return scrubbing; }

    // Stops, and moves to a frame's beginning.
    void StepFrames(int64_t frames);

    // Takes a region. False: it is empty, and the old one stays.
    bool SetLoop(double from, double to);
    void SetLooping(bool loop);

    // Moves the play head to what is heard of the music. Call it once per frame of the window. True if it has moved.
    bool Update();

private:
    double Confined(double seconds) const;
    bool LoopHolds(double seconds) const;

    EditorState* state;
    MusicTransport* music;
    double end;
    bool scrubbing;
};

} // namespace edit
