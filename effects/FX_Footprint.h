// SPDX-License-Identifier: MIT
// A walk on sand. The camera hangs over a plane of sand and runs towards -x in bursts; each print flares
// white, shrinks to its size and settles. But for the sand's fade-in over the first four seconds, all moments
// come from messages (parameters are ignored):
//   "step"          sets a print 4 units ahead of the look-at point, left and right in turn, and pushes the
//                   camera 6.25 units on
//   "trigger_base"  takes the sand away, and puts it back the next time; the prints stay
//
// Leaves behind: the projection of SetPerspective(45), depth test and depth writes enabled, blending enabled
// with (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), texturing enabled, the camera in modelview.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"
#include "math/QuadBatch.h"
#include "resources/GLSLShader.h"
#include "resources/GLSLUniforms.h"

#include <vector>

class Texture;

struct FootprintMark {
    float x;     // along the walk: the print stands at world x = -x
    float alpha; // 0 when set down, rises to 1
};

class FX_Footprint : public Effect
{
public:
    static const EffectFiles files;

    FX_Footprint();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

    // Read by tests.
    std::vector<FootprintMark> marks; // oldest first; only grows
    float walked;                     // the look-at point's distance along -x

private:
    void AddMark();
    void RenderSand();
    void LayOutSand();
    void RenderMark(const FootprintMark& mark, bool odd) const;

    QuadBatch sand; // never changes
    Texture* printTexture;
    Texture* sandTexture;
    Texture* glowTexture;
    GLSLShader blurShader;          // loaded, and never enabled
    GLSLUniformFloat blurIntensity; // never set
    bool hideSand;
    float push; // factor on the walking speed; 2 after a step, decays
    int msgTriggerBase;
    int msgStep;
};
