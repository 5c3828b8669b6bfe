// SPDX-License-Identifier: MIT
#include "effects/FX_Clouds.h"

#include "display/GLWindow.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/FlatScreen.h"
#include "math/Primitives.h"
#include "math/Random.h"
#include "math/Scalar.h"
#include "resources/ShaderParams.h"
#include "resources/ShaderProgram.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <GL/glu.h>
#include <cmath>

static const float cloudsPi = 3.1415927f;
static const float radiansPerDegree = 0.017453292f;

static const int firstSeed = 310312;

// The field of clouds: x is -40 to 40, y is -18 to 6, and there is a cloud every 2 units along -z.
static const int placeSteps = 2000;
static const float placeDivisor = 1000.0f;
static const float cloudWidth = 20.0f;
static const float cloudHeight = 6.0f;
static const float cloudSpacing = -2.0f;
static const float cloudHalfSize = 15.0f;
static const float cutOff = 6.0f; // clouds nearer than this to cameraTravel are not drawn
static const float thinningDepth = 20.0f;
static const float thinningRate = 1.7f; // of fade, 1/s, for a cloud that comes close, and back
static const float leavingRate = 1.4f;  // the same, for all clouds while the scene fades out

static const float flightSpeed = 30.0f; // units per second
static const float eyeBack = 10.0f;
static const float lookAhead = 1000.0f;
static const float joltHeight = 3.0f;
static const float joltSwings = 5.0f;
static const float shakeDecay = 6.1f; // 1/s

static const float band = 0.9f;
static const float skyRise = 1.2f;      // decay of skyFade, 1/s
static const float skyFall = 3.2f;      // its growth while fading out
static const float skyFallStart = 0.1f; // where it starts when the fade-out turns on
static const float blendSpeed = 2.0f;   // 1/s

static const float handRise = 4.0f; // of handAlpha, 1/s
static const float handDim = 0.3f;
static const float approach = 0.4f;  // of the eye, units per second, while a pair rises
static const float diveSpeed = 5.0f; // of cameraBlend, 1/s
static const float diveEnd = 1.5f;   // of cameraBlend, from where the pair dims

static const float greetingScale = 5.0f;
static const float halfSizeOfScale = 0.26f;
static const float cardRotation = -11.729964f; // degrees
static const float cardX = 0.386699f;
static const float cardY = 0.787674f;
static const int greetingPairs = 6;

static const float diveTargetX = 0.302709f;
static const float diveTargetY = 1.22398f;
static const float diveTurn = -11.73f; // degrees

static const int rollSteps = 30; // degrees
static const float rollCentre = 15.0f;
static const int rollChangeSteps = 5;
static const float rollChangeCentre = 2.5f;

// What Init loads. There is no picture number 10.
static const char* const textureNames[] = {
    "cloud_5.png",      "cloud_6.png",      "himmelarsch.jpg",  "himmelarschling.jpg",
    "greetings_01.png", "greetings_02.png", "greetings_03.png", "greetings_04.png",
    "greetings_05.png", "greetings_06.png", "greetings_07.png", "greetings_08.png",
    "greetings_09.png", "greetings_11.png", "greetings_12.png", "greetings_13.png",
};
static const int firstGreeting = 4; // of the textures; the others follow
static_assert(std::size(textureNames) == firstGreeting + 2 * greetingPairs);
static const char* const programPaths[] = {"data/glowmask.vp", "data/mix.fp"};
const EffectFiles FX_Clouds::files = {.textures = textureNames, .programs = programPaths};

FX_Clouds::FX_Clouds()
    : clouds{}, cameraTravel(0), skyFade(1), greetingIndex(-2), handState(HandDimming), handAlpha(0),
      cameraBlend(0), shake(0), roll(0), rollFrom(0), rollTo(0), blendValue(0), cloudTexture(nullptr),
      handId(0), handFraktId(0), fadeOutId(0), blendId(0), rollBlend(0), seed(firstSeed),
      fadeOutActive(false), cloudQuads(QuadBatch::Colours), skyTexture(nullptr), skyTexture2(nullptr),
      cloudTexture2(nullptr), blendActive(false), mixShader(nullptr), sampler0Uniform(nullptr),
      sampler1Uniform(nullptr), deltaUniform(nullptr)
{
}

