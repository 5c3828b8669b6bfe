// SPDX-License-Identifier: MIT
// Textures, lists, arrays, buffers, shaders and framebuffers of the recorder's GL.
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <GL/glu.h>

class GLObjects : public testing::Test
{
protected:
    GLObjects() { gl::Reset(800, 600); }

    static void DrawPoint()
    {
        glBegin(GL_POINTS);
        glVertex3f(1, 2, 3);
        glEnd();
    }

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
};

// ---- Textures

TEST_F(GLObjects, ATextureKeepsItsParametersAndPixels)
{
    GLuint id;
    glGenTextures(1, &id);
    EXPECT_EQ(1u, id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    const unsigned char pixels[] = {1, 2, 3, 4, 5, 6, 7, 8};
    glTexImage2D(GL_TEXTURE_2D, 0, 4, 2, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels);
    const gl::TextureObject* const texture = gl::FindTexture(id);
    ASSERT_NE(nullptr, texture);
    EXPECT_EQ(GL_LINEAR, texture->minFilter);
    EXPECT_EQ(GL_NEAREST, texture->magFilter);
    EXPECT_EQ(GL_REPEAT, texture->wrapS);
    EXPECT_EQ(GL_CLAMP_TO_EDGE, texture->wrapT);
    EXPECT_FALSE(texture->builtByGlu);
    ASSERT_EQ(1u, texture->levels.size());
    const gl::TextureLevel& level = texture->levels.at(0);
    EXPECT_EQ(2, level.width);
    EXPECT_EQ(1, level.height);
    EXPECT_EQ(4, level.internalFormat);
    EXPECT_EQ(GLenum(GL_RGBA), level.format);
    EXPECT_EQ(std::vector<unsigned char>(pixels, pixels + 8), level.pixels);
    EXPECT_TRUE(gl::CallsContain(
        gl::Calls(), {"glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE)",
                      "glTexImage2D(GL_TEXTURE_2D, 0, 4, 2, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, data)"}));
    EXPECT_EQ(1u, gl::Textures().size());
}

TEST_F(GLObjects, RowsAreReadWithThePaddingThatGLExpects)
{
    // One pixel of 3 bytes a row: GL reads every row from a multiple of 4 unless it is told otherwise.
    const unsigned char pixels[] = {1, 2, 3, 0, 4, 5, 6};
    GLuint id;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, 1, 2, 0, GL_RGB, GL_UNSIGNED_BYTE, pixels);
    EXPECT_EQ((std::vector<unsigned char>{1, 2, 3, 4, 5, 6}), gl::FindTexture(id)->levels.at(0).pixels);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, 1, 2, 0, GL_RGB, GL_UNSIGNED_BYTE, pixels);
    EXPECT_EQ((std::vector<unsigned char>{1, 2, 3, 0, 4, 5}), gl::FindTexture(id)->levels.at(0).pixels);
}

TEST_F(GLObjects, MipmapsOfGLUAreBuiltFromPowersOfTwo)
{
    GLuint id;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    const std::vector<unsigned char> pixels(4 * 5 * 3, 200);
    EXPECT_EQ(0, gluBuild2DMipmaps(GL_TEXTURE_2D, 4, 5, 3, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data()));
    const gl::TextureObject* const texture = gl::FindTexture(id);
    EXPECT_TRUE(texture->builtByGlu);
    EXPECT_EQ(5, texture->givenWidth);
    EXPECT_EQ(3, texture->givenHeight);
    EXPECT_EQ(4, texture->givenComponents);
    EXPECT_EQ(4, texture->levels.at(0).width);
    EXPECT_EQ(4, texture->levels.at(0).height);
    EXPECT_EQ(2, texture->levels.at(1).width);
    EXPECT_EQ(1, texture->levels.at(2).width);
    EXPECT_EQ(3u, texture->levels.size());
    EXPECT_EQ(200, texture->levels.at(2).pixels.at(0));
    EXPECT_EQ("gluBuild2DMipmaps(GL_TEXTURE_2D, 4, 5, 3, GL_RGBA, GL_UNSIGNED_BYTE, data)",
              gl::Calls().back());
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLObjects, UnitsBindOnTheirOwn)
{
    GLuint ids[2];
    glGenTextures(2, ids);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, ids[0]);
    glActiveTexture(GL_TEXTURE1);
    glBindTexture(GL_TEXTURE_2D, ids[1]);
    DrawPoint();
    const gl::Draw& draw = gl::Draws().at(0);
    EXPECT_EQ(ids[0], draw.Texture());
    EXPECT_EQ(0u, draw.Texture(1)) << "bound, but not enabled";
    EXPECT_EQ(ids[1], draw.state->units[1].bound);
}

