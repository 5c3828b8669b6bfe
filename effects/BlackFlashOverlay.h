// SPDX-License-Identifier: MIT
// Lies over other effects and takes light: on "flash" the picture jumps to black and comes back with an
// exponential decay. What is drawn on a later layer stands in front of the dark.
//
// Leaves behind: the projection of SetPerspective(45), texturing and blending disabled, the blend function
// (GL_DST_COLOR, GL_ZERO), its grey as the colour. The depth state is used and left as it stands.
#pragma once

#include "kernel/Effect.h"

class BlackFlashOverlay : public Effect
{
public:
    BlackFlashOverlay();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

private:
    int flashId;      // "flash"; parameter 0, if given, is the new flashSpeed
    float flashValue; // 1 at the flash, decays towards 0 and never gets there
    float flashSpeed; // rate of the decay in 1/s, kept for later flashes
};
