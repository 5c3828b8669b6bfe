// SPDX-License-Identifier: MIT
#include "effects/FX_RopeThing.h"

#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/Primitives.h"
#include "math/Scalar.h"
#include "resources/ShaderParams.h"
#include "resources/ShaderProgram.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <GL/glu.h>
#include <algorithm>

static const float ropeThingPi = 3.141f; // this effect's own figure

static const float firstTravel = -300.0f; // z of the fish before any message
static const float sceneTravel = 100.0f;  // and where intro and front begin
static const float fishScale = 6.0f;

// "intro": the fish weaves along x and sinks, seen from a fixed eye that looks at the origin.
static const float introEye[3] = {33, -33, -33};
static const float introWeave = 15.0f; // to either side, with a phase of localTime
static const float introSink = 10.0f;  // from this height to 0, with progress

// "front": the fish weaves along x with its way and shakes along y with time; the eye rides along.
static const float frontWeave = 5.0f;
static const float frontWeavePerUnit = 0.1f; // radians per unit of travel
static const float frontShake = 20.0f;       // up and down, of fish and eye
static const float frontShakeSpeed = 3.0f;   // radians per second
static const float frontEyeLag = 0.1f;       // radians by which the eye shakes behind the fish
static const float frontEyeRadius = 30.0f;   // of the eye's way round the fish
static const float frontEyeTurn = 0.4f;      // radians, with progress
static const float frontEyePhaseX = 2.0f;    // radians
static const float frontEyePhaseZ = 1.5f;
static const float frontDimming = 0.005f; // of the brightness, per unit between eye and fish

// "shock": the eye moves while it looks at the origin, from which the fish flies off along z.
struct ShockEye {
    float start, byProgress;
};
static const ShockEye shockEye[3] = {{0, 20}, {-10, 10}, {-20, 0}}; // x, y, z
static const float shockFlight = 10.0f;                             // along z, with progress

static const float ropeBehind = 4.0f; // the first link, behind the fish on z
static const float linkLength = 1.0f;
static const float sparkSize = 10.0f; // half a side, of the first spark

// clang-format off
//                          intro   front   shock
static const float introDecay = 1.4f,  frontDecay = 0.6f,  shockDecay = 6.4f; // of progress, 1/s
static const float introSpeed = 30.0f, frontSpeed = 50.0f, shockSpeed = 1.0f; // of travel, units per second

static const float ropeDirections[6][3] = {
    { 0,  0,  1},
    { 0,  0, -1},
    { 0,  1,  0},
    { 0, -1,  0},
    { 1,  0,  0},
    {-1,  0,  0},
};
// clang-format on

// What Init loads.
static const char* const textureNames[] = {"fischhaut.jpg", "fisheye.jpg"};
static const char* const lightNames[] = {"partikel_2.jpg"};
static const char* const modelPaths[] = {"data/fisheyes.txt", "data/fish.txt"};
static const char* const programPaths[] = {"data/fish.vp", "data/fish.fp"};
const EffectFiles FX_RopeThing::files = {
    .textures = textureNames, .lights = lightNames, .models = modelPaths, .programs = programPaths};

FX_RopeThing::FX_RopeThing()
    : mode(Nothing), ropes{}, position{0, 0, 0}, fade(0), progress(0), travel(firstTravel),
      sparks(QuadBatch::Colours), sparkTexture(nullptr), skinTexture(nullptr), eyeTexture(nullptr),
      shader(nullptr), samplerParam(nullptr), timeParam(nullptr), colorParam(nullptr), fishList(0),
      eyesList(0), firstFish{}, firstEyes{}, msgShock(0), msgIntro(0), msgFront(0)
{
}

// Makes a straight rope. It lives to the end of the process, also when a message puts another in its place.
static Vec3* MakeRope(const Vec3 direction, const Vec3 start)
{
    Vec3* rope = new Vec3[FX_RopeThing::ropeLinks];
    for (int i = 0; i < FX_RopeThing::ropeLinks; i++)
        Vec3MulAdd(rope[i], start, direction, float(i));
    return rope;
}

