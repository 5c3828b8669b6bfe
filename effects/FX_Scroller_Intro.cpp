// SPDX-License-Identifier: MIT
#include "effects/FX_Scroller_Intro.h"

#include "effects/ScrollerPaths.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/FlatScreen.h"
#include "math/Primitives.h"
#include "math/Random.h"
#include "math/Scalar.h"
#include "platform/DebugChannel.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <algorithm>
#include <cstdio>

// This effect's own figure of pi. It is not to be made more exact.
static const float scrollerPi = 3.141f;

// Speeds of the scroll in screen widths per second. The sky brakes a little before it stops at its end.
static const float panoramaSpeed = 0.035f;
static const float layerSpeed = 0.07f;
static const float brakeAt = -2.95f;
static const float stopAt = -3.0f;

static const float skyRise = 0.01f; // of localTime cubed: the sky stands after 4.64 s

static const float sparkPathSpeed = 0.11f; // paths per second
static const float sparkDecay = 1.2f;      // 1/s
static const float sparkMargin = 0.06f;    // side of the dimmest spark's quad
static const float sparkSizeDivisor = 30.0f;
static const float sparkPointSize = 4.0f;
static const float unplacedX = -4.0f; // left of the screen in every sky picture and at every scroll

static const int sparksPerFlash = 150;
static const int flashSteps = 500; // different amounts of additional life
static const float flashStepsPerLife = 250.0f;
// Three flashes of different strength follow each other in turn. The strength of the first is that of the
// remainder of this negative count, so that it must not be tidied to 0.
static const int flashCountStart = -842150451;
static const int flashTurns = 3;

static const float logoFadeFactor = 20.0f; // the logo goes with the sky when that is down to 1/20

struct Layer {
    float place; // X at scroll 0, screen widths
    float speed; // factor on the layers' scroll
    float slope; // of alpha over X, left of layerFadeEdge
    float left, bottom, right, top;
    float v; // lower edge of the picture in its texture
};

static const float layerFadeEdge = 0.1f;

// clang-format off
//                               place  speed  slope    left   bottom right  top      v
static const Layer tesselLogo   = {1.5f, 1.0f, 3.0f,    0.15f, 0.15f, 0.85f, 0.85f,   1.0f};
static const Layer blackChick   = {2.7f, 1.2f, 0.0f,    0.0f,  0.0f,  0.42f, 1.01f,   343 / 512.0f};
static const Layer waldsterben  = {4.3f, 1.2f, 0.0f,    0.0f,  0.0f,  1.0f,  0.5f,    1.0f};
static const Layer waldsterben2 = {6.1f, 1.4f, 0.0f,    0.0f,  0.0f,  1.0f,  0.5f,    1.0f};
// clang-format on

// In the last sky picture.
static const float closingLogoLeft = 236 / 1024.0f;
static const float closingLogoRight = 747 / 1024.0f;
static const float closingLogoBottom = 294 / 1024.0f;
static const float closingLogoTop = 804 / 1024.0f;

// These are not members, so that they outlive every Init: a further entry of the effect continues where the
// last one stopped.
static float panoramaScroll = 0;
static float layerScroll = 0;
static float logoHidden = 1;

// What Init loads.
static const char* const textureNames[] = {
    "tessel-logo.png",       "black-chick.png",       "moonwaltz-logo.png",
    "waldsterben.png",       "waldsterben2.png",      "sky-background_01.jpg",
    "sky-background_02.jpg", "sky-background_03.jpg", "sky-background_04.jpg"};
static const char* const lightNames[] = {"partikel_2.jpg"};
const EffectFiles FX_Scroller_Intro::files = {.textures = textureNames, .lights = lightNames};

FX_Scroller_Intro::FX_Scroller_Intro()
    : particles{}, flashCount(flashCountStart), fade(0), sparks(QuadBatch::Colours), skyTextures{},
      particleTexture(nullptr), blackChickTexture(nullptr), moonwaltzLogoTexture(nullptr),
      tesselLogoTexture(nullptr), waldsterbenTexture(nullptr), waldsterben2Texture(nullptr), fadingOut(false),
      logoFadingIn(false), lightFlashId(0), fadeoutId(0), fadeinLogoId(0)
{
}

