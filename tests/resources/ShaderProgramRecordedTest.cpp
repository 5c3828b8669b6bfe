// SPDX-License-Identifier: MIT
#include "resources/ShaderProgram.h"

#include "kernel/Report.h"
#include "resources/ShaderParams.h"
#include "tests/support/OddFiles.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <filesystem>
#include <memory>

#include <unistd.h>

typedef std::vector<std::string> Texts;

class Program : public ShowFixture
{
protected:
    Program()
    {
        gl::Reset();
        AddFile("v.vp", "vertex source");
        AddFile("f.fp", "fragment source");
    }

    // Freed with the fixture.
    ShaderProgram* Load(std::string vertexPath, std::string fragmentPath)
    {
        program.reset();
        program.reset(ShaderProgram::Load(vertexPath, fragmentPath));
        return program.get();
    }

    void ExpectBox(size_t index, std::string title, std::string text)
    {
        ASSERT_LT(index, boxes.size());
        EXPECT_EQ("Marlinex 1.5 Error: " + title, boxes[index].caption);
        EXPECT_EQ("Bad: " + text + ErrorTail, boxes[index].body);
    }

    std::unique_ptr<ShaderProgram> program;
};

TEST_F(Program, IsCompiledAttachedAndLinkedInOrder)
{
    ASSERT_NE(nullptr, Load("data/v.vp", "data/f.fp"));
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
                                              "glGetObjectParameterivARB(1, GL_LINK_STATUS)",
                                          }));
    EXPECT_EQ(1u, program->program);
    EXPECT_EQ("vertex source", gl::FindProgram(1)->vertexSource);
    EXPECT_EQ("fragment source", gl::FindProgram(1)->fragmentSource);
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(Program, HasItsFilesClosed)
{
    const int next = dup(STDOUT_FILENO); // the lowest number that is free
    close(next);
    ASSERT_NE(nullptr, Load("data/v.vp", "data/f.fp"));
    const int nextNow = dup(STDOUT_FILENO);
    close(nextNow);
    EXPECT_EQ(next, nextNow);
}

static void GLAPIENTRY SayNothing(GLhandleARB, GLenum, GLint*) {}

TEST_F(Program, StopsBuildingAtAStageThatGlSaysNothingOf)
{
    const PFNGLGETOBJECTPARAMETERIVARBPROC ask = __glewGetObjectParameterivARB;
    __glewGetObjectParameterivARB = SayNothing;
    EXPECT_NE(nullptr, Load("data/v.vp", "data/f.fp"));
    __glewGetObjectParameterivARB = ask;
    EXPECT_EQ(0, gl::CountCalls("glAttachObjectARB"));
    EXPECT_EQ(0, gl::CountCalls("glLinkProgramARB"));
    EXPECT_EQ(1u, boxes.size());
}

TEST_F(Program, MayHaveAFragmentStageAlone)
{
    ASSERT_NE(nullptr, Load("", "data/f.fp"));
    EXPECT_EQ((std::vector<GLuint>{2}), gl::FindProgram(1)->shaders);
    EXPECT_EQ("fragment source", gl::FindProgram(1)->fragmentSource);
    EXPECT_EQ("", gl::FindProgram(1)->vertexSource);
    EXPECT_TRUE(gl::FindProgram(1)->linked);
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(QuitWasPosted());
}

