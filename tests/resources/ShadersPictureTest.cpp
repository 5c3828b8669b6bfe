// SPDX-License-Identifier: MIT
// Both shader families against a real compiler: each way in which they fail, with the compiler's own log.
#include "resources/GLSLUniforms.h"
#include "resources/ShaderParams.h"

#include "kernel/Report.h"
#include "tests/support/picture/PictureFixture.h"

#include <GL/glu.h>

#include <memory>

static const char* const plainVertex = "void main() { gl_Position = ftransform(); }\n";
static const char* const redFragment = "void main() { gl_FragColor = vec4(1.0, 0.0, 0.0, 1.0); }\n";
static const char* const badVertex = "void main() { gl_Position = nonsense; }\n";
static const char* const badFragment = "void main() { gl_FragColor = rubbish(); }\n";
static const char* const unlinkable = "varying vec4 nobody;\n"
                                      "void main() { gl_FragColor = nobody; }\n";

class RealShaders : public PictureFixture
{
protected:
    RealShaders()
    {
        UseOwnData();
        AddFile("plain.vp", plainVertex);
        AddFile("red.fp", redFragment);
        AddFile("bad.vp", badVertex);
        AddFile("bad.fp", badFragment);
        AddFile("unlinkable.fp", unlinkable);
        AddFile("empty.vp", "");
    }

    static std::string Log(GLhandleARB object)
    {
        char log[4096] = "";
        glGetInfoLogARB(object, sizeof log, nullptr, log);
        return log;
    }

    // What the compiler says of a source, asked without the classes under test.
    static std::string CompileLog(GLenum type, const char* source)
    {
        const GLhandleARB shader = Compile(type, source);
        const std::string log = Log(shader);
        glDeleteObjectARB(shader);
        EXPECT_FALSE(log.empty());
        return log;
    }

    static std::string LinkLog(const char* vertexSource, const char* fragmentSource)
    {
        const GLhandleARB program = glCreateProgramObjectARB();
        glAttachObjectARB(program, Compile(GL_VERTEX_SHADER_ARB, vertexSource));
        glAttachObjectARB(program, Compile(GL_FRAGMENT_SHADER_ARB, fragmentSource));
        glLinkProgramARB(program);
        const std::string log = Log(program);
        glDeleteObjectARB(program);
        EXPECT_FALSE(log.empty());
        return log;
    }

    static GLhandleARB Compile(GLenum type, const char* source)
    {
        const GLhandleARB shader = glCreateShaderObjectARB(type);
        glShaderSourceARB(shader, 1, &source, nullptr);
        glCompileShaderARB(shader);
        return shader;
    }

    void ExpectOneBox(std::string title, std::string text)
    {
        ASSERT_EQ(1u, boxes.size());
        EXPECT_EQ("Marlinex 1.5 Error: " + title, boxes[0].caption);
        EXPECT_EQ("Bad: " + text + ErrorTail, boxes[0].body);
    }

    // A quad in green over all of the window: what colour the window's middle has then.
    std::vector<unsigned char> DrawnColour()
    {
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClear(GL_COLOR_BUFFER_BIT);
        glDisable(GL_DEPTH_TEST);
        glColor3f(0, 1, 0);
        glRectf(-1, -1, 1, 1);
        const Picture picture = Grab();
        const unsigned char* const pixel = picture.At(8, 8);
        return {pixel[0], pixel[1], pixel[2]};
    }

    void ForgetErrors()
    {
        while (glGetError() != GL_NO_ERROR) {
        }
    }

    const std::vector<unsigned char> red = {255, 0, 0};
    const std::vector<unsigned char> green = {0, 255, 0};
    GLSLShader shader;
    std::unique_ptr<ShaderProgram> program;
};

// ---- GLSLShader

TEST_F(RealShaders, AGLSLShaderDrawsWhileItIsEnabled)
{
    ASSERT_TRUE(Open(16, 16));
    EXPECT_TRUE(shader.Load("plain", "red"));
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(green, DrawnColour());
    shader.Enable();
    EXPECT_EQ(red, DrawnColour());
    shader.Disable();
    EXPECT_EQ(green, DrawnColour());
}

TEST_F(RealShaders, AMissingFileLeavesTheOtherStageOfAGLSLShader)
{
    ASSERT_TRUE(Open(16, 16));
    EXPECT_TRUE(shader.Load("missing", "red"));
    ExpectOneBox("GLSL Shader", "Unable to open the following shader: " + PathOf("missing.vp"));
    EXPECT_FALSE(QuitWasPosted());
    shader.Enable();
    EXPECT_EQ(red, DrawnColour());
}