void FX_Scroller_Intro::Init(GLWindow*, DemoPlayer*)
{
    // No Attach: the effect needs no window, and Init runs for each of its timeline entries.
    TextureLoader* textures = TextureLoader::GetInstance();
    if (!textures)
        return;
    const auto& [tessel, chick, logo, wood, wood2, sky1, sky2, sky3, sky4] = textureNames;
    const auto& [spark] = lightNames;
    tesselLogoTexture = textures->GetTexture(tessel, true, true, true);
    blackChickTexture = textures->GetTexture(chick, true, true, true);
    moonwaltzLogoTexture = textures->GetTexture(logo, true, true, true);
    waldsterbenTexture = textures->GetTexture(wood, false, false, true);
    waldsterben2Texture = textures->GetTexture(wood2, false, false, true);
    particleTexture = textures->GetTexture(spark, true, true, true);

    // The paths are not emptied first: a second Init doubles their points, so that a spark runs each twice.
    for (int k = 0; k < scrollerPathCount; k++)
        for (const float* table = scrollerPaths[k]; *table != scrollerPathEnd; table++)
            paths[k].push_back(*table / scrollerPathUnit);

    for (int i = 0; i < scrollerParticleCount; i++) {
        const float s = SinF(i / float(scrollerParticleCount) * scrollerPi);
        particles[i].pathIndex = i % scrollerPathCount;
        particles[i].pathPos = s * s;
        particles[i].life = 0; // dark until a flash
        // A flash in the first frame comes ahead of the Update that puts the sparks on their paths.
        particles[i].x = unplacedX;
    }

    skyTextures[0] = textures->GetTexture(sky1, false, false, true);
    skyTextures[1] = textures->GetTexture(sky2, false, false, true);
    skyTextures[2] = textures->GetTexture(sky3, false, false, true);
    skyTextures[3] = textures->GetTexture(sky4, false, false, true);

    fadingOut = false;
    fade = 1;
}

void FX_Scroller_Intro::DeclareMessages(SynchMessageTable* table)
{
    fadeinLogoId = table->DeclareMessage("fadein_logo", this, "NA");
    fadeoutId = table->DeclareMessage("fadeout", this, "NA");
    lightFlashId = table->DeclareMessage("light_flash", this, "NA");
}

void FX_Scroller_Intro::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == lightFlashId) {
        flashCount++;
        for (int i = 0; i < sparksPerFlash; i++) {
            // The spark is drawn from the random sequence before its life. A spark may come twice; then
            // the later life stands.
            const int j = Random() % scrollerParticleCount;
            const int turn = flashCount % flashTurns; // 0, -1 or -2
            const float base = 1 - turn / 2.0f;
            particles[j].life = base + Random() % flashSteps / flashStepsPerLife;
        }
    }
    if (messageId == fadeoutId)
        fadingOut = true;
    if (messageId == fadeinLogoId)
        logoFadingIn = true;
}

void FX_Scroller_Intro::Update()
{
    const float delta = FrameTimer::GetDelta();
    for (ScrollerParticle& particle : particles) {
        particle.pathPos += delta * sparkPathSpeed;
        if (particle.pathPos >= 1)
            particle.pathPos = 0;
        if (particle.life >= 0)
            particle.life -= delta * particle.life * sparkDecay;
        SamplePath(particle.pathPos, &particle.x, &particle.y, paths[particle.pathIndex % scrollerPathCount]);
    }
    if (fadingOut)
        fade -= delta * fade;
}

void FX_Scroller_Intro::SamplePath(float t, float* outX, float* outY, const std::vector<float>& path)
{
    const int n = int(path.size() / 2);
    if (n < 2)
        return;
    t = std::clamp(t, 0.0f, 1.0f);
    // There are n steps for n - 1 segments. On the last step the spark rests a third of the way along.
    int index = int(n * t);
    int next = index + 1;
    if (index >= n - 1) {
        index = n - 2;
        next = index / 3;
    }
    const float f = std::clamp((t - index / float(n)) / (1 / float(n)), 0.0f, 1.0f);
    *outX = (1 - f) * path[2 * index] + f * path[2 * next];
    *outY = (1 - f) * path[2 * index + 1] + f * path[2 * next + 1];
}

void FX_Scroller_Intro::Render()
{
    {
        FlatScreen screen;
        glLoadIdentity();
        glColor3f(1, 1, 1);

        AdvanceScroll();

        UnbindTexture();
        glDisable(GL_DEPTH_TEST);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glEnable(GL_BLEND);
        RenderSky();
        RenderSparks();
        RenderLayers();
        RenderClosingLogo();

        glEnable(GL_DEPTH_TEST);
    }
}