TEST_F(Program, MayHaveAVertexStageAlone)
{
    ASSERT_NE(nullptr, Load("data/v.vp", ""));
    EXPECT_EQ("vertex source", gl::FindProgram(1)->vertexSource);
    EXPECT_EQ(1u, gl::FindProgram(1)->shaders.size());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Program, OfNoPathsIsNull)
{
    EXPECT_EQ(nullptr, Load("", ""));
    EXPECT_EQ(1u, boxes.size());
    ExpectBox(0, "No Programs for Shader defined!", "");
    EXPECT_FALSE(QuitWasPosted());
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(Program, ReportsAMissingFileAndPostsQuitButBuildsTheRest)
{
    ASSERT_NE(nullptr, Load("data/no.vp", "data/f.fp"));
    EXPECT_EQ(1u, boxes.size());
    ExpectBox(0, "File Not Found!", PathOf("no.vp"));
    EXPECT_TRUE(QuitWasPosted());
    EXPECT_EQ("fragment source", gl::FindProgram(1)->fragmentSource);

    ASSERT_NE(nullptr, Load("data/v.vp", "data/no.fp"));
    EXPECT_EQ(2u, boxes.size());
    ExpectBox(1, "File Not Found!", PathOf("no.fp"));
    EXPECT_TRUE(QuitWasPosted());
}

TEST_F(Program, OfTwoMissingFilesIsNullAfterThreeReports)
{
    EXPECT_EQ(nullptr, Load("data/no.vp", "data/no.fp"));
    EXPECT_EQ(3u, boxes.size());
    ExpectBox(0, "File Not Found!", PathOf("no.vp"));
    ExpectBox(1, "File Not Found!", PathOf("no.fp"));
    ExpectBox(2, "No Programs for Shader defined!", "");
    EXPECT_TRUE(QuitWasPosted());
}

TEST_F(Program, StopsBuildingAtAVertexStageThatDoesNotCompile)
{
    gl::FailCompile(GL_VERTEX_SHADER, "vertex log");
    ASSERT_NE(nullptr, Load("data/v.vp", "data/f.fp"));
    EXPECT_EQ(1u, boxes.size());
    ExpectBox(0, "Error", "vertex log");
    EXPECT_FALSE(QuitWasPosted());
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {
                                              "glCreateProgramObjectARB()",
                                              "glCreateShaderObjectARB(GL_VERTEX_SHADER)",
                                              "glShaderSourceARB(2, 1)",
                                              "glCompileShaderARB(2)",
                                              "glGetObjectParameterivARB(2, GL_COMPILE_STATUS)",
                                              "glGetInfoLogARB(2, 4096)",
                                          }));
    EXPECT_EQ(1u, program->program);
}

TEST_F(Program, StopsBuildingAtAFragmentStageThatDoesNotCompile)
{
    gl::FailCompile(GL_FRAGMENT_SHADER, "fragment log");
    ASSERT_NE(nullptr, Load("data/v.vp", "data/f.fp"));
    EXPECT_EQ(1u, boxes.size());
    ExpectBox(0, "Error", "fragment log");
    EXPECT_EQ(
        (Texts{"glAttachObjectARB(1, 2)", "glGetInfoLogARB(3, 4096)"}),
        gl::CallsNamed({"glAttachObjectARB", "glGetInfoLogARB", "glLinkProgramARB", "glDeleteObjectARB"}));
}

TEST_F(Program, ThatDoesNotLinkIsDeletedWithItsStagesAndKeepsItsHandle)
{
    gl::FailLink("link log");
    ASSERT_NE(nullptr, Load("data/v.vp", "data/f.fp"));
    EXPECT_EQ(1u, boxes.size());
    ExpectBox(0, "Error", "link log");
    EXPECT_FALSE(QuitWasPosted());
    const Texts calls = gl::Calls();
    ASSERT_LT(11u, calls.size());
    EXPECT_EQ((Texts{"glLinkProgramARB(1)", "glGetObjectParameterivARB(1, GL_LINK_STATUS)",
                     "glGetInfoLogARB(1, 4096)", "glDeleteObjectARB(1)", "glDeleteObjectARB(2)",
                     "glDeleteObjectARB(3)"}),
              Texts(calls.begin() + 11, calls.end()));
    EXPECT_EQ(1u, program->program);
    EXPECT_EQ(nullptr, gl::FindProgram(1));
}

TEST_F(Program, ThatDoesNotLinkDeletesOnlyTheStagesThatExist)
{
    gl::FailLink("link log");
    ASSERT_NE(nullptr, Load("", "data/f.fp"));
    EXPECT_EQ((Texts{"glDeleteObjectARB(1)", "glDeleteObjectARB(2)"}), gl::CallsNamed({"glDeleteObjectARB"}));
    program.reset();
    gl::Reset();
    gl::FailLink("link log");
    ASSERT_NE(nullptr, Load("data/v.vp", ""));
    EXPECT_EQ((Texts{"glDeleteObjectARB(1)", "glDeleteObjectARB(2)"}), gl::CallsNamed({"glDeleteObjectARB"}));
}

TEST_F(Program, CountsAsNotLinkedWhereGlGivesNone)
{
    gl::RefusePrograms();
    ASSERT_NE(nullptr, Load("data/v.vp", "data/f.fp"));
    EXPECT_EQ(1u, boxes.size());
    ExpectBox(0, "Error", "");
    EXPECT_EQ(0u, program->program);
}

TEST_F(Program, CutsALogAt4096Bytes)
{
    gl::FailCompile(GL_VERTEX_SHADER, std::string(9000, 'x'));
    Load("data/v.vp", "");
    ExpectBox(0, "Error", std::string(4095, 'x'));
}

