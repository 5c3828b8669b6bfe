// SPDX-License-Identifier: MIT
// The opening: four sky pictures side by side travel to the left for about 86 seconds. Sparks of light run
// along the paths of ScrollerPaths.h in the second to fourth, four pictures slide by in front at speeds of
// their own, and at the end the production's logo stands in the middle of the last sky.
//
// Messages (parameters are ignored)
//   "light_flash"  lights 150 sparks, brighter and less bright in turns of three
//   "fadein_logo"  lets the closing logo rise
//   "fadeout"      lets the sky fall to black, and the logo with it at the end; sparks and layers stay
//
// All is drawn flat, the screen being the unit square with y upward. The scroll needs no message: it starts
// with the first Render and ends by itself. Its values live outside the object and nothing resets them, so
// that a further entry of the effect starts from the final picture.
//
// Leaves behind: the depth test enabled, blending disabled with (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA),
// texturing enabled with the closing logo bound, the colour of the logo, a point size of 4. The projection is
// put back.
#pragma once

#include "effects/ScrollerPaths.h"
#include "kernel/Effect.h"
#include "kernel/EffectRecord.h"
#include "math/QuadBatch.h"

#include <vector>

class Texture;

struct ScrollerParticle {
    float pathPos; // along the path, 0 up to but not including 1
    float life;    // brightness and size; 0 is dark, 3.996 the most
    int pathIndex; // which path, always used modulo their number
    float x, y;    // in the unit square of its sky picture, y upward; off the screen until the first Update
};

const int scrollerParticleCount = 2000;

class FX_Scroller_Intro : public Effect
{
public:
    static const EffectFiles files;

    FX_Scroller_Intro();

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override;
    void DeclareMessages(SynchMessageTable* table) override;
    void Update() override;
    void Render() override;
    void ReceiveMessage(int messageId, float* params, int paramCount) override;

    // The place on a path (x, y, x, y, ...) at t of 0 to 1, which is limited to that. A path of fewer than
    // two points leaves the place as it is.
    static void SamplePath(float t, float* outX, float* outY, const std::vector<float>& path);

    // Read by tests.
    ScrollerParticle particles[scrollerParticleCount];
    std::vector<float> paths[scrollerPathCount]; // in the unit square of a sky picture
    int flashCount;                              // of "light_flash", counted from an odd start
    float fade;                                  // of the sky, 1 down to 0

private:
    void AdvanceScroll();
    void RenderSky();
    void RenderSparks();
    void RenderLayers();
    void RenderClosingLogo();

    QuadBatch sparks; // those of one frame
    Texture* skyTextures[4];
    Texture* particleTexture;
    Texture* blackChickTexture;
    Texture* moonwaltzLogoTexture;
    Texture* tesselLogoTexture;
    Texture* waldsterbenTexture;
    Texture* waldsterben2Texture;
    bool fadingOut;
    bool logoFadingIn;
    int lightFlashId;
    int fadeoutId;
    int fadeinLogoId;
};
