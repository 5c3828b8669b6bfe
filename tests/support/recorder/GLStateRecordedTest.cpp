// SPDX-License-Identifier: MIT
// Switches and the other settings of the recorder's GL.
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

class GLState : public testing::Test
{
protected:
    GLState() { gl::Reset(800, 600); }
};

TEST_F(GLState, BeginsAsGLDoes)
{
    const gl::State& s = gl::Now();
    EXPECT_EQ((std::set<GLenum>{GL_DITHER, GL_MULTISAMPLE}), s.enabled);
    EXPECT_EQ(GLenum(GL_ONE), s.blendSource);
    EXPECT_EQ(GLenum(GL_ZERO), s.blendDestination);
    EXPECT_EQ(GLenum(GL_LESS), s.depthFunction);
    EXPECT_TRUE(s.depthWrites);
    EXPECT_EQ(1, s.clearDepth);
    EXPECT_EQ(GLenum(GL_SMOOTH), s.shadeModel);
    EXPECT_TRUE(gl::IsColour(s.lights[0].diffuse, {1, 1, 1, 1}));
    EXPECT_TRUE(gl::IsColour(s.lights[1].diffuse, {0, 0, 0, 1}));
    EXPECT_TRUE(gl::IsPoint(s.lights[1].position, {0, 0, 1, 0}));
    EXPECT_TRUE(gl::IsColour(s.front.diffuse, {0.8, 0.8, 0.8, 1}));
    EXPECT_TRUE(gl::IsColour(s.lightModelAmbient, {0.2, 0.2, 0.2, 1}));
    EXPECT_EQ(GLenum(GL_AMBIENT_AND_DIFFUSE), s.colourMaterialMode);
    EXPECT_EQ(GLenum(GL_BACK), s.drawBuffer);
    EXPECT_FALSE(s.units[0].texture2D);
    EXPECT_EQ(0u, s.program);
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 1, 1, 1}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentNormal(), {0, 0, 1}));
}

TEST_F(GLState, SwitchesSwitch)
{
    for (GLenum name : {GL_BLEND, GL_DEPTH_TEST, GL_LIGHTING, GL_NORMALIZE, GL_COLOR_MATERIAL, GL_CULL_FACE,
                        GL_FOG, GL_ALPHA_TEST, GL_SCISSOR_TEST}) {
        EXPECT_FALSE(glIsEnabled(name));
        glEnable(name);
        EXPECT_TRUE(gl::Now().Enabled(name)) << name;
        EXPECT_TRUE(glIsEnabled(name));
        glDisable(name);
        EXPECT_FALSE(gl::Now().Enabled(name)) << name;
    }
    glEnable(GL_LIGHT1);
    EXPECT_TRUE(gl::Now().lights[1].on);
    EXPECT_FALSE(gl::Now().lights[0].on);
    EXPECT_TRUE(gl::NoErrors());
    glEnable(GL_SRC_ALPHA);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_ENUM}));
}

TEST_F(GLState, TexturingIsSwitchedPerUnit)
{
    glActiveTexture(GL_TEXTURE1);
    glEnable(GL_TEXTURE_2D);
    EXPECT_FALSE(gl::Now().units[0].texture2D);
    EXPECT_TRUE(gl::Now().units[1].texture2D);
    glActiveTextureARB(GL_TEXTURE0_ARB);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_EQ(0, gl::Now().activeUnit);
}