TEST_F(Program, ReadsAFileWholeUpToItsFirstZeroByte)
{
    std::string source = "\xFF\x1A";
    while (source.size() < 300000)
        source += "a long line\n";
    AddFile("long.vp", source);
    Load("data/long.vp", "");
    EXPECT_EQ(source, gl::FindProgram(1)->vertexSource);

    AddFile("zero.vp", std::string("seen\0unseen", 11));
    program.reset();
    gl::Reset();
    Load("data/zero.vp", "");
    EXPECT_EQ("seen", gl::FindProgram(1)->vertexSource);
}

TEST_F(Program, TakesAnEmptyFileForASource)
{
    AddFile("empty.vp", "");
    ASSERT_NE(nullptr, Load("data/empty.vp", ""));
    EXPECT_EQ(1, gl::CountCalls("glCreateShaderObjectARB"));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Program, ReportsWhatIsNoFileLikeAMissingOneAndEndsTheRun)
{
    for (const OddFile& odd : OddFiles()) {
        boxes.clear();
        odd.make(PathOf("odd.vp"));
        EXPECT_NE(nullptr, Load("data/odd.vp", "data/f.fp")) << odd.name << ": the fragment stage is there";
        ASSERT_EQ(1u, boxes.size()) << odd.name;
        EXPECT_EQ("Marlinex 1.5 Error: File Not Found!", boxes[0].caption);
        EXPECT_EQ("Bad: " + PathOf("odd.vp") + ErrorTail, boxes[0].body);
        EXPECT_TRUE(QuitWasPosted());
        remove(PathOf("odd.vp").c_str());
    }
}

TEST_F(Program, StopsReadingAtAMebibyte)
{
    AddFile("huge.vp", std::string((1 << 20) + 5, 'x'));
    Load("data/huge.vp", "");
    EXPECT_EQ(1u << 20, gl::FindProgram(1)->vertexSource.size());
}

TEST_F(Program, MayHaveFilesOutsideTheDataDirectory)
{
    EXPECT_NE(nullptr, Load(PathOf("v.vp"), "Data\\f.fp"));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Program, IsBoundWithoutKeepingCount)
{
    Load("data/v.vp", "data/f.fp");
    gl::ClearRecords();
    program->Bind();
    program->Bind();
    program->Unbind();
    program->Unbind();
    ShaderProgram::Unbind();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glUseProgramObjectARB(1)", "glUseProgramObjectARB(1)",
                                           "glUseProgramObjectARB(0)", "glUseProgramObjectARB(0)",
                                           "glUseProgramObjectARB(0)"}));
}

TEST_F(Program, ThatIsNullBindsTheFixedPipeline)
{
    Load("data/v.vp", "data/f.fp");
    gl::ClearRecords();
    BindProgram(program.get());
    BindProgram(nullptr);
    UnbindProgram();
    EXPECT_TRUE(gl::CallsAre(
        gl::Calls(), {"glUseProgramObjectARB(1)", "glUseProgramObjectARB(0)", "glUseProgramObjectARB(0)"}));
}

TEST_F(Program, IsDeletedWithItsObject)
{
    Load("data/v.vp", "data/f.fp");
    gl::ClearRecords();
    program.reset();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glDeleteObjectARB(1)"}));
}

TEST_F(Program, MayBeBuiltFromSourcesInMemory)
{
    program.reset(new ShaderProgram("one", "two"));
    EXPECT_EQ("one", gl::FindProgram(1)->vertexSource);
    EXPECT_EQ("two", gl::FindProgram(1)->fragmentSource);
}

TEST_F(Program, OfNoSourcesIsLinkedEmpty)
{
    program.reset(new ShaderProgram(nullptr, nullptr));
    EXPECT_EQ(1, gl::CountCalls("glLinkProgramARB"));
    EXPECT_EQ(0, gl::CountCalls("glCreateShaderObjectARB"));
}

// ---- Its parameters

class ProgramParams : public Program
{
protected:
    ProgramParams()
    {
        Load("data/v.vp", "data/f.fp");
        program->Bind();
        gl::ClearRecords();
    }