TEST_F(RealShaders, ACompileErrorOfAGLSLShaderShowsTheCompilersLog)
{
    ASSERT_TRUE(Open(16, 16));
    EXPECT_TRUE(shader.Load("bad", "red"));
    const std::string log = CompileLog(GL_VERTEX_SHADER_ARB, badVertex);
    ExpectOneBox("Attach GLSL Shader", log);
    EXPECT_EQ(log, shader.lastError);
    EXPECT_FALSE(QuitWasPosted());
    shader.Enable();
    EXPECT_EQ(red, DrawnColour()); // the stage is left out, the other one works
}

TEST_F(RealShaders, ACompileErrorOfTheFragmentStageShowsTheCompilersLog)
{
    ASSERT_TRUE(Open(16, 16));
    EXPECT_TRUE(shader.Load("plain", "bad"));
    ExpectOneBox("Attach GLSL Shader", CompileLog(GL_FRAGMENT_SHADER_ARB, badFragment));
    shader.Enable();
    EXPECT_EQ(green, DrawnColour());
}

TEST_F(RealShaders, AGLSLShaderWithNothingAttachedDoesNothing)
{
    ASSERT_TRUE(Open(16, 16));
    EXPECT_FALSE(shader.Load("bad", "bad"));
    EXPECT_EQ(2u, boxes.size());
    EXPECT_EQ("Unable to attach the shaders badand bad", shader.lastError);
    EXPECT_EQ(0, shader.initialised);
    shader.Enable();
    EXPECT_EQ(green, DrawnColour());
}

TEST_F(RealShaders, AGLSLShaderThatDoesNotLinkPassesForGoodAndDrawsWithTheFixedPipeline)
{
    ASSERT_TRUE(Open(16, 16));
    EXPECT_TRUE(shader.Load("plain", "unlinkable")); // the compile status of a program is refused here
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ("No Shader specified.", shader.lastError);
    GLint linked = 1;
    glGetObjectParameterivARB(shader.program, GL_OBJECT_LINK_STATUS_ARB, &linked);
    EXPECT_EQ(0, linked);
    shader.Enable();
    EXPECT_EQ(green, DrawnColour());
}

