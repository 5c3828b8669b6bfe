// SPDX-License-Identifier: MIT
// The expectations fail where they must and say what differs.
#include "tests/support/recorder/GLExpect.h"

#include "tests/support/recorder/GLRecorder.h"
#include "tests/support/recorder/GLText.h"

class GLExpect : public testing::Test
{
protected:
    GLExpect()
    {
        gl::Reset(800, 600);
        glBegin(GL_QUADS);
        {
            glColor4f(0.5f, 0.25f, 1, 1);
            glTexCoord2f(0, 0);
            glVertex3f(-0.35f, 0.1f, 0);
            glTexCoord2f(1, 0);
            glVertex3f(1, 0.1f, 0);
            glTexCoord2f(1, 1);
            glVertex3f(1, -1, 0);
            glTexCoord2f(0, 1);
            glVertex3f(-0.35f, -1, 0);
        }
        glEnd();
    }

    static const gl::Draw& Drawn() { return gl::Draws().at(0); }

    static std::string Message(const testing::AssertionResult& result)
    {
        EXPECT_FALSE(result);
        return result.message();
    }
};

TEST_F(GLExpect, AQuadIsComparedAsFloats)
{
    EXPECT_TRUE(gl::IsQuad(Drawn(), {{0, 0, -0.35, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
    EXPECT_FALSE(
        gl::IsQuad(Drawn(), {{0, 0, -0.3500001, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
    EXPECT_TRUE(
        gl::IsQuad(Drawn(), {{0, 0, -0.36, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}, 0.011));
    EXPECT_FALSE(
        gl::IsQuad(Drawn(), {{0, 0, -0.36, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}, 0.009));
}

TEST_F(GLExpect, OrderNumberAndModeOfCornersCount)
{
    EXPECT_FALSE(gl::IsQuad(Drawn(), {{1, 0, 1, 0.1}, {0, 0, -0.35, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
    EXPECT_FALSE(gl::IsQuad(Drawn(), {{0, 0, -0.35, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}}));
    gl::Draw polygon = Drawn();
    polygon.mode = GL_POLYGON;
    EXPECT_FALSE(gl::IsQuad(polygon, {{0, 0, -0.35, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
    EXPECT_TRUE(
        gl::HasCorners(polygon, {{0, 0, -0.35, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
}

TEST_F(GLExpect, TextureCoordinateAndDepthOfACornerCount)
{
    EXPECT_FALSE(
        gl::IsQuad(Drawn(), {{0, 0, -0.35, 0.1}, {1, 0.5, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
    EXPECT_FALSE(
        gl::IsQuad(Drawn(), {{0, 0, -0.35, 0.1}, {1, 0, 1, 0.1, 1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
}

TEST_F(GLExpect, AFailureShowsTheCornersThatDiffer)
{
    const std::string text =
        Message(gl::IsQuad(Drawn(), {{0, 0, -0.35, 0.1}, {1, 0, 2, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
    EXPECT_EQ("GL_QUADS with 4 vertices, untextured: corners differ (compared exactly)\n"
              "    0: (0, 0) at (-0.35, 0.1, 0)\n"
              "  ! 1: (1, 0) at (1, 0.1, 0)   expected (1, 0) at (2, 0.1, 0)\n"
              "    2: (1, 1) at (1, -1, 0)\n"
              "    3: (0, 1) at (-0.35, -1, 0)\n",
              text);
}

TEST_F(GLExpect, AQuadOfALargerBatchIsFoundByItsNumber)
{
    gl::Draw two = Drawn();
    two.vertices.insert(two.vertices.end(), Drawn().vertices.begin(), Drawn().vertices.end());
    two.vertices[4].object.x = 7;
    EXPECT_TRUE(gl::HasQuad(two, 1, {{0, 0, 7, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
    EXPECT_FALSE(gl::HasQuad(two, 0, {{0, 0, 7, 0.1}, {1, 0, 1, 0.1}, {1, 1, 1, -1}, {0, 1, -0.35, -1}}));
    EXPECT_FALSE(gl::HasQuad(two, 2, {}));
    EXPECT_FALSE(gl::HasQuad(two, -1, {}));
}

TEST_F(GLExpect, ColoursAndNormalsAreCompared)
{
    EXPECT_TRUE(gl::HasColour(Drawn(), {0.5, 0.25, 1}));
    EXPECT_FALSE(gl::HasColour(Drawn(), {0.5, 0.25, 1, 0.5}));
    EXPECT_FALSE(gl::HasColours(Drawn(), {{0.5, 0.25, 1}})) << "too few";
    EXPECT_TRUE(gl::HasNormal(Drawn(), {0, 0, 1}));
    EXPECT_FALSE(gl::HasNormal(Drawn(), {0, 1, 0}));
    EXPECT_FALSE(gl::IsColour({0, 0, 0}, {0, 0, 0, 0}));
    EXPECT_FALSE(gl::IsPoint({0, 0, 0}, {0, 0, 0, 0}));
}

TEST_F(GLExpect, NotANumberIsNearToNothing)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(gl::IsPoint({nan, 0}, {nan, 0}, 1000));
    EXPECT_FALSE(gl::IsMatrix(gl::Scaling(nan, 1, 1), gl::Identity(), 1000));
}

TEST_F(GLExpect, StateIsCompared)
{
    EXPECT_TRUE(gl::DoesNotBlend(Drawn()));
    EXPECT_FALSE(gl::Blends(Drawn(), GL_ONE, GL_ZERO)) << "the factors fit, but it is off";
    EXPECT_TRUE(gl::TestsDepth(Drawn(), false));
    EXPECT_FALSE(gl::TestsDepth(Drawn()));
    EXPECT_TRUE(gl::WritesDepth(Drawn()));
    EXPECT_FALSE(gl::WritesDepth(Drawn(), false));
    EXPECT_TRUE(gl::IsLit(Drawn(), false));
    EXPECT_FALSE(gl::IsLit(Drawn()));
    EXPECT_TRUE(gl::HasViewport(Drawn(), 0, 0, 800, 600));
    EXPECT_FALSE(gl::HasViewport(Drawn(), 0, 0, 800, 601));
    EXPECT_TRUE(gl::IsUntextured(Drawn()));
    EXPECT_FALSE(gl::IsTextured(Drawn(), 0u)) << "0 is no texture";
    EXPECT_TRUE(gl::UsesNoProgram(Drawn()));
    EXPECT_FALSE(gl::HasUniform(Drawn(), "delta", {0}));
    EXPECT_EQ(
        "GL_QUADS with 4 vertices, untextured: blending is off with (GL_ONE, GL_ZERO), expected on with "
        "(GL_SRC_ALPHA, GL_ONE)",
        Message(gl::Blends(Drawn(), GL_SRC_ALPHA, GL_ONE)));
}

TEST_F(GLExpect, TexturesAreComparedByIdAndByName)
{
    GLuint id;
    glGenTextures(1, &id);
    gl::LabelTexture(id, "foto.png");
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, id);
    glBegin(GL_POINTS);
    glEnd();
    const gl::Draw& draw = gl::Draws().at(1);
    EXPECT_TRUE(gl::IsTextured(draw, id));
    EXPECT_TRUE(gl::IsTextured(draw, "foto.png"));
    EXPECT_FALSE(gl::IsTextured(draw, "other.png"));
    EXPECT_FALSE(gl::IsTextured(draw, id, 1));
    EXPECT_FALSE(gl::IsUntextured(draw));
    EXPECT_EQ("GL_POINTS with 0 vertices, foto.png: unit 0 has foto.png, expected none",
              Message(gl::IsUntextured(draw)));
}

TEST_F(GLExpect, MatricesAreComparedElementByElement)
{
    EXPECT_TRUE(gl::IsMatrix(gl::Translation(1, 2, 3), gl::Translation(1, 2, 3.000001)));
    EXPECT_FALSE(gl::IsMatrix(gl::Translation(1, 2, 3), gl::Translation(1, 2, 3.0001)));
    const std::string text = Message(gl::IsMatrix(gl::Translation(1, 2, 3), gl::Identity()));
    EXPECT_NE(std::string::npos, text.find("element 12 differs by 1")) << text;
}

TEST_F(GLExpect, CallsAreComparedInOrder)
{
    EXPECT_TRUE(gl::CallsAre({"a()", "b()"}, {"a()", "b()"}));
    EXPECT_FALSE(gl::CallsAre({"a()", "b()"}, {"a()"}));
    EXPECT_FALSE(gl::CallsAre({"a()"}, {"a()", "b()"}));
    EXPECT_FALSE(gl::CallsAre({"a()", "b()"}, {"b()", "a()"}));
    EXPECT_TRUE(gl::CallsContain({"a(1)", "b(2)", "c(3)"}, {"a", "c(3)"}));
    EXPECT_FALSE(gl::CallsContain({"a(1)", "b(2)", "c(3)"}, {"c", "a"}));
    EXPECT_FALSE(gl::CallsContain({"a(1)"}, {"a(2)"}));
    EXPECT_FALSE(gl::CallsContain({"ab(1)"}, {"a"}));
    EXPECT_FALSE(gl::CallsContain({"a(1)"}, {"a", "a"})) << "one call answers one expectation";
    EXPECT_EQ("the calls differ from number 1 on\n    0: a()\n  ! 1: b()   expected c()\n",
              Message(gl::CallsAre({"a()", "b()"}, {"a()", "c()"})));
}

TEST_F(GLExpect, ErrorsAreListed)
{
    EXPECT_TRUE(gl::NoErrors());
    EXPECT_TRUE(gl::OnlyErrors({}));
    glPopMatrix();
    EXPECT_FALSE(gl::NoErrors());
    EXPECT_FALSE(gl::OnlyErrors({}));
    EXPECT_FALSE(gl::OnlyErrors({GL_STACK_OVERFLOW}));
    EXPECT_TRUE(gl::OnlyErrors({GL_STACK_UNDERFLOW}));
    EXPECT_NE(std::string::npos, Message(gl::NoErrors()).find("glPopMatrix(): GL_STACK_UNDERFLOW"));
}

TEST_F(GLExpect, NumbersAreWrittenAsShortAsTheyReadBack)
{
    EXPECT_EQ("0.1", gl::FloatText(0.1f));
    EXPECT_EQ("0.33333334", gl::FloatText(1.0f / 3));
    EXPECT_EQ("0.10000000149011612", gl::NumberText(0.1f));
    EXPECT_EQ("GL_MODELVIEW", gl::EnumText(GL_MODELVIEW));
    EXPECT_EQ("0x1234", gl::EnumText(0x1234));
    EXPECT_EQ("GL_QUADS", gl::ModeText(GL_QUADS));
    EXPECT_EQ("GL_ONE", gl::FactorText(1));
    EXPECT_EQ("(1, 2, 3)", gl::PointText({1, 2, 3}));
    EXPECT_EQ("(1, 2, 3, 0)", gl::PointText({1, 2, 3, 0}));
    EXPECT_EQ("GL_DEPTH_BUFFER_BIT | 0x1", gl::MaskText(GL_DEPTH_BUFFER_BIT | 1));
}