    const float values[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const int numbers[16] = {1, 2, 3, 4};
};

TEST_F(ProgramParams, AskForTheirLocationAtConstruction)
{
    const ShaderFloatParam number(program.get(), "number");
    const ShaderIntParam whole(program.get(), "whole");
    const ShaderMatrixParam matrix(program.get(), "matrix");
    const ShaderSampler sampler(program.get(), "sampler");
    EXPECT_TRUE(gl::CallsAre(
        gl::Calls(), {"glGetUniformLocationARB(1, \"number\")", "glGetUniformLocationARB(1, \"whole\")",
                      "glGetUniformLocationARB(1, \"matrix\")", "glGetUniformLocationARB(1, \"sampler\")"}));
    EXPECT_EQ(1000, number.location);
    EXPECT_EQ(1001, whole.location);
    EXPECT_EQ(1002, matrix.location);
    EXPECT_EQ(1003, sampler.location);
    EXPECT_EQ(0, number.size);
    EXPECT_EQ(0, whole.size);
    EXPECT_EQ(0, matrix.rows);
    EXPECT_EQ(0, matrix.columns);
}

TEST_F(ProgramParams, OfFloatsGiveTheCountToGlAsItIs)
{
    const char* const expected[] = {
        "glUniform1fv(\"x\", 1, {1})",
        "glUniform2fv(\"x\", 2, {1, 2})",
        "glUniform3fv(\"x\", 3, {1, 2, 3})",
        "glUniform4fv(\"x\", 4, {1, 2, 3, 4})",
    };
    ShaderFloatParam number(program.get(), "x");
    for (int count = 1; count <= 4; count++) {
        gl::ClearRecords();
        number.Set(values, count);
        EXPECT_EQ(count, number.size);
        EXPECT_TRUE(gl::CallsAre(gl::Calls(), {expected[count - 1]}));
    }
}

TEST_F(ProgramParams, OfIntsGiveTheCountToGlAsItIs)
{
    const char* const expected[] = {
        "glUniform1iv(\"x\", 1, {1})",
        "glUniform2iv(\"x\", 2, {1, 2})",
        "glUniform3iv(\"x\", 3, {1, 2, 3})",
        "glUniform4iv(\"x\", 4, {1, 2, 3, 4})",
    };
    ShaderIntParam whole(program.get(), "x");
    for (int count = 1; count <= 4; count++) {
        gl::ClearRecords();
        whole.Set(numbers, count);
        EXPECT_EQ(count, whole.size);
        EXPECT_TRUE(gl::CallsAre(gl::Calls(), {expected[count - 1]}));
    }
}

TEST_F(ProgramParams, OfAnotherCountRememberItAndSetNothing)
{
    ShaderFloatParam number(program.get(), "x");
    ShaderIntParam whole(program.get(), "x");
    gl::ClearRecords();
    for (int count : {0, 5, -1}) {
        number.Set(values, count);
        whole.Set(numbers, count);
        EXPECT_EQ(count, number.size);
        EXPECT_EQ(count, whole.size);
    }
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(ProgramParams, OfMatricesGiveTheSizeToGlAsTheCount)
{
    const char* const expected[] = {
        "glUniformMatrix2fv(\"m\", 2, GL_FALSE, {1, 2, 3, 4})",
        "glUniformMatrix3fv(\"m\", 3, GL_FALSE, {1, 2, 3, 4, 5, 6, 7, 8, 9})",
        "glUniformMatrix4fv(\"m\", 4, GL_FALSE, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16})",
    };
    ShaderMatrixParam matrix(program.get(), "m");
    for (int size = 2; size <= 4; size++) {
        gl::ClearRecords();
        matrix.Set(values, size);
        EXPECT_EQ(size, matrix.rows);
        EXPECT_EQ(size, matrix.columns);
        EXPECT_TRUE(gl::CallsAre(gl::Calls(), {expected[size - 2]}));
    }
    gl::ClearRecords();
    for (int size : {1, 5, 0}) {
        matrix.Set(values, size);
        EXPECT_EQ(size, matrix.rows);
        EXPECT_EQ(size, matrix.columns);
    }
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(ProgramParams, AreNotSetToNull)
{
    ShaderFloatParam number(program.get(), "x");
    ShaderIntParam whole(program.get(), "x");
    ShaderMatrixParam matrix(program.get(), "x");
    gl::ClearRecords();
    number.Set(nullptr, 1);
    whole.Set(nullptr, 1);
    matrix.Set(nullptr, 2);
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_EQ(0, number.size);
    EXPECT_EQ(0, whole.size);
    EXPECT_EQ(0, matrix.rows);
    EXPECT_EQ(0, matrix.columns);
}

TEST_F(ProgramParams, OfSamplersTakeTheUnitAsANumber)
{
    ShaderSampler sampler(program.get(), "sampler1");
    gl::ClearRecords();
    sampler.Set(1);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glUniform1i(\"sampler1\", 1)"}));
}

TEST_F(ProgramParams, OfNoProgramHaveALocationThatGlIgnores)
{
    ShaderFloatParam number(nullptr, "x");
    ShaderSampler sampler(nullptr, "x");
    EXPECT_EQ(-1, number.location);
    EXPECT_EQ(-1, sampler.location);
    number.Set(values, 1);
    sampler.Set(2);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glUniform1fv(-1, 1, {1})", "glUniform1i(-1, 2)"}));
    EXPECT_TRUE(gl::NoErrors());
}
