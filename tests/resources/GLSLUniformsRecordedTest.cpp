// SPDX-License-Identifier: MIT
#include "resources/GLSLUniforms.h"

#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

class Uniforms : public ShowFixture
{
protected:
    Uniforms()
    {
        gl::Reset();
        AddFile("v.vp", "vertex source");
        AddFile("f.fp", "fragment source");
        shader.Load("v", "f");
        shader.Enable();
        gl::ClearRecords();
    }

    GLSLShader shader;
    const float values[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const int numbers[4] = {1, 2, 3, 4};
};

TEST_F(Uniforms, AreInvalidAtFirst)
{
    EXPECT_EQ(0, GLSLUniformFloat().valid);
    EXPECT_EQ(0, GLSLUniformInt().valid);
    EXPECT_EQ(0, GLSLUniformMatrix().valid);
    EXPECT_EQ(0, GLSLUniformSampler().valid);
}

TEST_F(Uniforms, AreSafeToSetBeforeInit)
{
    GLSLUniformFloat number;
    GLSLUniformInt whole;
    GLSLUniformMatrix matrix;
    GLSLUniformSampler sampler;
    EXPECT_FALSE(number.Set(values));
    EXPECT_FALSE(whole.Set(numbers));
    EXPECT_FALSE(matrix.Set(values));
    sampler.Set(3);
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(Uniforms, AskForTheirLocationInInit)
{
    GLSLUniformFloat number;
    GLSLUniformInt whole;
    GLSLUniformMatrix matrix;
    GLSLUniformSampler sampler;
    number.Init(&shader, "number", 1);
    whole.Init(&shader, "whole", 2);
    matrix.Init(&shader, "matrix", 3);
    sampler.Init(&shader, "sampler");
    EXPECT_TRUE(gl::CallsAre(
        gl::Calls(), {"glGetUniformLocationARB(1, \"number\")", "glGetUniformLocationARB(1, \"whole\")",
                      "glGetUniformLocationARB(1, \"matrix\")", "glGetUniformLocationARB(1, \"sampler\")"}));
    EXPECT_EQ(1, number.valid);
    EXPECT_EQ(1, whole.valid);
    EXPECT_EQ(1, matrix.valid);
    EXPECT_EQ(1, sampler.valid);
    EXPECT_EQ(1, number.size);
    EXPECT_EQ(2, whole.size);
    EXPECT_EQ(3, matrix.size);
    EXPECT_EQ(1000, number.location);
    EXPECT_EQ(1003, sampler.location);
}

TEST_F(Uniforms, OfFloatsAreSetBySizeWithACountOfOne)
{
    const char* const expected[] = {
        "glUniform1fv(\"x\", 1, {1})",
        "glUniform2fv(\"x\", 1, {1, 2})",
        "glUniform3fv(\"x\", 1, {1, 2, 3})",
        "glUniform4fv(\"x\", 1, {1, 2, 3, 4})",
    };
    for (int size = 1; size <= 4; size++) {
        GLSLUniformFloat number;
        number.Init(&shader, "x", size);
        EXPECT_EQ(1, number.valid);
        gl::ClearRecords();
        EXPECT_TRUE(number.Set(values));
        EXPECT_TRUE(gl::CallsAre(gl::Calls(), {expected[size - 1]}));
        EXPECT_TRUE(gl::NoErrors());
    }
}

TEST_F(Uniforms, OfIntsAreSetBySizeWithACountOfOne)
{
    const char* const expected[] = {
        "glUniform1iv(\"x\", 1, {1})",
        "glUniform2iv(\"x\", 1, {1, 2})",
        "glUniform3iv(\"x\", 1, {1, 2, 3})",
        "glUniform4iv(\"x\", 1, {1, 2, 3, 4})",
    };
    for (int size = 1; size <= 4; size++) {
        GLSLUniformInt whole;
        whole.Init(&shader, "x", size);
        EXPECT_EQ(1, whole.valid);
        gl::ClearRecords();
        EXPECT_TRUE(whole.Set(numbers));
        EXPECT_TRUE(gl::CallsAre(gl::Calls(), {expected[size - 1]}));
    }
}

TEST_F(Uniforms, OfAnotherSizeAreNeverSet)
{
    for (int size : {0, 5, -1, 1000}) {
        GLSLUniformFloat number;
        GLSLUniformInt whole;
        GLSLUniformMatrix matrix;
        number.Init(&shader, "x", size);
        whole.Init(&shader, "x", size);
        matrix.Init(&shader, "x", size);
        EXPECT_FALSE(number.Set(values));
        EXPECT_FALSE(number.Set(values));
        EXPECT_FALSE(whole.Set(numbers));
        EXPECT_FALSE(matrix.Set(values));
        EXPECT_EQ(0, number.valid);
        EXPECT_EQ(0, whole.valid);
        EXPECT_EQ(0, matrix.valid);
    }
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(Uniforms, AreNotSetToNull)
{
    GLSLUniformFloat number;
    GLSLUniformInt whole;
    GLSLUniformMatrix matrix;
    number.Init(&shader, "x", 1);
    whole.Init(&shader, "x", 1);
    matrix.Init(&shader, "x", 1);
    gl::ClearRecords();
    EXPECT_FALSE(number.Set(nullptr));
    EXPECT_FALSE(whole.Set(nullptr));
    EXPECT_FALSE(matrix.Set(nullptr));
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(Uniforms, OfMatricesCountOneBelowTheDimension)
{
    const char* const expected[] = {
        "glUniformMatrix2fv(\"m\", 1, GL_FALSE, {1, 2, 3, 4})",
        "glUniformMatrix3fv(\"m\", 1, GL_FALSE, {1, 2, 3, 4, 5, 6, 7, 8, 9})",
        "glUniformMatrix4fv(\"m\", 1, GL_FALSE, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16})",
    };
    for (int size = 1; size <= 3; size++) {
        GLSLUniformMatrix matrix;
        matrix.Init(&shader, "m", size);
        gl::ClearRecords();
        EXPECT_TRUE(matrix.Set(values));
        EXPECT_TRUE(gl::CallsAre(gl::Calls(), {expected[size - 1]}));
    }
}

TEST_F(Uniforms, OfMatricesTakeASizeOfFourAndSetNothing)
{
    GLSLUniformMatrix matrix;
    matrix.Init(&shader, "m", 4);
    EXPECT_EQ(1, matrix.valid);
    EXPECT_EQ(4, matrix.size);
    gl::ClearRecords();
    EXPECT_FALSE(matrix.Set(values));
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(Uniforms, OfSamplersTakeTheUnitAsANumber)
{
    GLSLUniformSampler sampler;
    sampler.Init(&shader, "picture");
    gl::ClearRecords();
    sampler.Set(3);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glUniform1i(\"picture\", 3)"}));
}

TEST_F(Uniforms, ThatTheProgramDoesNotHaveAreIgnoredByGl)
{
    gl::RefuseUniform("missing");
    GLSLUniformFloat number;
    number.Init(&shader, "missing", 1);
    EXPECT_EQ(-1, number.location);
    gl::ClearRecords();
    EXPECT_TRUE(number.Set(values));
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glUniform1fv(-1, 1, {1})"}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(Uniforms, OfNoShaderStayInvalid)
{
    GLSLUniformFloat number;
    GLSLUniformSampler sampler;
    number.Init(nullptr, "x", 1);
    sampler.Init(nullptr, "x");
    EXPECT_FALSE(number.Set(values));
    sampler.Set(0);
    EXPECT_TRUE(gl::Calls().empty());
}
