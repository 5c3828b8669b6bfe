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

    // Also while it plays.
    void GoTo(double seconds);

    // The same again and again, while the mouse drags the play head: what plays is silent until EndScrub.
    void Scrub(double seconds);
    void EndScrub();
    bool IsScrubbing() const { return scrubbing; }

    // Stops, and moves to a frame's beginning.
    void StepFrames(int64_t frames);

    // Takes a region. False: it is empty, and the old one stays.
    bool SetLoop(double from, double to);
    void SetLooping(bool loop);

    // Once per frame of the window: the play head is where the music is heard. True if it has moved.
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
