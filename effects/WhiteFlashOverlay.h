// SPDX-License-Identifier: MIT
// Lies over other effects and adds light: on "flash" the picture jumps towards white and comes back with an
// exponential decay. What is drawn on a later layer stands in front of the flash.
//
// Leaves behind: the projection of SetPerspective(45), texturing and blending disabled, the blend function
// (GL_ONE, GL_ONE), its grey as the colour. The depth state is used and left as it stands.
#pragma once

#include "kernel/Effect.h"

class WhiteFlashOverlay : public Effect
{
public:
    WhiteFlashOverlay();

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