TEST_F(GLState, SettingsAreKept)
{
    glBlendFunc(GL_DST_COLOR, GL_ZERO);
    glDepthFunc(GL_LEQUAL);
    glDepthMask(GL_FALSE);
    glAlphaFunc(GL_GREATER, 0.5f);
    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_FALSE);
    glScissor(1, 2, 3, 4);
    glCullFace(GL_FRONT);
    glFrontFace(GL_CW);
    glPolygonMode(GL_FRONT, GL_LINE);
    glPointSize(4);
    glLineWidth(3);
    glShadeModel(GL_FLAT);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glDrawBuffer(GL_FRONT);
    glReadBuffer(GL_FRONT);
    glDepthRange(0.25, 0.75);
    glClearDepth(0.5);
    glFogi(GL_FOG_MODE, GL_LINEAR);
    glFogf(GL_FOG_END, 40);
    const float fog[] = {0.1f, 0.2f, 0.3f, 1};
    glFogfv(GL_FOG_COLOR, fog);
    const gl::State& s = gl::Now();
    EXPECT_EQ(GLenum(GL_DST_COLOR), s.blendSource);
    EXPECT_EQ(GLenum(GL_ZERO), s.blendDestination);
    EXPECT_EQ(GLenum(GL_LEQUAL), s.depthFunction);
    EXPECT_FALSE(s.depthWrites);
    EXPECT_EQ(GLenum(GL_GREATER), s.alphaFunction);
    EXPECT_EQ(0.5f, s.alphaReference);
    EXPECT_TRUE(s.colourMask[0] && !s.colourMask[1] && s.colourMask[2] && !s.colourMask[3]);
    EXPECT_EQ(3, s.scissor.width);
    EXPECT_EQ(GLenum(GL_FRONT), s.cullFace);
    EXPECT_EQ(GLenum(GL_CW), s.frontFace);
    EXPECT_EQ(GLenum(GL_LINE), s.polygonModeFront);
    EXPECT_EQ(GLenum(GL_FILL), s.polygonModeBack);
    EXPECT_EQ(4, s.pointSize);
    EXPECT_EQ(3, s.lineWidth);
    EXPECT_EQ(GLenum(GL_FLAT), s.shadeModel);
    EXPECT_EQ(GLenum(GL_NICEST), s.hints.at(GL_PERSPECTIVE_CORRECTION_HINT));
    EXPECT_EQ(GLenum(GL_FRONT), s.drawBuffer);
    EXPECT_EQ(GLenum(GL_FRONT), s.readBuffer);
    EXPECT_EQ(0.25, s.depthNear);
    EXPECT_EQ(0.75, s.depthFar);
    EXPECT_EQ(0.5, s.clearDepth);
    EXPECT_EQ(GLenum(GL_LINEAR), s.fogMode);
    EXPECT_EQ(40, s.fogEnd);
    EXPECT_TRUE(gl::IsColour(s.fogColour, {0.1, 0.2, 0.3, 1}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLState, SettingsThatGLDoesNotKnowAreRefused)
{
    glBlendFunc(GL_BLEND, GL_ONE);
    glDepthFunc(GL_ONE);
    glAlphaFunc(GL_ONE, 0);
    glCullFace(GL_CW);
    glFrontFace(GL_FRONT);
    glPolygonMode(GL_FRONT, GL_CW);
    glPointSize(0);
    glLineWidth(-1);
    glShadeModel(GL_NICEST);
    glHint(GL_FOG_HINT, GL_FLAT);
    glScissor(0, 0, -1, 0);
    glClear(0x80000000);
    const GLenum e = GL_INVALID_ENUM, v = GL_INVALID_VALUE;
    EXPECT_TRUE(gl::OnlyErrors({e, e, e, e, e, e, v, v, e, e, v, v}));
    EXPECT_EQ(GLenum(GL_ONE), gl::Now().blendSource);
}

TEST_F(GLState, ALightStandsWhereTheModelviewPutsItAtTheCall)
{
    const float place[] = {1, 2, 3, 1};
    const float direction[] = {0, 0, 1, 0};
    glTranslatef(10, 0, 0);
    glRotatef(90, 0, 1, 0);
    glLightfv(GL_LIGHT0, GL_POSITION, place);
    glLightfv(GL_LIGHT1, GL_POSITION, direction);
    glLoadIdentity(); // of no influence any more
    EXPECT_TRUE(gl::IsPoint(gl::Now().lights[0].position, {13, 2, -1, 1}, 1e-6));
    EXPECT_TRUE(gl::IsPoint(gl::Now().lights[0].given, {1, 2, 3, 1}));
    EXPECT_TRUE(gl::IsPoint(gl::Now().lights[1].position, {1, 0, 0, 0}, 1e-6));
}

TEST_F(GLState, LightsAndMaterialsTakeTheirColours)
{
    const float colour[] = {0.1f, 0.2f, 0.3f, 0.4f};
    glLightfv(GL_LIGHT1, GL_DIFFUSE, colour);
    glLightf(GL_LIGHT1, GL_LINEAR_ATTENUATION, 0.5f);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, colour);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1);
    glMaterialfv(GL_FRONT, GL_SPECULAR, colour);
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 7);
    const gl::State& s = gl::Now();
    EXPECT_TRUE(gl::IsColour(s.lights[1].diffuse, {0.1, 0.2, 0.3, 0.4}));
    EXPECT_EQ(0.5f, s.lights[1].linearAttenuation);
    EXPECT_TRUE(gl::IsColour(s.lightModelAmbient, {0.1, 0.2, 0.3, 0.4}));
    EXPECT_TRUE(s.twoSided);
    EXPECT_TRUE(gl::IsColour(s.front.specular, {0.1, 0.2, 0.3, 0.4}));
    EXPECT_TRUE(gl::IsColour(s.back.specular, {0, 0, 0, 1}));
    EXPECT_EQ(7, s.back.shininess);
    EXPECT_TRUE(gl::NoErrors());
    glLightf(GL_LIGHT0, GL_DIFFUSE, 1);
    glLightfv(GL_LIGHT7 + 1, GL_DIFFUSE, colour);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_ENUM, GL_INVALID_ENUM}));
}

