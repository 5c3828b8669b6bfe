// SPDX-License-Identifier: MIT
// The off-screen target's state beside the window's: what stays apart, and what both share.
#include "tests/display/RenderTargetFixture.h"

class OffScreenState : public OffScreen
{
};

static const GLenum switches[] = {
    GL_ALPHA_TEST, GL_BLEND,       GL_COLOR_MATERIAL, GL_CULL_FACE,     GL_DEPTH_TEST,    GL_FOG,
    GL_LIGHT0,     GL_LIGHT1,      GL_LIGHTING,       GL_LINE_SMOOTH,   GL_NORMALIZE,     GL_SCISSOR_TEST,
    GL_TEXTURE_2D, GL_CLIP_PLANE0, GL_STENCIL_TEST,   GL_TEXTURE_GEN_S, GL_POLYGON_SMOOTH};
static const GLenum values[] = {GL_MATRIX_MODE,
                                GL_MODELVIEW_STACK_DEPTH,
                                GL_PROJECTION_STACK_DEPTH,
                                GL_DEPTH_FUNC,
                                GL_DEPTH_WRITEMASK,
                                GL_BLEND_SRC,
                                GL_BLEND_DST,
                                GL_SHADE_MODEL,
                                GL_CULL_FACE_MODE,
                                GL_FRONT_FACE,
                                GL_LINE_WIDTH,
                                GL_POINT_SIZE,
                                GL_TEXTURE_BINDING_2D,
                                GL_ACTIVE_TEXTURE,
                                GL_ALPHA_TEST_FUNC,
                                GL_FOG_MODE,
                                GL_FOG_DENSITY,
                                GL_CURRENT_PROGRAM,
                                GL_FRAMEBUFFER_BINDING,
                                GL_DEPTH_CLEAR_VALUE,
                                GL_UNPACK_ALIGNMENT,
                                GL_ARRAY_BUFFER_BINDING};

// Every figure of the state that an effect is likely to touch, of the context that is current.
static std::vector<double> State()
{
    std::vector<double> state;
    double figures[16] = {};
    for (const GLenum name : switches)
        state.push_back(glIsEnabled(name));
    for (const GLenum name : values) {
        glGetDoublev(name, figures);
        state.push_back(figures[0]);
    }
    for (const GLenum name : {GL_MODELVIEW_MATRIX, GL_PROJECTION_MATRIX, GL_TEXTURE_MATRIX}) {
        glGetDoublev(name, figures);
        state.insert(state.end(), figures, figures + 16);
    }
    for (const GLenum name : {GL_COLOR_CLEAR_VALUE, GL_CURRENT_COLOR, GL_CURRENT_TEXTURE_COORDS,
                              GL_LIGHT_MODEL_AMBIENT, GL_FOG_COLOR, GL_COLOR_WRITEMASK}) {
        glGetDoublev(name, figures);
        state.insert(state.end(), figures, figures + 4);
    }
    float four[4];
    for (const GLenum name : {GL_POSITION, GL_DIFFUSE, GL_AMBIENT, GL_SPECULAR}) {
        glGetLightfv(GL_LIGHT0, name, four);
        state.insert(state.end(), four, four + 4);
    }
    for (const GLenum name : {GL_DIFFUSE, GL_AMBIENT, GL_SPECULAR, GL_EMISSION}) {
        glGetMaterialfv(GL_FRONT, name, four);
        state.insert(state.end(), four, four + 4);
    }
    return state;
}