void FX_Clouds::Init(GLWindow* newWindow, DemoPlayer* newPlayer)
{
    PlaceClouds();
    cameraTravel = 0;
    skyFade = 1;
    shake = 0;
    rollBlend = 0;
    roll = 0;

    greetingTextures.clear();
    if (TextureLoader* textures = TextureLoader::GetInstance()) {
        Texture** const scenery[firstGreeting] = {&cloudTexture, &cloudTexture2, &skyTexture, &skyTexture2};
        for (int i = 0; i < firstGreeting; i++)
            *scenery[i] = textures->GetTexture(textureNames[i], true, true, true);
        for (size_t i = firstGreeting; i < std::size(textureNames); i++)
            greetingTextures.push_back(textures->GetTexture(textureNames[i], true, true, true));
    }
    greetingTextures.resize(2 * greetingPairs);

    greetingQuads.clear();
    for (int i = 0; i < greetingPairs; i++)
        AddGreetingPair(Vector3(0, 0, 0), greetingScale);

    handState = HandDimming;
    handAlpha = 0;
    cameraBlend = 0;
    greetingIndex = -2;
    ResetCamera();
    rollFrom = rollTo = 0;
    fadeOutActive = false;
    blendActive = false;
    blendValue = 0;

    const auto& [vertex, fragment] = programPaths;
    mixShader = ShaderProgram::Load(vertex, fragment);
    sampler0Uniform = new ShaderSampler(mixShader, "sampler0");
    sampler1Uniform = new ShaderSampler(mixShader, "sampler1");
    deltaUniform = new ShaderFloatParam(mixShader, "delta");

    Attach(newWindow, newPlayer);
    Update();
    Update();
}

void FX_Clouds::DeclareMessages(SynchMessageTable* table)
{
    handId = table->DeclareMessage("hand", this, "NA");
    handFraktId = table->DeclareMessage("handFrakt", this, "NA");
    fadeOutId = table->DeclareMessage("fadeOut", this, "NA");
    blendId = table->DeclareMessage("blend", this, "NA");
}

void FX_Clouds::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == handId) {
        ShowNextHand();
    } else if (messageId == handFraktId) {
        Dive();
    } else if (messageId == fadeOutId) {
        fadeOutActive = !fadeOutActive;
        skyFade = fadeOutActive ? skyFallStart : 1.0f;
    } else if (messageId == blendId) {
        blendActive = true;
    }
}

void FX_Clouds::Update()
{
    const float delta = FrameTimer::GetDelta();
    if (fadeOutActive)
        skyFade += std::fabs(skyFade) * delta * skyFall;
    else
        skyFade -= delta * skyFade * skyRise;
    cameraTravel += delta * flightSpeed;
    shake -= delta * shake * shakeDecay;

    if (handState == HandRising) {
        handAlpha += delta * handRise;
        eyeStart.z -= delta * approach;
    } else if (handState == HandDiving) {
        cameraBlend += delta * diveSpeed;
    } else {
        handAlpha -= delta * handDim;
    }

    // rollBlend has no limit: the picture rolls on past rollTo until the next hand.
    rollBlend += delta;
    roll = rollBlend * rollTo + (1 - rollBlend) * rollFrom;
    UpdateGreetingCamera();
    if (cameraBlend >= diveEnd)
        handState = HandDimming;

    UpdateClouds(delta);
    if (blendActive) {
        blendValue += blendSpeed * delta;
        if (blendValue >= 1)
            blendValue = 1;
    }
}

void FX_Clouds::Render()
{
    RenderSky();
    RenderClouds();
    RenderGreetings();
}

void FX_Clouds::PlaceClouds()
{
    seed = firstSeed;
    for (int i = 0; i < cloudCount; i++) {
        Cloud& cloud = clouds[i];
        cloud.fade = 0;
        cloud.x = NextRandom(&seed, placeSteps) / placeDivisor * cloudWidth;
        cloud.y = (NextRandom(&seed, placeSteps) / placeDivisor - 1) * cloudHeight;
        cloud.z = cloudSpacing * i;
    }
}

void FX_Clouds::AddGreetingPair(Vector3 position, float scale)
{
    const float s = scale * halfSizeOfScale;
    greetingQuads.push_back({0, s, position, true});
    greetingQuads.push_back(
        {cardRotation, s * halfSizeOfScale, position + Vector3(cardX, cardY, 0) * s, false});
}

void FX_Clouds::ResetCamera()
{
    targetStart = targetEnd = target = Vector3(0, 0, 0);
    eyeStart = eyeEnd = eye = Vector3(0, 0, 3);
}

void FX_Clouds::ShowNextHand()
{
    handState = HandRising;
    handAlpha = 0;
    cameraBlend = 0;
    rollBlend = 0;
    shake = 1;
    // The results are not used, but the random sequence has to move on by three.
    for (int i = 0; i < 3; i++)
        NextRandom(&seed, placeSteps);

    // After the six pairs comes one hand that shows nothing. The comparison is unsigned, as sizes are.
    greetingIndex += 2;
    if (unsigned(greetingIndex) >= greetingQuads.size() ||
        unsigned(greetingIndex) + 1 >= greetingQuads.size())
        greetingIndex = -2;

    ResetCamera();
    rollFrom = NextRandom(&seed, rollSteps) - rollCentre;
    rollTo = NextRandom(&seed, rollChangeSteps) + rollFrom - rollChangeCentre;
}

static Vector3 TurnedAboutZ(Vector3 v, float degrees)
{
    const float a = degrees * radiansPerDegree;
    return Vector3(CosF(a) * v.x - SinF(a) * v.y, SinF(a) * v.x + CosF(a) * v.y, v.z);
}

