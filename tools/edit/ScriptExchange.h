// SPDX-License-Identifier: MIT
// Puts another script under a show that is being played, if everything that it has played so far would have been the
// same by the new one: the order in which effects loaded, and in each frame which effects rendered in which order and
// which message they received. What effects hold is then the same as well, since nothing else of a script reaches
// them, and the show goes on as one that was started with the new script.
//
// The frames are gone through by the player's own rules on lists of their own; no effect is called.
#pragma once

#include "kernel/EffectInstance.h"
#include "kernel/SynchMessage.h"

#include <cstdint>
#include <memory>
#include <vector>

class DemoPlayer;

namespace edit
{

// What a player has done with its lists after some frames.
class PlayedLists
{
public:
    // Takes a player that has loaded a script and played nothing.
    explicit PlayedLists(std::unique_ptr<DemoPlayer> loaded);
    ~PlayedLists();

    // Goes through the next frame, whose FrameTimer::GetTime is `time`.
    void PlayFrame(float time);

    std::unique_ptr<DemoPlayer> player;  // its timeline as it is after the frames
    size_t messagesLeft;                 // how many messages have left the list
    std::vector<Effect*> rendered;       // in the last frame, in order
    const SynchMessage* received;        // in the last frame; null if none left or its target was not there
    std::vector<EffectInstance*> active; // scratch
};

class ScriptExchange
{
public:
    ScriptExchange(std::unique_ptr<DemoPlayer> before, std::unique_ptr<DemoPlayer> after);

    // True if both scripts have the same colours and load the same effects in the same order. Effects are asked whether
    // they have loaded: call it when the show has.
    bool LoadsAlike() const;

    // Goes through the frames so far, given their times, and returns the first one that differs; their number if none
    // does. Call it once.
    int64_t FirstDifference(const std::vector<float>& times);

    // Gives the new script's lists to the player that has played exactly these frames by the script before, and none
    // differs. False, and nothing changed, if its lists are not as that script leaves them. *lead is how many more
    // messages have left the player's list than would have left that of its script: 0 at first, kept from one
    // exchange to the next.
    bool Apply(DemoPlayer* show, int64_t* lead);

private:
    PlayedLists before;
    PlayedLists after;
};

} // namespace edit