// True if the model is what one load gave it, several times over, and draws as such: each face like the one a
// load before it, and every corner inside the lists of the first load. A damaged file need not be so.
static bool IsRepetition(const Model& model, const FX_RopeThing::MeshList& first)
{
    const auto areInside = [](const std::vector<int>& indices, size_t count) {
        return std::all_of(indices.begin(), indices.end(), [count](int i) { return size_t(i) < count; });
    };
    if (first.faces == 0 || model.faces.size() % first.faces != 0)
        return false;
    for (size_t i = 0; i < model.faces.size(); i++) {
        const ModelFace& face = model.faces[i];
        const ModelFace& sameFace = model.faces[i % first.faces];
        if ((face.type != FaceTriangles && face.type != FaceQuads) || face.type != sameFace.type ||
            face.vertexIndices != sameFace.vertexIndices || face.normalIndices != sameFace.normalIndices ||
            face.texCoordIndices != sameFace.texCoordIndices ||
            !areInside(face.vertexIndices, first.vertices) || !areInside(face.normalIndices, first.normals) ||
            !areInside(face.texCoordIndices, first.texCoords))
            return false;
    }
    return true;
}

// The list draws all that was ever loaded into the model. Each Init adds the mesh once more, so that the
// corners of a hundred entries would lie in GL's memory five thousand times. The first list holds them, and
// each further one calls it.
static unsigned CompileModel(Model* model, FX_RopeThing::MeshList* first)
{
    const unsigned list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    if (first->list != 0 && IsRepetition(*model, *first)) {
        for (size_t i = 0; i < model->faces.size(); i += first->faces)
            glCallList(first->list);
    } else
        DrawModel(model);
    glEndList();
    if (first->list == 0)
        *first = {list, model->faces.size(), model->vertices.size(), model->normals.size(),
                  model->texCoords.size()};
    return list;
}

void FX_RopeThing::Init(GLWindow*, DemoPlayer*)
{
    const Vec3 origin = {0, 0, 0};
    for (int i = 0; i < 6; i++)
        ropes[i] = MakeRope(ropeDirections[i], origin);
    const auto& [skin, eye] = textureNames;
    const auto& [spark] = lightNames;
    const auto& [eyes, body] = modelPaths;
    const auto& [vertex, fragment] = programPaths;
    if (TextureLoader* textures = TextureLoader::GetInstance()) {
        sparkTexture = textures->GetTexture(spark, true, true, true);
        skinTexture = textures->GetTexture(skin, true, true, true);
        eyeTexture = textures->GetTexture(eye, true, true, true);
    }
    LoadModel(eyes, &eyesModel);
    LoadModel(body, &fishModel);
    shader = ShaderProgram::Load(vertex, fragment);
    samplerParam = new ShaderSampler(shader, "sampler0");
    timeParam = new ShaderFloatParam(shader, "fTime0_X");
    colorParam = new ShaderFloatParam(shader, "vtxColor");
    fishList = CompileModel(&fishModel, &firstFish);
    eyesList = CompileModel(&eyesModel, &firstEyes);
}

void FX_RopeThing::DeclareMessages(SynchMessageTable* table)
{
    msgFront = table->DeclareMessage("front", this, "NA");
    msgIntro = table->DeclareMessage("intro", this, "NA");
    msgShock = table->DeclareMessage("shock", this, "NA");
}

void FX_RopeThing::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == msgFront)
        mode = Front;
    else if (messageId == msgIntro)
        mode = Intro;
    else if (messageId == msgShock)
        mode = Shock;
    else
        return;

    progress = 1;
    if (mode == Shock)
        return;
    travel = sceneTravel;
    if (mode == Front)
        Vec3Set(position, frontWeave * SinF(frontWeavePerUnit * travel), 0, travel);
    StartRopeAtFish();
}

void FX_RopeThing::StartRopeAtFish()
{
    const Vec3 start = {position[0], position[1], position[2] + ropeBehind};
    ropes[0] = MakeRope(ropeDirections[0], start);
}

void FX_RopeThing::Update()
{
    RelaxRope();
    const float delta = FrameTimer::GetDelta();
    if (mode == Front) {
        progress -= delta * progress * frontDecay;
        travel -= delta * frontSpeed;
    } else if (mode == Shock) {
        progress -= delta * progress * shockDecay;
        travel -= delta * shockSpeed;
    } else if (mode == Intro) {
        progress -= delta * progress * introDecay;
        travel -= delta * introSpeed;
    }
}

