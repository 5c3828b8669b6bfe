// SPDX-License-Identifier: MIT
// The closing roll: three tall pages slide upward through the screen, one under the other, in a column half
// the screen wide, over whatever lies below.
//
// Message
//   "stopScroll"  brakes the roll, which comes to rest within about half a second, for good
//
// Leaves behind: blending disabled with (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), texturing enabled with the
// last page bound, white, an identity modelview. The projection is put back; the depth state is used as it
// stands.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"

#include <vector>

class Texture;

class FX_VerticalScroller : public Effect
{
public:
    static const EffectFiles files;

    FX_VerticalScroller();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

private:
    int msgStopScroll;
    std::vector<Texture*> pages; // from top to bottom; a further Init hangs three more below
    bool scrolling;
    float scroll; // the column's rise, half a screen height to the unit
    float speed;  // factor on the rate of rise
};
