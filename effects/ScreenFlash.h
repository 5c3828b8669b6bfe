// SPDX-License-Identifier: MIT
// What the two flash overlays have in common: a value that a message sets to 1 and that decays, and the quad
// in front of the eye that covers the whole viewport.
#pragma once

class Effect;
class SynchMessageTable;

class ScreenFlash
{
public:
    ScreenFlash();

    // Declares "flash", the message that Receive reacts to.
    void Declare(SynchMessageTable* table, Effect* owner, const char* description);

    // Parameter 0, if given, is the rate of the decay in 1/s. It is kept for later flashes.
    void Receive(int messageId, const float* params, int paramCount);

    // One frame's decay. A rate times frame length above 1 makes the value swing below 0.
    void Update();

    // Moves an identity modelview so that the quad stands in front of the eye, sets the projection to
    // SetPerspective(45) and the colour to grey.
    static void Place(float grey);

    // Draws the quad with a blend function (GL_ONE and so on). Leaves blending disabled with that function.
    static void Draw(unsigned sourceFactor, unsigned destinationFactor);

    float value; // 1 at the flash, decays towards 0 and never gets there

private:
    int messageId;
    float speed; // rate of the decay, 1/s
};
