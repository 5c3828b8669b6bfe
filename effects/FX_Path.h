// SPDX-License-Identifier: MIT
// The walk through the village. A strip of music unrolls over the field along x, between two rows of twisted
// houses, to a plaza with six pillars at x = 64; the camera follows its head. Then the camera lifts, and a
// tree of light on the plaza burns to the beat.
//
// Messages (parameters are ignored)
//   "trigger_cam"  slows the walk, lifts the camera, plants the tree; those below count only after it
//   "tree1"        sets the tree on fire; at the third hit more, at further multiples of three less
//   "tree2"        sets it on fire with many flying sparks
//   "tree3"        drops the look-at point and lets it climb again
//   "flash_all", "flash_cam"  change nothing, and are there for scripts to name
// tree1 and tree2 are counted as hits: from the second on the camera orbits the plaza, from the sixth on two
// rings cover the screen on every pulse.
//
// Leaves behind: the projection of SetPerspective(45), depth test and depth writes enabled, lighting and its
// lights 0 and 1 disabled with their positions and light 1's colour set, GL_NORMALIZE enabled, smooth
// shading, texturing enabled with nothing bound, the camera in modelview. Blending is disabled before
// trigger_cam and while the rings are drawn; in between it stays enabled, additive.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"
#include "math/QuadBatch.h"

class GlowTree;
class Texture;

class FX_Path : public Effect
{
public:
    static const EffectFiles files;

    FX_Path();
    ~FX_Path() override;

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

    // Read by tests.
    GlowTree* tree;   // owned; a further Init plants another and leaves the first one standing
    float zoomTarget; // what zoom relaxes to
    float zoom;       // raises the look-at point
    float pulse;      // kick of the tree messages: bends the pillars, shakes the cameras, drives the rings
    int treeHits;     // tree1 and tree2 messages that counted
    bool triggered;   // for good
    float walkSpeed;  // factor on the walking rate
    float stripFade;  // the strip's opacity is 1 minus this
    float walked;     // in units of the strip's texture, of 50 world units each
    float edgeFade;   // lifts the look-at point, and fades one corner of the strip's soft head

private:
    void TakeTree1();
    void RenderPrelude() const;
    void PlaceCamera() const;
    void DrawSkybox() const;
    void RenderField() const;
    void RenderHouses() const;
    void RenderPillars() const;
    void RenderPlaza() const;
    void RenderShadows() const;
    void RenderStrip();
    void RenderTree() const;
    void RenderRings() const;

    QuadBatch stripHead; // of one frame
    Texture* houseTexture;
    Texture* lightTextures[2]; // a window, lit and unlit
    Texture* stripTexture;
    Texture* sparkTexture;
    Texture* fieldTexture;
    Texture* plazaTexture;
    Texture* skyLeft;
    Texture* skyBack;
    Texture* skyRight;
    Texture* skyTop;
    Texture* ringTexture;
    float fades[4]; // decay from 0, and are read by nothing
    int msgTree1, msgTree2, msgTree3, msgFlashCam, msgFlashAll, msgTriggerCam;
};
