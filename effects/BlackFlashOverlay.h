// SPDX-License-Identifier: MIT
// Lies over other effects and takes light: the picture jumps to black and comes back with an exponential
// decay. What is drawn on a later layer stands in front of the dark.
//
// Message
//   "flash"  starts a flash; parameter 0, if given, is the rate of the decay in 1/s, 1 at first, and is kept
//            for later flashes
//
// Leaves behind: the projection of SetPerspective(45), texturing and blending disabled, the blend function
// (GL_DST_COLOR, GL_ZERO), the grey of the flash as the colour. The depth state is used and left as it stands.
#pragma once

#include "effects/ScreenFlash.h"
#include "kernel/Effect.h"

class BlackFlashOverlay : public Effect
{
public:
    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

private:
    ScreenFlash flash;
};