TEST_F(GLObjects, ADeletedTextureIsUnbound)
{
    GLuint id;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    EXPECT_TRUE(glIsTexture(id));
    glDeleteTextures(1, &id);
    EXPECT_FALSE(glIsTexture(id));
    EXPECT_EQ(nullptr, gl::FindTexture(id));
    EXPECT_EQ(0u, gl::Now().units[0].bound);
}

TEST_F(GLObjects, ATextureBearsTheNameOfThePictureThatWasDecodedForIt)
{
    GLuint id;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    EXPECT_EQ("texture 1", gl::TextureLabel(id));
    gl::ExpectPicture("some/where\\foto.png");
    glTexImage2D(GL_TEXTURE_2D, 0, 4, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    EXPECT_EQ("foto.png", gl::TextureLabel(id));
    EXPECT_EQ(id, gl::TextureNamed("foto.png"));
    EXPECT_EQ(0u, gl::TextureNamed("other.png"));
}

TEST_F(GLObjects, ATextureWithImpossibleSidesIsRefused)
{
    GLuint id;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexImage2D(GL_TEXTURE_2D, 0, 4, -1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glTexImage2D(GL_TEXTURE_2D, 0, 4, 8193, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_VALUE, GL_INVALID_VALUE}));
    EXPECT_TRUE(gl::FindTexture(id)->levels.empty());
}

// ---- Display lists

TEST_F(GLObjects, ACompiledListDrawsWhenItIsCalled)
{
    const GLuint list = glGenLists(2);
    EXPECT_EQ(1u, list);
    glNewList(list, GL_COMPILE);
    glColor3f(1, 0, 0);
    DrawPoint();
    glEndList();
    EXPECT_TRUE(gl::Draws().empty());
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 1, 1})) << "compiling changes nothing";
    EXPECT_TRUE(gl::CallsAre(gl::ListCalls(list),
                             {"glColor3f(1, 0, 0)", "glBegin(GL_POINTS)", "glVertex3f(1, 2, 3)", "glEnd()"}));

    glTranslatef(10, 0, 0);
    gl::ClearRecords();
    glCallList(list);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_EQ(list, gl::Draws()[0].list);
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws()[0], {{11, 2, 3}}, 0));
    EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {1, 0, 0}));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 0, 0}));
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glCallList(1)"}));
    EXPECT_EQ(5u, gl::Events().size()) << "what the list did is nested";
}

TEST_F(GLObjects, CompileAndExecuteDoesBoth)
{
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE_AND_EXECUTE);
    DrawPoint();
    glEndList();
    EXPECT_EQ(1u, gl::Draws().size());
    glCallList(list);
    EXPECT_EQ(2u, gl::Draws().size());
}

TEST_F(GLObjects, AListThatCallsAListTakesItAsItIsThen)
{
    const GLuint inner = glGenLists(2), outer = inner + 1;
    glNewList(outer, GL_COMPILE);
    glCallList(inner);
    glEndList();
    glNewList(inner, GL_COMPILE);
    DrawPoint();
    glEndList();
    glCallList(outer);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_EQ(outer, gl::Draws()[0].list) << "the one that the program called";
    glNewList(inner, GL_COMPILE);
    DrawPoint();
    DrawPoint();
    glEndList();
    glCallList(outer);
    EXPECT_EQ(3u, gl::Draws().size());
}

