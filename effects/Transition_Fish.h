// SPDX-License-Identifier: MIT
// A wipe between scenes: four fish skeletons, each of two cards with a hinge between them, swim in front of
// what the lower layers have drawn. It begins so close to the first fish that its bone fills the screen, and
// zooms out. There are no messages: its course is its local time, and the script's span cuts it off.
//
// Leaves behind: the projection at the last field of view, the depth test disabled, blending disabled with
// (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), texturing enabled with the tail bound, white, the camera in
// modelview.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"

class Texture;

class Transition_Fish : public Effect
{
public:
    static const EffectFiles files;

    Transition_Fish();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

private:
    void DrawFishCards() const;

    Texture* headTexture; // the card from head to hinge
    Texture* tailTexture; // the card from hinge to tail
    float closeness;      // 1 at the start, decays towards 0
    float drift;          // the fish's way so far
};
