// SPDX-License-Identifier: MIT
// Both shader families where GL has no shader objects: this executable never loads the entry points.
#include "resources/GLSLUniforms.h"
#include "resources/ShaderParams.h"

#include "kernel/Report.h"
#include "tests/support/ShowFixture.h"

class WithoutShaderObjects : public ShowFixture
{
protected:
    WithoutShaderObjects()
    {
        AddFile("a.vp", "void main() {}");
        AddFile("a.fp", "void main() {}");
    }

    const float values[16] = {};
    const int numbers[4] = {};
};

TEST_F(WithoutShaderObjects, AGLSLShaderFailsWithoutAWord)
{
    GLSLShader shader;
    EXPECT_FALSE(shader.Load("a", "a"));
    EXPECT_EQ("No Shader specified.", shader.lastError);
    EXPECT_EQ(0, shader.initialised);
    EXPECT_TRUE(boxes.empty());
    shader.Enable();
    shader.Disable();
    EXPECT_EQ(0, shader.enabled);

    GLSLUniformFloat number;
    GLSLUniformInt whole;
    GLSLUniformMatrix matrix;
    GLSLUniformSampler sampler;
    number.Init(&shader, "x", 1);
    whole.Init(&shader, "x", 1);
    matrix.Init(&shader, "x", 1);
    sampler.Init(&shader, "x");
    EXPECT_FALSE(number.Set(values));
    EXPECT_FALSE(whole.Set(numbers));
    EXPECT_FALSE(matrix.Set(values));
    sampler.Set(0);
    EXPECT_EQ(0, sampler.valid);
}

TEST_F(WithoutShaderObjects, AShaderProgramSaysSoAndIsHarmless)
{
    ShaderProgram* const program = ShaderProgram::Load("data/a.vp", "data/a.fp");
    ASSERT_NE(nullptr, program);
    EXPECT_EQ(0u, program->program);
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Error", boxes[0].caption);
    EXPECT_EQ(std::string("Bad: GL_ARB_shader_objects is not supported") + ErrorTail, boxes[0].body);
    program->Bind();
    program->Unbind();
    BindProgram(program);
    BindProgram(nullptr);
    UnbindProgram();

    ShaderFloatParam number(program, "x");
    ShaderIntParam whole(program, "x");
    ShaderMatrixParam matrix(program, "x");
    ShaderSampler sampler(program, "x");
    number.Set(values, 1);
    whole.Set(numbers, 1);
    matrix.Set(values, 4);
    sampler.Set(0);
    EXPECT_EQ(-1, number.location);
    EXPECT_EQ(-1, whole.location);
    EXPECT_EQ(-1, matrix.location);
    EXPECT_EQ(-1, sampler.location);
    EXPECT_EQ(1, number.size);
    EXPECT_EQ(1, whole.size);
    EXPECT_EQ(4, matrix.rows);
    EXPECT_EQ(4, matrix.columns);
    delete program;
}
