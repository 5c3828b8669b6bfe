// SPDX-License-Identifier: MIT
// Shaders, programs and uniforms of the recorder's GL.
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorderFixture.h"

class GLPrograms : public GLRecorderFixture
{
};

static GLhandleARB MakeProgram()
{
    const char* const vertexSource = "vertex";
    const char* const fragmentSource = "fragment";
    const GLhandleARB program = glCreateProgramObjectARB();
    const GLhandleARB vertex = glCreateShaderObjectARB(GL_VERTEX_SHADER_ARB);
    glShaderSourceARB(vertex, 1, const_cast<const char**>(&vertexSource), nullptr);
    glCompileShaderARB(vertex);
    glAttachObjectARB(program, vertex);
    const GLhandleARB fragment = glCreateShaderObjectARB(GL_FRAGMENT_SHADER_ARB);
    const GLint length = 4;
    glShaderSourceARB(fragment, 1, const_cast<const char**>(&fragmentSource), &length);
    glCompileShaderARB(fragment);
    glAttachObjectARB(program, fragment);
    glLinkProgramARB(program);
    return program;
}

TEST_F(GLPrograms, AProgramKeepsItsSources)
{
    const GLhandleARB program = MakeProgram();
    const gl::ProgramObject* const kept = gl::FindProgram(program);
    ASSERT_NE(nullptr, kept);
    EXPECT_TRUE(kept->linked);
    EXPECT_EQ("vertex", kept->vertexSource);
    EXPECT_EQ("frag", kept->fragmentSource) << "the length counts where there is one";
    EXPECT_EQ(2u, kept->shaders.size());
    EXPECT_EQ(2u, gl::Shaders().size());
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLPrograms, UniformsBelongToTheProgramInUse)
{
    const GLhandleARB program = MakeProgram();
    const GLint delta = glGetUniformLocationARB(program, "delta");
    const GLint sampler = glGetUniformLocationARB(program, "sampler0");
    EXPECT_NE(-1, delta);
    EXPECT_NE(delta, sampler);
    EXPECT_EQ(delta, glGetUniformLocationARB(program, "delta"));
    const float value = 0.5f;
    glUniform1fvARB(delta, 1, &value);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_OPERATION})) << "no program is in use";

    glUseProgramObjectARB(program);
    glUniform1fvARB(delta, 1, &value);
    glUniform1iARB(sampler, 1);
    DrawPoint();
    const float later = 1;
    glUniform1fvARB(delta, 1, &later);
    DrawPoint();
    glUseProgramObjectARB(0);
    DrawPoint();
    EXPECT_TRUE(gl::UsesProgram(gl::Draws().at(0), program));
    EXPECT_TRUE(gl::HasUniform(gl::Draws()[0], "delta", {0.5}));
    EXPECT_TRUE(gl::HasUniform(gl::Draws()[0], "sampler0", {1}));
    EXPECT_TRUE(gl::HasUniform(gl::Draws()[1], "delta", {1}));
    EXPECT_TRUE(gl::UsesNoProgram(gl::Draws()[2]));
    EXPECT_TRUE(
        gl::CallsContain(gl::Calls(), {"glUniform1fv(\"delta\", 1, {0.5})", "glUniform1i(\"sampler0\", 1)"}));
    EXPECT_EQ((std::vector<std::string>{"delta", "sampler0"}), gl::FindProgram(program)->uniformNames);
}

TEST_F(GLPrograms, AUniformOfAnotherProgramOrOfSeveralValuesIsRefused)
{
    const GLhandleARB first = MakeProgram(), second = MakeProgram();
    const GLint location = glGetUniformLocationARB(first, "delta");
    glUseProgramObjectARB(second);
    const float values[] = {1, 2, 3};
    glUniform1fvARB(location, 1, values);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_OPERATION}));
    glUseProgramObjectARB(first);
    glUniform3fvARB(location, 3, values); // GL would take it for three vectors
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_OPERATION, GL_INVALID_OPERATION}));
    glUniform1fvARB(-1, 1, values); // ignored
    EXPECT_EQ(2u, gl::Errors().size());
    EXPECT_TRUE(gl::FindProgram(first)->uniforms.empty());
}

