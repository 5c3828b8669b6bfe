// SPDX-License-Identifier: MIT
// A flight round four huge twisted towers on a disc of turning spirographs, inside a cube of nested sky
// layers of light. The camera comes in from far off, out of black, and then runs on an ellipse, looking up.
//
// Message (parameters are ignored)
//   "flash_line"  makes six long beams flicker for about half a second and shakes the camera
//
// It draws under the projection that it finds. Leaves behind: depth test and depth writes enabled, lighting
// and blending disabled, texturing enabled, the last rotor's or beam's colour, the camera in modelview, and
// one GL_STACK_UNDERFLOW.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"
#include "math/QuadBatch.h"

class Texture;

class FX_Towers : public Effect
{
public:
    static const EffectFiles files;

    FX_Towers();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

    // Read by tests.
    float distance; // of the approach: 10 at the start, decays towards 0
    float fade;     // brightness, 1 - distance / 10
    float flash;    // 1 at "flash_line", decays

private:
    void CompileTowers();
    void PlaceCamera() const;
    void DrawSkyLayer(float scale, int turn) const;
    void RenderDiscs() const;
    void RenderRotors() const;
    void RenderBeams();
    void AddBeam(const QuadCorner corners[4], float height, float phase);

    QuadBatch beams; // those of one frame
    Texture* towerTexture;
    Texture* spiroTexture;
    unsigned towerList; // GL display list
    Texture* skyLeft;
    Texture* skyBack;
    Texture* skyRight;
    Texture* skyFront;
    Texture* beamTexture;
    int msgFlashLine;
};
