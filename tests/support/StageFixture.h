// SPDX-License-Identifier: MIT
// What an effect needs to run: a window, a player, a message table, frames. The two fixtures that
// tests derive from open the window: recorder/EffectFixture.h on the recorder, picture/PictureFixture.h on
// the software rasteriser.
#pragma once

#include "tests/support/ShowFixture.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/Effect.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"

class StageFixture : public ShowFixture
{
protected:
    // As the start-up does it: DeclareMessages at once, Init with window and player. Records begin anew.
    void Prepare(Effect* effect);
    void Declare(Effect* effect);
    void Init(Effect* effect);

    // The id that a message got in DeclareMessages; fails the test if it wasn't declared.
    int MessageId(Effect* effect, std::string name);
    void Send(Effect* effect, std::string name, const std::vector<float>& params = {});

    // What was declared, "name: description" in order.
    std::vector<std::string> DeclaredMessages(Effect* effect) const;

    // The start of a frame as the sequencer makes it (colour and depth cleared, modelview the identity), then
    // Render with fresh records. Nothing else: no time passes, no Update.
    void Frame(Effect* effect);

    // One more effect on a later layer of the same frame: depth cleared, modelview the identity, Render.
    void Overlay(Effect* effect);

    // The next frame of a show, all of it: localTime grows by the last frame's length, the start of a frame,
    // Render with fresh records, Update; then `seconds` pass, the length that the next frame sees.
    void ShowFrame(Effect* effect, double seconds);

    // As many whole frames of `step` seconds as fit, without records.
    void RunFor(Effect* effect, double seconds, double step);

    GLWindow window;
    SynchMessageTable messages;
    DemoPlayer player; // not initialised; effects keep it and never look inside

private:
    virtual void BeginRecords() {}    // ahead of what a test wants to look at
    virtual void KeepRecords(bool) {} // false while frames are only passed through
};