TEST_F(GLObjects, AListThatCallsItselfEnds)
{
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    DrawPoint();
    glCallList(list);
    glEndList();
    glCallList(list);
    EXPECT_EQ(64u, gl::Draws().size());
}

TEST_F(GLObjects, QueriesAndNamesAreNotCompiled)
{
    const GLuint list = glGenLists(1);
    glTranslatef(7, 0, 0);
    glNewList(list, GL_COMPILE);
    glTranslatef(5, 0, 0);
    float m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glEndList();
    EXPECT_EQ(7, m[12]);
    EXPECT_EQ(1u, texture);
    EXPECT_TRUE(gl::CallsAre(gl::ListCalls(list), {"glTranslatef(5, 0, 0)"}));
}

TEST_F(GLObjects, ListsThatAreNotThereOrNotClosedAreHandled)
{
    glCallList(99); // ignored
    EXPECT_TRUE(gl::NoErrors());
    glEndList();
    glNewList(0, GL_COMPILE);
    glNewList(1, GL_BLEND);
    glNewList(1, GL_COMPILE);
    glNewList(2, GL_COMPILE);
    glEndList();
    EXPECT_TRUE(
        gl::OnlyErrors({GL_INVALID_OPERATION, GL_INVALID_VALUE, GL_INVALID_ENUM, GL_INVALID_OPERATION}));
    EXPECT_TRUE(gl::IsDisplayList(1));
    EXPECT_FALSE(gl::IsDisplayList(2));
    glDeleteLists(1, 1);
    EXPECT_FALSE(glIsList(1));
}

TEST_F(GLObjects, APerspectiveOfGLUGoesIntoAList)
{
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    gluPerspective(90, 1, 1, 3);
    glEndList();
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity(), 0));
    glCallList(list);
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Perspective(90, 1, 1, 3), 1e-7));
}

// ---- Arrays

TEST_F(GLObjects, AnArrayOfWhatIsNoNumberIsAnErrorAndChangesNothing)
{
    const float positions[] = {1, 2, 3};
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, positions);
    for (const GLenum type : {GL_2_BYTES, GL_4_BYTES, GL_BITMAP, GL_POINTS})
        glVertexPointer(2, type, 0, nullptr);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_ENUM, GL_INVALID_ENUM, GL_INVALID_ENUM, GL_INVALID_ENUM}));
    glDrawArrays(GL_POINTS, 0, 1);
    EXPECT_TRUE(gl::HasVertices(gl::Draws().at(0), {{1, 2, 3}}));
}

