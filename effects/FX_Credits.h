// SPDX-License-Identifier: MIT
// The names of the makers over a growing tree. The tree stands on a field in a lit scene of its own, which is
// rendered off the screen and comes back through a blur that follows its growth; over that one name at a time
// flares up and dies away.
//
// Messages (parameters are ignored). They come in pairs: the first of a pair lets the tree grow on and brings
// a name, the second plants a richer tree and changes the camera.
//   "fade_in"       one step on; never send more than stepCount
//   "fade_last_in"  the same, but it stops at the last step and the last name
//   "fade_out"      lets the tree shrink back and darkens the ground; any fade-in brings it back at once
//
// Leaves behind in the window's context: the band of SetLetterbox(0.9), depth test disabled, blending
// disabled with (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), texturing enabled with the name's picture bound, the
// name's colour. The projection is put back. The scene's camera, lights and materials stay in the off-screen
// target's context.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"
#include "math/Vector3.h"
#include "resources/GLSLShader.h"
#include "resources/GLSLUniforms.h"

class Texture;
class Tree;

class FX_Credits : public Effect
{
public:
    static const EffectFiles files;
    static const int stepCount = 8; // number of fade-in messages that change something
    static const int nameCount = 4;

    FX_Credits();
    ~FX_Credits() override;

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

    // Read by tests.
    float growth;       // of the tree before withering; also drives three cameras and the blur
    float growthTarget; // where growth is heading
    float wither;       // 1 in normal life, falls after "fade_out"
    float brightness;   // of the ground
    int step;           // counts fade-in messages from -1
    int creditIndex;    // the name on show, -1 for none
    float creditFade;   // 1 at the start of a name, decays
    Tree* tree;         // owned; a further Init makes another and leaves the first one standing
    float treeGrowth;   // what the tree is drawn with
    int treeSeed;       // of the next tree

private:
    void PlantTree();
    void FadeIn(bool limited);
    void ChooseCamera(Vector3* eye, Vector3* target) const;
    void RenderScene();
    void RenderGround() const;
    void RenderLitTree(const Vector3& light) const;
    void RenderShadow(const Vector3& light) const;
    void RenderBlurredPicture();
    void RenderName();

    GLSLShader blurShader;
    GLSLUniformFloat blurIntensity;
    float growthRate; // 1/s; 0 until the first message
    float witherRate;
    float brightnessTarget;
    Texture* groundTexture;
    Texture* creditTextures[nameCount];
    Texture* treeTexture;
    int fadeInId, fadeLastInId, fadeOutId;
    GLWindow* creditWindow; // a field of its own: without Attach there is no other
};
