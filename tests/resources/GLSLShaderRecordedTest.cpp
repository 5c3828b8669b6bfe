// SPDX-License-Identifier: MIT
#include "resources/GLSLShader.h"

#include "kernel/Report.h"
#include "tests/support/OddFiles.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <filesystem>

class LoadedShader : public ShowFixture
{
protected:
    LoadedShader()
    {
        gl::Reset();
        AddFile("v.vp", "vertex source");
        AddFile("f.fp", "fragment source");
    }

    std::string ErrorBody(std::string text) const { return "Bad: " + text + ErrorTail; }

    GLSLShader shader;
};

TEST_F(LoadedShader, StartsWithNothing)
{
    EXPECT_EQ(0, shader.initialised);
    EXPECT_EQ(0, shader.enabled);
    EXPECT_EQ("No Shader specified.", shader.lastError);
    EXPECT_EQ(0u, shader.program);
}

TEST_F(LoadedShader, CompilesAttachesAndLinksInOrder)
{
    EXPECT_TRUE(shader.Load("v", "f"));
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {
                                              "glCreateProgramObjectARB()",
                                              "glCreateShaderObjectARB(GL_VERTEX_SHADER)",
                                              "glShaderSourceARB(2, 1)",
                                              "glCompileShaderARB(2)",
                                              "glGetObjectParameterivARB(2, GL_COMPILE_STATUS)",
                                              "glAttachObjectARB(1, 2)",
                                              "glCreateShaderObjectARB(GL_FRAGMENT_SHADER)",
                                              "glShaderSourceARB(3, 1)",
                                              "glCompileShaderARB(3)",
                                              "glGetObjectParameterivARB(3, GL_COMPILE_STATUS)",
                                              "glAttachObjectARB(1, 3)",
                                              "glLinkProgramARB(1)",
                                              "glGetObjectParameterivARB(1, GL_COMPILE_STATUS)",
                                          }));
    EXPECT_EQ(1, shader.initialised);
    EXPECT_EQ(0, shader.enabled);
    EXPECT_EQ(1u, shader.program);
    EXPECT_EQ("vertex source", gl::FindProgram(1)->vertexSource);
    EXPECT_EQ("fragment source", gl::FindProgram(1)->fragmentSource);
    EXPECT_EQ("No Shader specified.", shader.lastError);
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(0, gl::CountErrors(GL_INVALID_VALUE) + gl::CountErrors(GL_INVALID_OPERATION));
    EXPECT_EQ(1, gl::CountErrors(GL_INVALID_ENUM)); // a program has no compile status
}

TEST_F(LoadedShader, WritesBothSourcesToTheDebugChannel)
{
    shader.Load("v", "f");
    EXPECT_EQ("vertex sourcefragment source", debugText);
}

TEST_F(LoadedShader, CountsAsLinkedWhereTheQuestionIsRefused)
{
    gl::FailLink("does not link");
    EXPECT_TRUE(shader.Load("v", "f"));
    EXPECT_EQ(1, shader.initialised);
    EXPECT_FALSE(gl::FindProgram(1)->linked);
}

TEST_F(LoadedShader, CountsAsLinkedWhereTheAnswerIsYes)
{
    gl::AnswerCompileStatusOfPrograms(1);
    EXPECT_TRUE(shader.Load("v", "f"));
}

TEST_F(LoadedShader, KeepsTheProgramsLogWhereTheAnswerIsNoAndReportsNothing)
{
    gl::AnswerCompileStatusOfPrograms(0);
    gl::FailLink("the program's log");
    EXPECT_FALSE(shader.Load("v", "f"));
    EXPECT_EQ("the program's log", shader.lastError);
    EXPECT_EQ(0, shader.initialised);
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(std::vector<std::string>{"glGetInfoLogARB(1, 4096)"}, gl::CallsNamed({"glGetInfoLogARB"}));
}

TEST_F(LoadedShader, LeavesAStageOutThatDoesNotCompile)
{
    gl::FailCompile(GL_VERTEX_SHADER, "vertex log");
    EXPECT_TRUE(shader.Load("v", "f"));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Attach GLSL Shader", boxes[0].caption);
    EXPECT_EQ(ErrorBody("vertex log"), boxes[0].body);
    EXPECT_EQ("vertex log", shader.lastError);
    EXPECT_FALSE(QuitWasPosted());
    EXPECT_EQ((std::vector<GLuint>{3}), gl::FindProgram(1)->shaders);
    EXPECT_EQ((std::vector<std::string>{"glGetInfoLogARB(2, 4096)", "glAttachObjectARB(1, 3)"}),
              gl::CallsNamed({"glGetInfoLogARB", "glAttachObjectARB", "glDeleteObjectARB"}));
}