// Changes all of that.
static void Stir()
{
    for (const GLenum name : switches)
        glEnable(name);
    for (const GLenum mode : {GL_PROJECTION, GL_TEXTURE, GL_MODELVIEW}) {
        glMatrixMode(mode);
        glPushMatrix();
        glRotatef(30, 1, 2, 3);
        glTranslatef(1, 2, 3);
    }
    glMatrixMode(GL_TEXTURE);
    glDepthFunc(GL_GREATER);
    glDepthMask(GL_FALSE);
    glBlendFunc(GL_DST_COLOR, GL_ONE);
    glShadeModel(GL_FLAT);
    glCullFace(GL_FRONT);
    glFrontFace(GL_CW);
    glLineWidth(3);
    glPointSize(4);
    glAlphaFunc(GL_LESS, 0.5f);
    glFogi(GL_FOG_MODE, GL_LINEAR);
    glFogf(GL_FOG_DENSITY, 0.25f);
    glClearDepth(0.5);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glClearColor(0.25f, 0.5f, 0.75f, 1);
    glTexCoord2f(0.25f, 0.5f);
    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_FALSE);
    const float four[4] = {0.125f, 0.375f, 0.625f, 0.875f};
    glFogfv(GL_FOG_COLOR, four);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, four);
    for (const GLenum name : {GL_POSITION, GL_DIFFUSE, GL_AMBIENT, GL_SPECULAR})
        glLightfv(GL_LIGHT0, name, four);
    glDisable(GL_COLOR_MATERIAL);
    for (const GLenum name : {GL_DIFFUSE, GL_AMBIENT, GL_SPECULAR, GL_EMISSION})
        glMaterialfv(GL_FRONT, name, four);
    glEnable(GL_COLOR_MATERIAL);
    glColor4f(0.25f, 0.5f, 0.75f, 0.125f);
    GLuint texture, buffer;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glGenBuffersARB(1, &buffer);
    glBindBufferARB(GL_ARRAY_BUFFER_ARB, buffer);
    const GLhandleARB program = glCreateProgramObjectARB();
    glLinkProgramARB(program);
    glUseProgramObjectARB(program);
    glActiveTexture(GL_TEXTURE1);
}

static int CountDifferences(const std::vector<double>& a, const std::vector<double>& b)
{
    int count = 0;
    for (size_t i = 0; i < a.size(); i++)
        count += a[i] != b[i];
    return count;
}

TEST_F(OffScreenState, NothingOfItsStateReachesTheWindow)
{
    const std::vector<double> before = State();
    RenderTarget::Begin();
    Stir();
    const std::vector<double> stirred = State();
    RenderTarget::End();
    EXPECT_GT(CountDifferences(before, stirred), 80) << "or else the test sees nothing";
    EXPECT_EQ(before, State());
}

TEST_F(OffScreenState, NothingOfTheWindowsStateReachesItAndItsOwnStays)
{
    RenderTarget::Begin();
    const std::vector<double> fresh = State();
    RenderTarget::End();
    Stir();
    RenderTarget::Begin();
    EXPECT_EQ(fresh, State());
    RenderTarget::SetProjection(targetSide, targetSide, 60);
    glEnable(GL_LIGHTING);
    glTranslatef(1, 2, 3);
    const std::vector<double> left = State();
    RenderTarget::End();
    RenderTarget::Begin();
    EXPECT_EQ(left, State()) << "what an effect left there is there in the next frame";
    RenderTarget::End();
}

TEST_F(OffScreenState, DrawingGoesToTheBackBufferOfTheWindowAgainAndToNothingElse)
{
    Fill(-1, -1, 1, 1, 0, 0, 0);
    RenderTarget::Begin();
    EXPECT_EQ(GL_COLOR_ATTACHMENT0, GetInt(GL_DRAW_BUFFER));
    EXPECT_EQ(GL_COLOR_ATTACHMENT0, GetInt(GL_READ_BUFFER));
    EXPECT_NE(0, GetInt(GL_FRAMEBUFFER_BINDING));
    FlatInTarget();
    Fill(0, 0, 1, 1, 1, 0, 0);
    RenderTarget::End();
    EXPECT_EQ(GL_BACK, GetInt(GL_DRAW_BUFFER));
    EXPECT_EQ(GL_BACK, GetInt(GL_READ_BUFFER));
    EXPECT_EQ(0, GetInt(GL_FRAMEBUFFER_BINDING));
    EXPECT_EQ(Black(), At(50, 50)) << "nothing of it is in the window yet";

    Flat();
    Fill(0, 0, 1, 1, 0, 1, 0);
    Show();
    EXPECT_EQ(Red(), At(50, 50)) << "and the window's drawing was not in the target";
}

TEST_F(OffScreenState, ItsViewportIsItsOwnFromTheStart)
{
    RenderTarget::Begin(); // and no SetProjection
    int viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    Flat();
    Fill(0, 0, 1, 1, 1, 0, 0);
    RenderTarget::End();
    EXPECT_EQ((std::vector<int>{0, 0, targetSide, targetSide}), std::vector<int>(viewport, viewport + 4));
    Show();
    for (const int place : {5, 50, 95})
        EXPECT_EQ(Red(), At(place, place)) << "the window is smaller than the target: " << place;
}

