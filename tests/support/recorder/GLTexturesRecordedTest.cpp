// SPDX-License-Identifier: MIT
// Textures, and framebuffers that draw into them, of the recorder's GL.
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorderFixture.h"

#include <GL/glu.h>

class GLTextures : public GLRecorderFixture
{
};

TEST_F(GLTextures, ATextureKeepsItsParametersAndPixels)
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

TEST_F(GLTextures, RowsAreReadWithThePaddingThatGLExpects)
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

TEST_F(GLTextures, MipmapsOfGLUAreBuiltFromPowersOfTwo)
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

TEST_F(GLTextures, UnitsBindOnTheirOwn)
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

TEST_F(GLTextures, ADeletedTextureIsUnbound)
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

TEST_F(GLTextures, ATextureBearsTheNameOfThePictureThatWasDecodedForIt)
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

TEST_F(GLTextures, ATextureWithImpossibleSidesIsRefused)
{
    GLuint id;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexImage2D(GL_TEXTURE_2D, 0, 4, -1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glTexImage2D(GL_TEXTURE_2D, 0, 4, 8193, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_VALUE, GL_INVALID_VALUE}));
    EXPECT_TRUE(gl::FindTexture(id)->levels.empty());
}

TEST_F(GLTextures, AFramebufferBelongsToOneContext)
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