// Puts each link at its length from the link before it. That one has just been moved, so that one pass
// settles the whole rope. This happens in every mode, also while nothing is shown.
void FX_RopeThing::RelaxRope()
{
    Vec3* rope = ropes[0];
    if (!rope)
        return;
    for (int i = 1; i < ropeLinks; i++) {
        Vec3 v;
        Vec3Sub(v, rope[i - 1], rope[i]);
        const float length = Vec3Length(v);
        if (!(length > 0)) // links that coincide have no line between them
            continue;
        const float excess = length - linkLength;
        Vec3MulAdd(rope[i], rope[i], v, excess / length);
    }
}

void FX_RopeThing::Render()
{
    fade = 0;
    if (mode == Nothing)
        return;
    if (mode == Front)
        PlaceFront();
    else if (mode == Intro)
        PlaceIntro();
    else
        PlaceShock();
    DrawFish();
    if (mode != Shock)
        DrawRope(fade);
}

void FX_RopeThing::PlaceFront()
{
    const float shakePhase = frontShakeSpeed * localTime;
    Vec3Set(position, frontWeave * SinF(frontWeavePerUnit * travel), frontShake * SinF(shakePhase), travel);
    Vec3Set(ropes[0][0], position[0], position[1], position[2] + ropeBehind);
    const float turn = frontEyeTurn * progress;
    const Vec3 eye = {frontEyeRadius * CosF(turn + frontEyePhaseX),
                      frontShake * SinF(shakePhase - frontEyeLag),
                      -frontEyeRadius * SinF(turn + frontEyePhaseZ) + travel};
    Vec3 way;
    Vec3Sub(way, position, eye);
    const float nearness = std::min(std::max(1 - frontDimming * Vec3Length(way), 0.0f), 1.0f);
    fade = nearness * SinF(progress * ropeThingPi);
    glColor3f(fade, fade, fade);
    gluLookAt(eye[0], eye[1], eye[2], position[0], position[1], position[2], 0, 1, 0);
}

void FX_RopeThing::PlaceIntro()
{
    Vec3Set(position, introWeave * CosF(localTime), introSink * progress, travel);
    Vec3Set(ropes[0][0], position[0], position[1], position[2] + ropeBehind);
    gluLookAt(introEye[0], introEye[1], introEye[2], 0, 0, 0, 0, 1, 0);
    fade = 1;
    glColor3f(1, 1, 1);
}

void FX_RopeThing::PlaceShock()
{
    Vec3 eye;
    for (int axis = 0; axis < 3; axis++)
        eye[axis] = shockEye[axis].byProgress * progress + shockEye[axis].start;
    gluLookAt(eye[0], eye[1], eye[2], 0, 0, 0, 0, 1, 0);
    Vec3Set(position, 0, 0, shockFlight * progress);
    fade = SinF(progress * ropeThingPi);
    glColor3f(fade, fade, fade);
}

void FX_RopeThing::DrawFish() const
{
    if (fade <= 0)
        return;
    glEnable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    BindProgram(shader);
    glPushMatrix();
    {
        samplerParam->Set(0);
        const float time = FrameTimer::GetTime();
        timeParam->Set(&time, 1);
        glTranslatef(position[0], position[1], position[2]);
        glScalef(fishScale, fishScale, fishScale);
        BindTexture(skinTexture);
        glColor3f(fade, fade, fade);
        colorParam->Set(&fade, 1);
        CallGeometryList(fishList);
        BindTexture(eyeTexture);
        CallGeometryList(eyesList);
        UnbindProgram();
    }
    glPopMatrix();
}

void FX_RopeThing::DrawRope(float brightness)
{
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    BindTexture(sparkTexture);
    Vec3 right, up;
    GetBillboardAxes(right, up);
    sparks.Begin();
    for (int i = 0; i < ropeLinks; i++) {
        const float f = 1 - i / float(ropeLinks);
        sparks.SetColour(f * brightness, f * brightness, f * brightness);
        sparks.AddBillboard(ropes[0][i], right, up, sparkSize * f);
    }
    sparks.Draw();
    glDepthMask(GL_TRUE);
}
