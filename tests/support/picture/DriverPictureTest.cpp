// SPDX-License-Identifier: MIT
// What the recorder takes for granted about a driver, asked of a real one. The same cases stand in the
// recorder's own tests (tests/support/recorder/...RecordedTest.cpp).
#include "tests/support/picture/PictureFixture.h"

#include <GL/glew.h>

#include <GL/glu.h>

class Driver : public PictureFixture
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Open(64, 64));
        glGetError();
    }

    static std::vector<float> Get(GLenum name, int count)
    {
        std::vector<float> values(size_t(count), -1.0f);
        glGetFloatv(name, values.data());
        return values;
    }

    static GLhandleARB MakeProgram()
    {
        const char* source = "uniform float delta;\n"
                             "void main() { gl_FragColor = vec4(delta); }\n";
        const GLhandleARB shader = glCreateShaderObjectARB(GL_FRAGMENT_SHADER_ARB);
        glShaderSourceARB(shader, 1, &source, nullptr);
        glCompileShaderARB(shader);
        const GLhandleARB program = glCreateProgramObjectARB();
        glAttachObjectARB(program, shader);
        glLinkProgramARB(program);
        return program;
    }
};

TEST_F(Driver, ASurplusPopIsAnUnderflowAndChangesNothing)
{
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(1, 0, 0);
    glPopMatrix();
    EXPECT_EQ(GLenum(GL_STACK_UNDERFLOW), glGetError());
    EXPECT_EQ(1, Get(GL_MODELVIEW_MATRIX, 16)[12]);
}

TEST_F(Driver, ASwapShowsThePictureThatWasDrawn)
{
    glClearColor(0.5f, 0.25f, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glEnable(GL_SCISSOR_TEST);
    glScissor(16, 8, 20, 30);
    glClearColor(0, 1, 0.75f, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    const Picture picture = Grab();
    GrabAtSwaps();
    window.SwapBuffers();
    EXPECT_EQ(1, swaps);
    EXPECT_EQ(0, Compare(shown, picture, 0).maximum);
}

TEST_F(Driver, TheModelviewStackHoldsAtLeast32Matrices)
{
    for (int i = 1; i < 32; i++)
        glPushMatrix();
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(Driver, AViewportOfNegativeSizeIsRefusedAndTheOldOneStays)
{
    glViewport(1, 2, 3, 4);
    glViewport(0, 0, 10, -1);
    EXPECT_EQ(GLenum(GL_INVALID_VALUE), glGetError());
    EXPECT_EQ((std::vector<float>{1, 2, 3, 4}), Get(GL_VIEWPORT, 4));
}

TEST_F(Driver, BareNumbersAreNoTextureUnits)
{
    glActiveTextureARB(1);
    EXPECT_EQ(GLenum(GL_INVALID_ENUM), glGetError());
    EXPECT_EQ(GL_TEXTURE0, Get(GL_ACTIVE_TEXTURE, 1)[0]);
}

TEST_F(Driver, ALightStandsWhereTheModelviewPutsItAtTheCall)
{
    const float place[] = {1, 2, 3, 1};
    glLoadIdentity();
    glTranslatef(10, 0, 0);
    glLightfv(GL_LIGHT0, GL_POSITION, place);
    glLoadIdentity();
    float read[4];
    glGetLightfv(GL_LIGHT0, GL_POSITION, read);
    EXPECT_EQ(11, read[0]);
}

TEST_F(Driver, ColourMaterialFollowsTheColourFromTheMomentItIsOn)
{
    float diffuse[4];
    glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
    glColor3f(0, 0, 1);
    glGetMaterialfv(GL_FRONT, GL_DIFFUSE, diffuse);
    EXPECT_EQ(0.8f, diffuse[2]);
    glEnable(GL_COLOR_MATERIAL);
    glGetMaterialfv(GL_FRONT, GL_DIFFUSE, diffuse);
    EXPECT_EQ(1, diffuse[2]);
    glDisable(GL_COLOR_MATERIAL);
    glColor3f(1, 0, 0);
    glGetMaterialfv(GL_FRONT, GL_DIFFUSE, diffuse);
    EXPECT_EQ(1, diffuse[2]);
}

TEST_F(Driver, CompilingAListChangesNothingAndCallingItDoes)
{
    glColor3f(1, 1, 1);
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    glColor3f(1, 0, 0);
    glEndList();
    EXPECT_EQ(1, Get(GL_CURRENT_COLOR, 4)[1]);
    glCallList(list);
    EXPECT_EQ(0, Get(GL_CURRENT_COLOR, 4)[1]);
    glCallList(list + 1);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError()) << "a list that isn't there";
}

TEST_F(Driver, TheFirstErrorIsKept)
{
    glMatrixMode(GL_BLEND);
    glPopMatrix();
    EXPECT_EQ(GLenum(GL_INVALID_ENUM), glGetError());
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(Driver, TheCompileStatusOfAProgramIsRefusedAndWritesNothing)
{
    const GLhandleARB program = MakeProgram();
    GLint status = 77;
    glGetObjectParameterivARB(program, GL_OBJECT_COMPILE_STATUS_ARB, &status);
    EXPECT_EQ(GLenum(GL_INVALID_ENUM), glGetError());
    EXPECT_EQ(77, status);
}

TEST_F(Driver, AUniformThatIsNoArrayTakesNoSeveralValues)
{
    const GLhandleARB program = MakeProgram();
    glUseProgramObjectARB(program);
    const GLint location = glGetUniformLocationARB(program, "delta");
    const float values[] = {0.5f, 0.75f};
    glUniform1fvARB(location, 1, values);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    glUniform1fvARB(location, 2, values + 1);
    EXPECT_EQ(GLenum(GL_INVALID_OPERATION), glGetError());
    float read = 0;
    glGetUniformfvARB(program, location, &read);
    EXPECT_EQ(0.5f, read);
    glUniform1fvARB(-1, 1, values);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    glUseProgramObjectARB(0);
    glUniform1fvARB(location, 1, values);
    EXPECT_EQ(GLenum(GL_INVALID_OPERATION), glGetError());
}

TEST_F(Driver, RowsOfAnUploadBeginAtMultiplesOfFourBytes)
{
    const unsigned char pixels[] = {1, 2, 3, 0, 4, 5, 6, 0};
    GLuint id;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, 1, 2, 0, GL_RGB, GL_UNSIGNED_BYTE, pixels);
    unsigned char read[8] = {};
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, read);
    EXPECT_EQ(4, read[4]);
}

TEST_F(Driver, TheLastMatrixCallActsFirst)
{
    glLoadIdentity();
    glTranslatef(1, 2, 3);
    glRotatef(90, 0, 2, 0);
    glScalef(2, 3, 4);
    const std::vector<float> m = Get(GL_MODELVIEW_MATRIX, 16);
    const float expected[] = {0, 0, -2, 0, 0, 3, 0, 0, 4, 0, 0, 0, 1, 2, 3, 1};
    for (size_t i = 0; i < 16; i++)
        EXPECT_NEAR(expected[i], m[i], 1e-6) << i;
}