TEST_F(OffScreenState, TheBandIsAlwaysTheSameAfterwards)
{
    int viewport[4];
    for (const float band : {1.0f, 0.85f, 0.7f}) {
        window.SetLetterbox(band);
        RenderTarget::Begin();
        RenderTarget::SetProjection(targetSide, targetSide, 45);
        RenderTarget::End();
        glGetIntegerv(GL_VIEWPORT, viewport);
        EXPECT_EQ(0, viewport[0]);
        EXPECT_EQ(10, viewport[1]);
        EXPECT_EQ(side, viewport[2]);
        EXPECT_EQ(79, viewport[3]);
    }
}

TEST_F(OffScreenState, TheBindingOfItsPictureDoesNotEnableTexturing)
{
    glDisable(GL_TEXTURE_2D);
    RenderTarget::BindTexture();
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_NE(0, GetInt(GL_TEXTURE_BINDING_2D));
    glEnable(GL_TEXTURE_2D);
    RenderTarget::ReleaseTexture();
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D));
}

TEST_F(OffScreenState, ErrorsOfEarlierDrawingAreDiscarded)
{
    glEnable(GL_MODELVIEW);
    RenderTarget::Begin();
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    glEnable(GL_MODELVIEW);
    RenderTarget::End();
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    glEnable(GL_MODELVIEW);
    RenderTarget::BindTexture();
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    RenderTarget::Begin();
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError()) << "of the target's context, from the frame before";
    RenderTarget::End();
}

// ---- What is shared

TEST_F(OffScreenState, ListsCompiledOnEitherSideAreCalledOnTheOther)
{
    const GLuint fromWindow = glGenLists(1);
    glNewList(fromWindow, GL_COMPILE);
    Fill(0, 0, 0.5f, 1, 1, 0, 0);
    glEndList();
    RenderTarget::Begin();
    FlatInTarget();
    glCallList(fromWindow);
    const GLuint fromTarget = glGenLists(1);
    EXPECT_NE(fromWindow, fromTarget);
    glNewList(fromTarget, GL_COMPILE);
    Fill(0.5f, 0, 1, 0.5f, 0, 0, 1);
    glEndList();
    RenderTarget::End();
    Show();
    glCallList(fromTarget);
    EXPECT_EQ(Red(), At(25, 50));
    EXPECT_EQ(Blue(), At(75, 25));
    EXPECT_EQ(Black(), At(75, 75));
}

static GLuint MakeTexel(unsigned char red, unsigned char green, unsigned char blue)
{
    const unsigned char texel[4] = {red, green, blue, 255};
    GLuint texture;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, 4, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, texel);
    return texture;
}

TEST_F(OffScreenState, TexturesMadeOnEitherSideAreSampledOnTheOther)
{
    const GLuint fromWindow = MakeTexel(0, 255, 0);
    RenderTarget::Begin();
    FlatInTarget();
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, fromWindow);
    glColor3f(1, 1, 1);
    glRectf(0, 0, 1, 1);
    const GLuint fromTarget = MakeTexel(0, 0, 255);
    RenderTarget::End();
    Show();
    EXPECT_EQ(Green(), At(50, 50));
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, fromTarget);
    glRectf(0, 0, 1, 1);
    EXPECT_EQ(Blue(), At(50, 50));
}

TEST_F(OffScreenState, ProgramsMadeOnEitherSideDrawOnTheOther)
{
    UseOwnData();
    AddFile("flat.vp", "void main() { gl_Position = ftransform(); }\n");
    AddFile("red.fp", "void main() { gl_FragColor = vec4(1.0, 0.0, 0.0, 1.0); }\n");
    AddFile("blue.fp", "void main() { gl_FragColor = vec4(0.0, 0.0, 1.0, 1.0); }\n");
    GLSLShader fromWindow, fromTarget;
    ASSERT_TRUE(fromWindow.Load("flat", "red"));
    RenderTarget::Begin();
    FlatInTarget();
    fromWindow.Enable();
    Fill(0, 0, 1, 1, 1, 1, 1);
    fromWindow.Disable();
    ASSERT_TRUE(fromTarget.Load("flat", "blue"));
    RenderTarget::End();
    Show();
    EXPECT_EQ(Red(), At(50, 50));
    fromTarget.Enable();
    Fill(0, 0, 1, 1, 1, 1, 1);
    fromTarget.Disable();
    EXPECT_EQ(Blue(), At(50, 50));
}