static void GLAPIENTRY SayNothing(GLhandleARB, GLenum, GLint*) {}

TEST_F(LoadedShader, LeavesAStageOutWhereGlSaysNothingOfIt)
{
    const PFNGLGETOBJECTPARAMETERIVARBPROC ask = __glewGetObjectParameterivARB;
    __glewGetObjectParameterivARB = SayNothing;
    EXPECT_FALSE(shader.Load("v", "f"));
    __glewGetObjectParameterivARB = ask;
    EXPECT_EQ(0, gl::CountCalls("glAttachObjectARB"));
}

TEST_F(LoadedShader, WorksWithTheVertexStageAlone)
{
    gl::FailCompile(GL_FRAGMENT_SHADER, "fragment log");
    EXPECT_TRUE(shader.Load("v", "f"));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ(ErrorBody("fragment log"), boxes[0].body);
    EXPECT_EQ((std::vector<GLuint>{2}), gl::FindProgram(1)->shaders);
}

TEST_F(LoadedShader, FailsWhereNeitherStageCompiles)
{
    gl::FailCompile(GL_VERTEX_SHADER, "vertex log");
    gl::FailCompile(GL_FRAGMENT_SHADER, "fragment log");
    EXPECT_FALSE(shader.Load("v", "f"));
    EXPECT_EQ(2u, boxes.size());
    EXPECT_EQ("Unable to attach the shaders vand f", shader.lastError);
    EXPECT_EQ(1, gl::CountCalls("glLinkProgramARB"));
    EXPECT_EQ(0, shader.initialised);
}

TEST_F(LoadedShader, CutsALogAt4096Bytes)
{
    gl::FailCompile(GL_VERTEX_SHADER, std::string(9000, 'x'));
    shader.Load("v", "f");
    EXPECT_EQ(std::string(4095, 'x'), shader.lastError); // the zero at the end is the last byte
}

TEST_F(LoadedShader, ReportsEachMissingFileAndGoesOn)
{
    EXPECT_FALSE(shader.Load("no", "nothing"));
    ASSERT_EQ(2u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: GLSL Shader", boxes[0].caption);
    EXPECT_EQ(ErrorBody("Unable to open the following shader: " + PathOf("no.vp")), boxes[0].body);
    EXPECT_EQ("Marlinex 1.5 Error: GLSL Shader", boxes[1].caption);
    EXPECT_EQ(ErrorBody("Unable to open the following shader: " + PathOf("nothing.fp")), boxes[1].body);
    EXPECT_EQ("Unable to attach the shaders noand nothing", shader.lastError);
    EXPECT_FALSE(QuitWasPosted());
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glCreateProgramObjectARB()", "glLinkProgramARB(1)",
                                           "glGetObjectParameterivARB(1, GL_COMPILE_STATUS)"}));
}

TEST_F(LoadedShader, WorksWithoutAVertexFile)
{
    EXPECT_TRUE(shader.Load("no", "f"));
    EXPECT_EQ(1u, boxes.size());
    EXPECT_EQ(1, shader.initialised);
}

TEST_F(LoadedShader, TakesAnEmptyFileForNoSourceQuietly)
{
    AddFile("empty.vp", "");
    AddFile("empty.fp", "");
    EXPECT_FALSE(shader.Load("empty", "empty"));
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(0, gl::CountCalls("glCreateShaderObjectARB"));
    EXPECT_EQ("Unable to attach the shaders emptyand empty", shader.lastError);
}

TEST_F(LoadedShader, ReportsWhatIsNoFileLikeAMissingOneAndGoesOn)
{
    for (const OddFile& odd : OddFiles()) {
        boxes.clear();
        odd.make(PathOf("odd.vp"));
        GLSLShader other;
        EXPECT_TRUE(other.Load("odd", "f")) << odd.name << ": the fragment stage is there";
        ASSERT_EQ(1u, boxes.size()) << odd.name;
        EXPECT_EQ("Marlinex 1.5 Error: GLSL Shader", boxes[0].caption);
        EXPECT_EQ(ErrorBody("Unable to open the following shader: " + PathOf("odd.vp")), boxes[0].body);
        EXPECT_FALSE(QuitWasPosted());
        remove(PathOf("odd.vp").c_str());
    }
}