TEST_F(RealShaders, UniformsOfAGLSLShaderReachIt)
{
    ASSERT_TRUE(Open(16, 16));
    AddFile("uniforms.fp", "uniform float one; uniform vec2 two; uniform vec3 three; uniform vec4 four;\n"
                           "uniform int whole; uniform mat2 small; uniform mat3 middle; uniform mat4 large;\n"
                           "void main() {\n"
                           "    float sum = one + two.y + three.z + four.w + float(whole) + small[1][0]\n"
                           "              + middle[2][1] + large[3][2];\n"
                           "    gl_FragColor = vec4(sum / 255.0, 0.0, 0.0, 1.0);\n"
                           "}\n");
    ASSERT_TRUE(shader.Load("plain", "uniforms"));
    GLSLUniformFloat numbers[4];
    GLSLUniformInt whole;
    GLSLUniformMatrix matrices[3];
    numbers[0].Init(&shader, "one", 1);
    numbers[1].Init(&shader, "two", 2);
    numbers[2].Init(&shader, "three", 3);
    numbers[3].Init(&shader, "four", 4);
    whole.Init(&shader, "whole", 1);
    matrices[0].Init(&shader, "small", 1);
    matrices[1].Init(&shader, "middle", 2);
    matrices[2].Init(&shader, "large", 3);
    ForgetErrors();
    const float last[4][4] = {{1}, {0, 2}, {0, 0, 4}, {0, 0, 0, 8}};
    const float matrix2[4] = {0, 0, 32, 0}; // column by column
    const float matrix3[9] = {0, 0, 0, 0, 0, 0, 0, 64, 0};
    const float matrix4[16] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 100, 0};
    const int sixteen = 16;
    shader.Enable();
    for (int i = 0; i < 4; i++)
        EXPECT_TRUE(numbers[i].Set(last[i]));
    EXPECT_TRUE(whole.Set(&sixteen));
    EXPECT_TRUE(matrices[0].Set(matrix2));
    EXPECT_TRUE(matrices[1].Set(matrix3));
    EXPECT_TRUE(matrices[2].Set(matrix4));
    EXPECT_EQ((std::vector<unsigned char>{227, 0, 0}), DrawnColour());
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(RealShaders, AUniformThatTheProgramDoesNotHaveIsIgnored)
{
    ASSERT_TRUE(Open(16, 16));
    ASSERT_TRUE(shader.Load("plain", "red"));
    GLSLUniformFloat uniform;
    uniform.Init(&shader, "nobody", 1);
    EXPECT_EQ(-1, uniform.location);
    ForgetErrors();
    shader.Enable();
    const float value = 1;
    EXPECT_TRUE(uniform.Set(&value));
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

// ---- ShaderProgram

TEST_F(RealShaders, AShaderProgramDrawsWhileItIsBound)
{
    ASSERT_TRUE(Open(16, 16));
    program.reset(ShaderProgram::Load("data/plain.vp", "data/red.fp"));
    ASSERT_NE(nullptr, program);
    EXPECT_TRUE(boxes.empty());
    program->Bind();
    EXPECT_EQ(red, DrawnColour());
    program->Unbind();
    EXPECT_EQ(green, DrawnColour());
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(RealShaders, AShaderProgramMayHaveAFragmentStageAlone)
{
    ASSERT_TRUE(Open(16, 16));
    program.reset(ShaderProgram::Load("", "data/red.fp"));
    ASSERT_NE(nullptr, program);
    program->Bind();
    EXPECT_EQ(red, DrawnColour());
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(RealShaders, AMissingFileOfAShaderProgramPostsQuit)
{
    ASSERT_TRUE(Open(16, 16));
    program.reset(ShaderProgram::Load("data/missing.vp", "data/red.fp"));
    ASSERT_NE(nullptr, program);
    ExpectOneBox("File Not Found!", PathOf("missing.vp"));
    EXPECT_TRUE(QuitWasPosted());
    program->Bind();
    EXPECT_EQ(red, DrawnColour());
}

TEST_F(RealShaders, BothSourcesMissingGiveNoShaderProgram)
{
    ASSERT_TRUE(Open(16, 16));
    program.reset(ShaderProgram::Load("", ""));
    EXPECT_EQ(nullptr, program);
    ExpectOneBox("No Programs for Shader defined!", "");
    EXPECT_FALSE(QuitWasPosted());
    BindProgram(program.get());
    EXPECT_EQ(green, DrawnColour());
}

TEST_F(RealShaders, ACompileErrorOfAShaderProgramShowsTheCompilersLog)
{
    ASSERT_TRUE(Open(16, 16));
    program.reset(ShaderProgram::Load("data/bad.vp", "data/red.fp"));
    ASSERT_NE(nullptr, program);
    ExpectOneBox("Error", CompileLog(GL_VERTEX_SHADER_ARB, badVertex));
    EXPECT_FALSE(QuitWasPosted());
    boxes.clear();
    BindProgram(program.get());
    EXPECT_EQ(green, DrawnColour()); // a bad program leaves the fixed pipeline in use
    program.reset(ShaderProgram::Load("data/plain.vp", "data/bad.fp"));
    ExpectOneBox("Error", CompileLog(GL_FRAGMENT_SHADER_ARB, badFragment));
}

TEST_F(RealShaders, ALinkErrorOfAShaderProgramShowsTheLinkersLog)
{
    ASSERT_TRUE(Open(16, 16));
    program.reset(ShaderProgram::Load("data/plain.vp", "data/unlinkable.fp"));
    ASSERT_NE(nullptr, program);
    ExpectOneBox("Error", LinkLog(plainVertex, unlinkable));
    EXPECT_FALSE(QuitWasPosted());
    EXPECT_NE(0u, program->program); // the handle of the program that was deleted
    BindProgram(program.get());
    EXPECT_EQ(green, DrawnColour());
}

TEST_F(RealShaders, AnEmptyVertexFileOfAShaderProgramDoesNotLink)
{
    ASSERT_TRUE(Open(16, 16));
    program.reset(ShaderProgram::Load("data/empty.vp", "data/red.fp"));
    ASSERT_NE(nullptr, program);
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Error", boxes[0].caption);
}

TEST_F(RealShaders, ParametersOfAShaderProgramReachIt)
{
    ASSERT_TRUE(Open(16, 16));
    AddFile("params.fp", "uniform float number; uniform int whole; uniform sampler2D picture;\n"
                         "void main() {\n"
                         "    gl_FragColor = vec4((number + float(whole)) / 255.0, 0.0, 0.0, 1.0)\n"
                         "                 + texture2D(picture, vec2(0.5)) * vec4(0.0, 1.0, 1.0, 0.0);\n"
                         "}\n");
    program.reset(ShaderProgram::Load("data/plain.vp", "data/params.fp"));
    ASSERT_NE(nullptr, program);
    ShaderFloatParam number(program.get(), "number");
    ShaderIntParam whole(program.get(), "whole");
    ShaderSampler picture(program.get(), "picture");
    ShaderFloatParam nobody(program.get(), "nobody");
    EXPECT_EQ(-1, nobody.location);

    const unsigned char texel[3] = {1, 20, 30};
    GLuint texture = 0;
    glActiveTexture(GL_TEXTURE1);
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, 1, 1, 0, GL_RGB, GL_UNSIGNED_BYTE, texel);
    glActiveTexture(GL_TEXTURE0);

    program->Bind();
    const float hundred = 100;
    const int fifty = 50;
    number.Set(&hundred, 1);
    whole.Set(&fifty, 1);
    picture.Set(1);
    nobody.Set(&hundred, 1);
    EXPECT_EQ((std::vector<unsigned char>{150, 20, 30}), DrawnColour());
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}