TEST_F(GLPrograms, UniformsOfASharedProgramAreSeenInEveryContext)
{
    const GLhandleARB program = MakeProgram();
    const GLint location = glGetUniformLocationARB(program, "delta");
    gl::SetContext(2);
    glUseProgramObjectARB(program);
    DrawPoint();
    gl::SetContext(1);
    glUseProgramObjectARB(program);
    glUniform1fARB(location, 3);
    gl::SetContext(2);
    DrawPoint();
    EXPECT_FALSE(gl::HasUniform(gl::Draws().at(0), "delta", {3}));
    EXPECT_TRUE(gl::HasUniform(gl::Draws().at(1), "delta", {3}));
}

TEST_F(GLPrograms, FailuresComeAsTheyAreScripted)
{
    gl::FailCompile(GL_FRAGMENT_SHADER_ARB, "fragment log");
    const GLhandleARB program = MakeProgram();
    const GLhandleARB vertex = gl::Shaders().at(0).id, fragment = gl::Shaders().at(1).id;
    GLint status = -1;
    glGetObjectParameterivARB(vertex, GL_OBJECT_COMPILE_STATUS_ARB, &status);
    EXPECT_EQ(1, status);
    glGetObjectParameterivARB(fragment, GL_OBJECT_COMPILE_STATUS_ARB, &status);
    EXPECT_EQ(0, status);
    glGetObjectParameterivARB(program, GL_OBJECT_LINK_STATUS_ARB, &status);
    EXPECT_EQ(0, status) << "a shader that isn't compiled is attached";
    char log[9];
    GLsizei length = 0;
    glGetInfoLogARB(fragment, sizeof log, &length, log);
    EXPECT_STREQ("fragment", log) << "cut at the buffer's end";
    EXPECT_EQ(8, length);
    glUseProgramObjectARB(program);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_OPERATION}));
    EXPECT_EQ(0u, gl::Now().program);

    gl::Reset();
    gl::FailLink("link log");
    const GLhandleARB unlinked = MakeProgram();
    glGetObjectParameterivARB(unlinked, GL_OBJECT_LINK_STATUS_ARB, &status);
    EXPECT_EQ(0, status);
    glGetInfoLogARB(unlinked, sizeof log, nullptr, log);
    EXPECT_STREQ("link log", log);

    gl::Reset();
    gl::RefusePrograms();
    EXPECT_EQ(0u, glCreateProgramObjectARB());

    gl::Reset();
    gl::RefuseUniform("delta");
    const GLhandleARB fine = MakeProgram();
    EXPECT_EQ(-1, glGetUniformLocationARB(fine, "delta"));
    EXPECT_NE(-1, glGetUniformLocationARB(fine, "other"));
}

TEST_F(GLPrograms, TheCompileStatusOfAProgramIsRefusedUnlessScripted)
{
    const GLhandleARB program = MakeProgram();
    GLint status = 77;
    glGetObjectParameterivARB(program, GL_OBJECT_COMPILE_STATUS_ARB, &status);
    EXPECT_EQ(77, status);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_ENUM}));
    gl::AnswerCompileStatusOfPrograms(0);
    glGetObjectParameterivARB(program, GL_OBJECT_COMPILE_STATUS_ARB, &status);
    EXPECT_EQ(0, status);
}

TEST_F(GLPrograms, ShadersHaveTheirNewerNamesToo)
{
    const GLuint program = glCreateProgram();
    const GLuint shader = glCreateShader(GL_VERTEX_SHADER);
    const char* const source = "x";
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    glAttachShader(program, shader);
    glLinkProgram(program);
    glUseProgram(program);
    EXPECT_EQ(program, gl::Now().program);
    glDeleteShader(shader);
    glDeleteProgram(program);
    EXPECT_EQ(nullptr, gl::FindProgram(program));
    glDeleteObjectARB(0);
    EXPECT_TRUE(gl::NoErrors());
    glDeleteObjectARB(program);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_VALUE}));
}