TEST_F(LoadedShader, ReadsAllBytesAsTheyStand)
{
    const std::string source = "line\r\nline\x1Aline\xFF end";
    AddFile("bytes.vp", source);
    shader.Load("bytes", "f");
    EXPECT_EQ(source, gl::FindProgram(1)->vertexSource);
}

TEST_F(LoadedShader, EndsASourceAtItsFirstZeroByte)
{
    AddFile("zero.vp", std::string("seen\0unseen", 11));
    shader.Load("zero", "f");
    EXPECT_EQ("seen", gl::FindProgram(1)->vertexSource);
    EXPECT_EQ("seenfragment source", debugText);
}

TEST_F(LoadedShader, ReadsALongSource)
{
    std::string source;
    while (source.size() < 300000)
        source += "// a long comment\n";
    AddFile("long.vp", source);
    shader.Load("long", "f");
    EXPECT_EQ(source, gl::FindProgram(1)->vertexSource);
}

TEST_F(LoadedShader, StopsReadingAtAMebibyte)
{
    AddFile("huge.vp", std::string((1 << 20) + 5, 'x'));
    shader.Load("huge", "f");
    EXPECT_EQ(1u << 20, gl::FindProgram(1)->vertexSource.size());
}

TEST_F(LoadedShader, FailsWithoutTextWhereGlGivesNoProgram)
{
    gl::RefusePrograms();
    EXPECT_FALSE(shader.Load("v", "f"));
    EXPECT_EQ("No Shader specified.", shader.lastError);
    EXPECT_EQ(0, shader.initialised);
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glCreateProgramObjectARB()"}));
}

TEST_F(LoadedShader, ReadsItsFilesAheadOfAskingForAProgram)
{
    gl::RefusePrograms();
    shader.Load("no", "nothing");
    EXPECT_EQ(2u, boxes.size());
}

TEST_F(LoadedShader, RefusesASecondLoadAndChangesNothingButTheError)
{
    shader.Load("v", "f");
    shader.Enable();
    gl::ClearRecords();
    EXPECT_FALSE(shader.Load("no", "nothing"));
    EXPECT_EQ("Shader already initialized", shader.lastError);
    EXPECT_EQ(1, shader.initialised);
    EXPECT_EQ(1, shader.enabled);
    EXPECT_EQ(1u, shader.program);
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(LoadedShader, MayBeLoadedAgainAfterAFailure)
{
    EXPECT_FALSE(shader.Load("no", "nothing"));
    EXPECT_TRUE(shader.Load("v", "f"));
    EXPECT_EQ(2u, shader.program);
}

TEST_F(LoadedShader, IsEnabledAndDisabledOnce)
{
    shader.Load("v", "f");
    gl::ClearRecords();
    shader.Disable();
    EXPECT_TRUE(gl::Calls().empty());
    shader.Enable();
    EXPECT_EQ(1, shader.enabled);
    shader.Enable();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glUseProgramObjectARB(1)"}));
    gl::ClearRecords();
    shader.Disable();
    EXPECT_EQ(0, shader.enabled);
    shader.Disable();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glUseProgramObjectARB(0)"}));
    shader.Enable();
    EXPECT_EQ(1, shader.enabled);
}

TEST_F(LoadedShader, DoesNothingUnlessItWasLoaded)
{
    shader.Load("no", "nothing");
    gl::ClearRecords();
    shader.Enable();
    EXPECT_EQ(0, shader.enabled);
    shader.Disable();
    shader.enabled = 1;
    shader.Disable();
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(LoadedShader, IsDeletedWithItsObject)
{
    {
        GLSLShader local;
        local.Load("v", "f");
        gl::ClearRecords();
    }
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glDeleteObjectARB(1)"}));
}

TEST_F(LoadedShader, IsDisabledFirstWhenItsObjectGoesWhileInUse)
{
    {
        GLSLShader local;
        local.Load("v", "f");
        local.Enable();
        gl::ClearRecords();
    }
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glUseProgramObjectARB(0)", "glDeleteObjectARB(1)"}));
}

TEST_F(LoadedShader, LeavesNothingToDeleteWhereItWasNotLoaded)
{
    {
        GLSLShader local;
        local.Load("no", "nothing");
        gl::ClearRecords();
    }
    EXPECT_TRUE(gl::Calls().empty());
}
