// SPDX-License-Identifier: MIT
// A fish: a mesh with eyes under a shader that lets it swim, with a tail of fifty sparks that follow it like
// links of a chain. Three scenes with a camera each, every one started by a message; before the first nothing
// is shown. A scene has no end, and a message of its own kind starts it over. Parameters are ignored.
//   "intro"  the fish swims past a fixed eye
//   "front"  it rushes and shakes, and the camera rides along beside it; fades in and out
//   "shock"  it hangs at the origin, without tail, and flies at the camera as a short flash
//
// It draws under the projection that it finds. Leaves behind, once a message came: depth test and depth
// writes enabled, texturing enabled, the last colour, the camera in modelview; blending enabled and additive
// after a tail, disabled after "shock".
#pragma once

#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"
#include "math/QuadBatch.h"
#include "math/Vec3.h"
#include "resources/Model.h"

class ShaderFloatParam;
class ShaderProgram;
class ShaderSampler;
class Texture;

class FX_RopeThing : public Effect
{
public:
    static const EffectFiles files;

    FX_RopeThing();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

    static constexpr int ropeLinks = 50;
    // A mesh as the first Init compiled it: its GL display list, and the sizes that its lists had then.
    struct MeshList {
        unsigned list; // 0 before the first Init
        size_t faces, vertices, normals, texCoords;
    };

    enum { Nothing = 0, Intro = 1, Front = 3, Shock = 4 }; // there is no 2

    // Read by tests.
    int mode;
    Vec3* ropes[6]; // ropeLinks each; only the first is ever moved or drawn
    Vec3 position;  // of the fish
    float fade;     // brightness of this frame, rewritten by every Render
    float progress; // 1 at a message, decays: the scene's clock
    float travel;   // z of the fish

private:
    void StartRopeAtFish();
    void RelaxRope();
    void PlaceFront();
    void PlaceIntro();
    void PlaceShock();
    void DrawFish() const;
    void DrawRope(float brightness);

    QuadBatch sparks; // those of one frame
    Texture* sparkTexture;
    Model fishModel;
    Model eyesModel;
    Texture* skinTexture;
    Texture* eyeTexture;
    ShaderProgram* shader;
    ShaderSampler* samplerParam;
    ShaderFloatParam* timeParam;
    ShaderFloatParam* colorParam;
    unsigned fishList; // GL display lists
    unsigned eyesList;
    MeshList firstFish;
    MeshList firstEyes;
    int msgShock, msgIntro, msgFront;
};