void FX_Clouds::Dive()
{
    handState = HandDiving;
    handAlpha = 1;
    cameraBlend = 0;
    targetEnd = TurnedAboutZ(Vector3(diveTargetX, diveTargetY, 0), diveTurn);
    eyeEnd = targetEnd + Vector3(-0.2f, -0.2f, 0.6f);
    target = targetStart;
    eye = eyeStart;
}

void FX_Clouds::UpdateGreetingCamera()
{
    if (cameraBlend > 1) // the camera stays where its move has ended
        return;
    eye = eyeEnd * cameraBlend + eyeStart * (1 - cameraBlend);
    target = targetEnd * cameraBlend + targetStart * (1 - cameraBlend);
    eye = TurnedAboutZ(eye, roll);
    target = TurnedAboutZ(target, roll);
}

bool FX_Clouds::IsAhead(const Cloud& cloud) const
{
    return cameraTravel + cutOff < -cloud.z;
}

// Cloud number 0 is neither updated nor drawn.
void FX_Clouds::UpdateClouds(float delta)
{
    for (int i = cloudCount - 1; i >= 1; i--) {
        Cloud& cloud = clouds[i];
        if (!IsAhead(cloud))
            continue;
        const float depth = std::fabs(cameraTravel + cloud.z);
        if (depth < thinningDepth) {
            cloud.fade += delta * thinningRate;
        } else if (fadeOutActive) {
            cloud.fade += delta * leavingRate;
        } else {
            cloud.fade -= delta * thinningRate;
            if (cloud.fade <= 0)
                cloud.fade = 0;
        }
    }
}

void FX_Clouds::BindPair(Texture* first, Texture* second)
{
    BindProgram(mixShader);
    sampler0Uniform->Set(0);
    glActiveTexture(GL_TEXTURE0);
    BindTexture(first);
    sampler1Uniform->Set(1);
    glActiveTexture(GL_TEXTURE1);
    BindTexture(second);
    deltaUniform->Set(&blendValue, 1);
}

void FX_Clouds::UnbindPair()
{
    UnbindProgram();
    UnbindTexture();
    glActiveTexture(GL_TEXTURE0);
    UnbindTexture();
}

void FX_Clouds::RenderSky()
{
    {
        FlatScreen screen;
        glLoadIdentity();
        window->SetLetterbox(band);
        glTranslatef(0, 0, -1);

        BindPair(skyTexture, skyTexture2);
        glDepthMask(GL_FALSE);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glColor4f(1, 1, 1, 1 - skyFade);
        DrawRectangle(0, 0, 1, 1);
        glDisable(GL_BLEND);
        glDepthMask(GL_TRUE);
        UnbindPair();
    }
    glLoadIdentity();
}

void FX_Clouds::RenderClouds()
{
    gluLookAt(0, joltHeight * SinF(shake * cloudsPi * joltSwings), -cameraTravel + eyeBack, //
              0, 0, -cameraTravel - lookAhead,                                              //
              SinF(shake * cloudsPi + localTime) * shake, 1, 0);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glColor4f(1, 1, 1, 1);
    BindPair(cloudTexture, cloudTexture2);
    // Drawn from far to near. The array is in the order of depth already.
    Vec3 right, up;
    GetBillboardAxes(right, up);
    cloudQuads.Begin();
    for (int i = cloudCount - 1; i >= 1; i--) {
        const Cloud& cloud = clouds[i];
        if (!IsAhead(cloud))
            continue;
        cloudQuads.SetColour(1, 1, 1, 1 - cloud.fade);
        const Vec3 position = {cloud.x, cloud.y, cloud.z};
        cloudQuads.AddBillboard(position, right, up, cloudHalfSize);
    }
    cloudQuads.Draw();
    UnbindPair();
    UnbindTexture();
    glDisable(GL_BLEND);
}

void FX_Clouds::RenderGreetings()
{
    glLoadIdentity();
    gluLookAt(eye.x, eye.y, eye.z, target.x, target.y, target.z, 0, 1, 0);
    glRotatef(roll, 0, 0, 1);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDisable(GL_DEPTH_TEST); // stays off after Render
    glDepthMask(GL_FALSE);
    if (greetingIndex > -2) {
        RenderGreeting(greetingIndex, handAlpha);
        RenderGreeting(greetingIndex + 1, 2 * handAlpha);
    }
    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
}

void FX_Clouds::RenderGreeting(int number, float brightness) const
{
    const GreetingQuad& quad = greetingQuads[number];
    glPushMatrix();
    {
        glTranslatef(quad.position.x, quad.position.y, quad.position.z);
        glRotatef(quad.rotation, 0, 0, 1);
        BindTexture(greetingTextures[number]);
        glColor4f(brightness, brightness, brightness, brightness);
        DrawCentredRectangle(2 * quad.halfSize, 2 * quad.halfSize);
        UnbindTexture();
    }
    glPopMatrix();
}