// Called from Render, not from Update. In the frame that crosses brakeAt both steps are made, and the last
// step may run past stopAt.
void FX_Scroller_Intro::AdvanceScroll()
{
    const float delta = FrameTimer::GetDelta();
    if (panoramaScroll < stopAt)
        return;
    if (panoramaScroll >= brakeAt) {
        panoramaScroll -= delta * panoramaSpeed;
        layerScroll -= delta * layerSpeed;
    }
    if (panoramaScroll < brakeAt) {
        const float k = 1 + panoramaScroll - brakeAt;
        panoramaScroll -= delta * panoramaSpeed * k;
        layerScroll -= delta * layerSpeed * k;
    }
}

void FX_Scroller_Intro::RenderSky()
{
    const float v = std::min(localTime * localTime * localTime * skyRise, 1.0f);
    const float c = CosF((1 - v) * scrollerPi / 2);
    for (int i = 0; i < 4; i++) {
        char trace[64];
        snprintf(trace, sizeof trace, "fadeout time: %f\n", fade);
        platform::OutputDebugText(trace);

        glPushMatrix();
        {
            BindTexture(skyTextures[i]);
            glTranslatef(panoramaScroll, 0, 0);
            glColor4f(c, c, c * c, fade); // blue comes last, so that the sky has a warm tint at first
            DrawRectangle(i, 0, i + 1, 1);
        }
        glPopMatrix();
    }
}

// The sky picture that a path lies in: three paths in each, and none in the first picture.
static float TileOf(int path)
{
    if (path > 5)
        return 3;
    if (path > 2)
        return 2;
    return 1;
}

void FX_Scroller_Intro::RenderSparks()
{
    glPushMatrix();
    {
        glTranslatef(panoramaScroll, 0, 0);
        glPointSize(sparkPointSize);
        glBlendFunc(GL_ONE, GL_ONE);
        glEnable(GL_BLEND);
        glColor3f(1, 1, 1);
        BindTexture(particleTexture);
        sparks.Begin();
        for (const ScrollerParticle& particle : particles) {
            if (!(particle.life > 0))
                continue;
            const float x = TileOf(particle.pathIndex % scrollerPathCount) + particle.x;
            const float onScreen = x + panoramaScroll;
            if (onScreen < 0 || onScreen > 1)
                continue;
            const float b = particle.life * particle.life * particle.life;
            const float side = particle.life * particle.life / sparkSizeDivisor + sparkMargin;
            const float half = side / 2;
            sparks.SetColour(b, b, b);
            sparks.AddRectangle(x - half, particle.y - half, x + half, particle.y + half);
        }
        sparks.Draw();
        glDisable(GL_BLEND);
    }
    glPopMatrix();
}

static void RenderLayer(const Layer& layer, Texture* texture)
{
    BindTexture(texture);
    const float x = layer.place + layer.speed * layerScroll;
    float a = 1;
    if (x < layerFadeEdge)
        a = (x - layerFadeEdge) * layer.slope + 1; // falls below 0, which GL limits
    glEnable(GL_BLEND);
    glColor4f(1, 1, 1, a);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glPushMatrix();
    {
        glTranslatef(x, 0, 0);
        DrawRectangle(layer.left, layer.bottom, layer.right, layer.top, layer.v);
    }
    glPopMatrix();
    glDisable(GL_BLEND);
}

void FX_Scroller_Intro::RenderLayers()
{
    RenderLayer(tesselLogo, tesselLogoTexture);
    RenderLayer(blackChick, blackChickTexture);
    RenderLayer(waldsterben, waldsterbenTexture);
    RenderLayer(waldsterben2, waldsterben2Texture);
}

void FX_Scroller_Intro::RenderClosingLogo()
{
    glPushMatrix();
    {
        BindTexture(moonwaltzLogoTexture);
        glTranslatef(3 + panoramaScroll, 0, 0); // fixed to the last sky picture
        if (logoFadingIn)
            logoHidden -= FrameTimer::GetDelta() * logoHidden;
        glEnable(GL_BLEND);
        const float m = std::min(fade * logoFadeFactor, 1.0f);
        glColor4f(1, 1, 1, (1 - logoHidden) * m);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        DrawRectangle(closingLogoLeft, closingLogoBottom, closingLogoRight, closingLogoTop);
        glDisable(GL_BLEND);
    }
    glPopMatrix();
}