TEST_F(GLObjects, ArraysFromMemoryBecomeVertices)
{
    const float positions[] = {0, 0, 0, 1, 0, 0, 1, 1, 0};
    const float normals[] = {0, 0, 1, 0, 1, 0, 1, 0, 0};
    const GLubyte colours[] = {255, 0, 0, 51, 0, 255, 0, 51, 0, 0, 255, 51};
    const float texCoords[] = {0, 0, 0.5f, 0, 1, 1};
    const GLuint indices[] = {2, 0, 1};
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, positions);
    glEnableClientState(GL_NORMAL_ARRAY);
    glNormalPointer(GL_FLOAT, 12, normals);
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, colours);
    glClientActiveTexture(GL_TEXTURE1);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexCoordPointer(2, GL_FLOAT, 0, texCoords);
    glDrawElements(GL_TRIANGLES, 3, GL_UNSIGNED_INT, indices);
    const gl::Draw& draw = gl::Draws().at(0);
    EXPECT_TRUE(draw.indexed);
    EXPECT_TRUE(gl::HasVertices(draw, {{1, 1, 0}, {0, 0, 0}, {1, 0, 0}}));
    EXPECT_TRUE(gl::HasNormals(draw, {{1, 0, 0}, {0, 0, 1}, {0, 1, 0}}));
    EXPECT_TRUE(gl::HasColours(draw, {{0, 0, 1, 0.2}, {1, 0, 0, 0.2}, {0, 1, 0, 0.2}}));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{1, 1}, {0, 0}, {0.5, 0}}, 0, 1));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{0, 0}, {0, 0}, {0, 0}}, 0, 0));
    EXPECT_EQ("glDrawElements(GL_TRIANGLES, 3, GL_UNSIGNED_INT, data)", gl::Calls().back());

    glDrawArrays(GL_POINTS, 1, 2);
    EXPECT_FALSE(gl::Draws().at(1).indexed);
    EXPECT_TRUE(gl::HasVertices(gl::Draws()[1], {{1, 0, 0}, {1, 1, 0}}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLObjects, ArraysFromBuffersBecomeVertices)
{
    const float positions[] = {9, 9, 9, 1, 2, 3};
    GLuint buffer;
    glGenBuffersARB(1, &buffer);
    glBindBufferARB(GL_ARRAY_BUFFER_ARB, buffer);
    glBufferDataARB(GL_ARRAY_BUFFER_ARB, sizeof positions, positions, GL_STATIC_DRAW_ARB);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, reinterpret_cast<void*>(12));
    glBindBufferARB(GL_ARRAY_BUFFER_ARB, 0); // the pointer keeps its buffer
    glDrawArrays(GL_POINTS, 0, 1);
    EXPECT_TRUE(gl::HasVertices(gl::Draws().at(0), {{1, 2, 3}}));
    EXPECT_EQ(24u, gl::BufferBytes(buffer).size());
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glBufferData(GL_ARRAY_BUFFER, 24, data, GL_STATIC_DRAW)",
                                               "glVertexPointer(3, GL_FLOAT, 0, 12)"}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLObjects, AnArrayThatIsNotThereIsAMisuseAndIsNotRead)
{
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    glDrawArrays(GL_POINTS, 0, 3);
    EXPECT_TRUE(gl::OnlyErrors({0}));
    EXPECT_TRUE(gl::Draws().at(0).vertices.empty());

    GLuint buffer;
    glGenBuffersARB(1, &buffer);
    glBindBufferARB(GL_ARRAY_BUFFER_ARB, buffer);
    glBufferDataARB(GL_ARRAY_BUFFER_ARB, 12, nullptr, GL_STATIC_DRAW_ARB);
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    glDrawArrays(GL_POINTS, 0, 2);
    EXPECT_EQ(1u, gl::Draws().at(1).vertices.size());
    EXPECT_TRUE(gl::OnlyErrors({0, 0}));
}

// ---- Shaders

TEST_F(GLObjects, AProgramKeepsItsSources)
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

TEST_F(GLObjects, UniformsBelongToTheProgramInUse)
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

TEST_F(GLObjects, AUniformOfAnotherProgramOrOfSeveralValuesIsRefused)
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

TEST_F(GLObjects, UniformsOfASharedProgramAreSeenInEveryContext)
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

TEST_F(GLObjects, FailuresComeAsTheyAreScripted)
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

TEST_F(GLObjects, TheCompileStatusOfAProgramIsRefusedUnlessScripted)
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

TEST_F(GLObjects, ShadersHaveTheirNewerNamesToo)
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

// ---- Framebuffers

TEST_F(GLObjects, AFramebufferBelongsToOneContext)
{
    GLuint framebuffer, texture;
    gl::SetContext(2);
    glGenFramebuffersEXT(1, &framebuffer);
    glGenTextures(1, &texture);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    EXPECT_EQ(GLenum(GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT), glCheckFramebufferStatus(GL_FRAMEBUFFER));
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    EXPECT_EQ(GLenum(GL_FRAMEBUFFER_COMPLETE), glCheckFramebufferStatus(GL_FRAMEBUFFER));
    DrawPoint();
    EXPECT_EQ(framebuffer, gl::Draws().at(0).state->framebuffer);
    EXPECT_TRUE(gl::NoErrors());
    gl::SetContext(1);
    EXPECT_EQ(0u, gl::Now().framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_OPERATION}));
}
