// SPDX-License-Identifier: MIT
// The flight through the clouds: straight ahead at 30 units a second through 700 camera-facing clouds, in
// front of a sky picture, with greetings that reach up before everything.
//
// Messages (parameters are ignored)
//   "hand"       shows the next pair of greetings, jolts the camera, tilts the picture
//   "handFrakt"  dives towards the small second picture of the pair; 0.3 s later the pair begins to dim
//   "blend"      cross-fades sky and clouds to their second pictures within half a second
//   "fadeOut"    turns the fade of the whole scene on, and off again the next time
//
// Leaves behind: the band of SetLetterbox(0.9), depth test disabled, depth writes enabled, blending disabled
// with (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), texturing enabled with nothing bound, unit 0 selected, the
// greeting camera in modelview. It draws the clouds and greetings under the projection that it finds.
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"
#include "math/QuadBatch.h"
#include "math/Vector3.h"

#include <vector>

class ShaderFloatParam;
class ShaderProgram;
class ShaderSampler;
class Texture;

struct Cloud {
    float z;
    float x;
    float y;
    float fade; // the sprite's alpha is 1 - fade; can run above 1
};

struct GreetingQuad {
    float rotation; // degrees about z
    float halfSize;
    Vector3 position;
    bool isLarge; // the first of a pair; nothing reads it
};

const int cloudCount = 700;

class FX_Clouds : public Effect
{
public:
    static const EffectFiles files;

    FX_Clouds();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

    // Read by tests.
    Cloud clouds[cloudCount]; // number 0 lies nearest to the start
    std::vector<GreetingQuad> greetingQuads;
    float cameraTravel; // distance flown
    float skyFade;      // the sky's alpha is 1 - skyFade
    int greetingIndex;  // even index of the pair on show, -2 for none
    int handState;      // HandRising, HandDiving, HandDimming
    float handAlpha;    // brightness of the pair; GL limits it
    float cameraBlend;  // along the camera's move, 0 to 1 and beyond
    Vector3 eye, target;
    float shake; // the jolt: 1 at "hand", decays
    float roll;  // degrees
    float rollFrom, rollTo;
    float blendValue; // the cross-fade, 0 to 1

    enum { HandRising = 0, HandDiving = 1, HandDimming = 2 };

private:
    void PlaceClouds();
    void AddGreetingPair(Vector3 position, float scale);
    void ResetCamera();
    void ShowNextHand();
    void Dive();
    void UpdateGreetingCamera();
    bool IsAhead(const Cloud& cloud) const;
    void UpdateClouds(float delta);
    void BindPair(Texture* first, Texture* second);
    void UnbindPair();
    void RenderSky();
    void RenderClouds();
    void RenderGreetings();
    void RenderGreeting(int number, float brightness) const;

    Texture* cloudTexture;
    int handId, handFraktId, fadeOutId, blendId;
    std::vector<Texture*> greetingTextures;
    Vector3 eyeStart, eyeEnd, targetStart, targetEnd; // ends of the greeting camera's move
    float rollBlend;                                  // seconds since "hand"
    int seed;                                         // of the effect's own random sequence
    bool fadeOutActive;
    QuadBatch cloudQuads; // those of one frame
    Texture* skyTexture;
    Texture* skyTexture2;
    Texture* cloudTexture2;
    bool blendActive;
    ShaderProgram* mixShader;
    ShaderSampler* sampler0Uniform;
    ShaderSampler* sampler1Uniform;
    ShaderFloatParam* deltaUniform;
};
