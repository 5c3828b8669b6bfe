// SPDX-License-Identifier: MIT
// One picture over the whole window, zooming in very slowly, with a glow mask that works on it through a
// fragment shader.
//
// Messages
//   "fade"   starts the shader's "delta" from 0 upward, 0.5 a second, without end
//   "flash"  changes nothing that is seen: it sets a value that decays and that nothing reads. It stays without effect,
//            since a visible flash would change existing shows.
//
// Leaves behind: the band of SetLetterbox(1), depth test and depth writes enabled, blending disabled with
// (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), texturing enabled on units 0 and 1 with nothing bound, unit 0
// selected, white, an identity modelview. The projection is put back.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"

#include <string>

class ShaderFloatParam;
class ShaderProgram;
class ShaderSampler;
class Texture;

class FS_Image : public Effect
{
public:
    static const EffectFiles files;

    explicit FS_Image(std::string newImageName);

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

private:
    void DrawPicture() const;

    Texture* imageTexture;
    std::string imageName;
    int flashId;
    int fadeId;
    float flashValue; // 1 at "flash", decays
    float flashSpeed; // rate of that decay, 1/s
    ShaderProgram* glowShader;
    ShaderSampler* sampler0Uniform; // the picture
    ShaderSampler* sampler1Uniform; // the mask
    ShaderFloatParam* deltaUniform;
    Texture* glowMaskTexture;
    bool fading;
    float fadeValue; // what "delta" is set to
};