TEST_F(GLState, ColourMaterialFollowsTheColourFromTheMomentItIsOn)
{
    glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
    glColor3f(0, 0, 1);
    EXPECT_TRUE(gl::IsColour(gl::Now().front.diffuse, {0.8, 0.8, 0.8, 1}));
    glEnable(GL_COLOR_MATERIAL);
    EXPECT_TRUE(gl::IsColour(gl::Now().front.diffuse, {0, 0, 1, 1}));
    EXPECT_TRUE(gl::IsColour(gl::Now().front.ambient, {0.2, 0.2, 0.2, 1}));
    glColor3f(0, 1, 0);
    EXPECT_TRUE(gl::IsColour(gl::Now().back.diffuse, {0, 1, 0, 1}));
    glDisable(GL_COLOR_MATERIAL);
    glColor3f(1, 0, 0);
    EXPECT_TRUE(gl::IsColour(gl::Now().front.diffuse, {0, 1, 0, 1}));
}

TEST_F(GLState, PushedAttributesComeBackByGroup)
{
    glEnable(GL_BLEND);
    glColor3f(1, 0, 0);
    glPushAttrib(GL_ENABLE_BIT | GL_CURRENT_BIT);
    EXPECT_EQ(1, gl::AttributeStackDepth());
    glDisable(GL_BLEND);
    glEnable(GL_LIGHTING);
    glEnable(GL_TEXTURE_2D);
    glColor3f(0, 1, 0);
    glDepthMask(GL_FALSE);
    glPopAttrib();
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND));
    EXPECT_FALSE(gl::Now().Enabled(GL_LIGHTING));
    EXPECT_FALSE(gl::Now().units[0].texture2D);
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 0, 0}));
    EXPECT_FALSE(gl::Now().depthWrites) << "not in the groups";
    glPopAttrib();
    EXPECT_TRUE(gl::OnlyErrors({GL_STACK_UNDERFLOW}));
}

TEST_F(GLState, QueriesAnswer)
{
    glViewport(1, 2, 3, 4);
    GLint viewport[4], mode, size, units;
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(4, viewport[3]);
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(GL_MODELVIEW, mode);
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &size);
    EXPECT_EQ(8192, size);
    glGetIntegerv(GL_MAX_TEXTURE_UNITS, &units);
    EXPECT_EQ(gl::UnitCount, units);
    GLfloat colour[4];
    glColor4f(0.1f, 0.2f, 0.3f, 0.4f);
    glGetFloatv(GL_CURRENT_COLOR, colour);
    EXPECT_EQ(0.3f, colour[2]);
    GLboolean blend = GL_TRUE;
    glGetBooleanv(GL_BLEND, &blend);
    EXPECT_FALSE(blend);
    EXPECT_STREQ("2.1 recorder", reinterpret_cast<const char*>(glGetString(GL_VERSION)));
    EXPECT_NE(nullptr,
              strstr(reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS)), "GL_ARB_point_sprite"));
    EXPECT_TRUE(
        gl::CallsContain(gl::Calls(), {"glGetIntegerv(GL_VIEWPORT)", "glGetFloatv(GL_CURRENT_COLOR)"}));
}
