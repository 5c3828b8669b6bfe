// SPDX-License-Identifier: MIT
#include "effects/Transition_Fish.h"

#include "display/GLWindow.h"
#include "kernel/FrameTimer.h"
#include "math/Primitives.h"
#include "math/Scalar.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <GL/glu.h>

static const float zoomRate = 0.55f;   // of closeness, 1/s
static const float closestFovY = 0.5f; // degrees
static const float openingFovY = 44.5f;

static const float towardsCamera = 0.5f; // of the drift to the left
static const float rollAngle = 10.0f;    // degrees
static const float rollSpeed = 0.2f;     // radians per second
static const float wagAngle = 25.0f;
static const float wagSpeed = 4.0f;

static const float shadowDistance = 2.0f;
static const float shadowAlpha = 0.6f;

static const int fishCount = 4;

// clang-format off
static const float fishPlaces[fishCount][3] = {
    { 0.0f,  0.0f,  0.0f},
    { 3.5f,  1.5f, -1.0f},
    { 0.6f,  1.0f, -2.0f},
    {-1.3f, -1.5f, -4.0f},
};
// clang-format on

// What Init loads.
static const char* const textureNames[] = {"fischgraeten_1.png", "fischgraeten_2.png"};
const EffectFiles Transition_Fish::files = {.textures = textureNames};

Transition_Fish::Transition_Fish() : headTexture(nullptr), tailTexture(nullptr), closeness(0), drift(0) {}

void Transition_Fish::Init(GLWindow*, DemoPlayer*)
{
    const auto& [head, tail] = textureNames;
    if (TextureLoader* textures = TextureLoader::GetInstance()) {
        headTexture = textures->GetTexture(head, true, false, true);
        tailTexture = textures->GetTexture(tail, true, false, true);
    }
    closeness = 1;
    drift = 0;
}

void Transition_Fish::DeclareMessages(SynchMessageTable*) {}

void Transition_Fish::ReceiveMessage(int, float*, int) {}

void Transition_Fish::Update()
{
    const float delta = FrameTimer::GetDelta();
    closeness -= zoomRate * delta * closeness;
    drift += delta * (1 - closeness);
}

void Transition_Fish::Render()
{
    glLoadIdentity();
    gluLookAt(0, 0, 3, -1.25f, 0.05f, 0, 0, 1, 0); // looks at the head card of the first fish
    GLWindow::SetPerspective((1 - closeness) * openingFovY + closestFovY);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

    // Without the depth test the order counts: first all shadows, then all fish, each from far to near.
    for (const bool shadows : {true, false})
        for (int i = fishCount - 1; i >= 0; i--) {
            glPushMatrix();
            {
                glTranslatef(fishPlaces[i][0], fishPlaces[i][1], fishPlaces[i][2]);
                if (shadows) {
                    glTranslatef(0, 0, -shadowDistance);
                    glColor4f(0, 0, 0, shadowAlpha);
                } else {
                    glColor4f(1, 1, 1, 1);
                }
                glPushMatrix();
                {
                    glTranslatef(-drift, 0, drift * towardsCamera);
                    DrawFishCards();
                }
                glPopMatrix();
            }
            glPopMatrix();
        }
    glDisable(GL_BLEND);
}

void Transition_Fish::DrawFishCards() const
{
    glPushMatrix();
    {
        glRotatef(rollAngle * SinF(rollSpeed * localTime), 0, 0, 1);
        BindTexture(headTexture);
        DrawRectangle(-2, -1, 0, 1);
        glRotatef(wagAngle * SinF(wagSpeed * localTime), 0, 1, 0); // the hinge is at x = 0
        BindTexture(tailTexture);
        DrawRectangle(0, -1, 1, 1);
    }
    glPopMatrix();
}
