// SPDX-License-Identifier: MIT
// On "flash" a photograph jumps in over whatever lies below and fades out over five seconds, while a blurred
// copy of it swells up and dies. Between flashes nothing is drawn and the GL state is not touched.
//
// Leaves behind, while something is drawn: depth test and depth writes enabled, blending disabled with
// (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), texturing enabled with the photograph bound, the last colour, an
// identity modelview. The projection is put back.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"
#include "resources/GLSLShader.h"
#include "resources/GLSLUniforms.h"

class Texture;

class FX_FlashHand : public Effect
{
public:
    static const EffectFiles files;

    FX_FlashHand();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

private:
    void DrawPhoto() const;

    Texture* photoTexture;
    GLSLShader blurShader;
    GLSLUniformFloat blurIntensity;
    int msgFlash;
    float flash; // 1 at the message, falls by 0.2 a second, also below 0
};
