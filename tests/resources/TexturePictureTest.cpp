// SPDX-License-Identifier: MIT
// Textures as GL really holds and shows them.
#include "resources/TextureLoader.h"

#include "platform/Events.h"
#include "tests/support/PictureKinds.h"
#include "tests/support/picture/PictureFixture.h"

#include <GL/glu.h>

typedef std::vector<unsigned char> Bytes;

class ShownTexture : public PictureFixture
{
protected:
    ShownTexture() { UseOwnData(); }

    static Bytes PixelsInGl(const Texture* texture, GLenum format, int components)
    {
        GLint wide = 0, high = 0;
        glBindTexture(GL_TEXTURE_2D, texture->id);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &wide);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &high);
        Bytes pixels(size_t(wide) * size_t(high) * size_t(components));
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glGetTexImage(GL_TEXTURE_2D, 0, format, GL_UNSIGNED_BYTE, pixels.data());
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        return pixels;
    }

    static void DrawOverWindow()
    {
        glClear(GL_COLOR_BUFFER_BIT);
        glColor3f(1, 1, 1);
        DrawWindowQuad();
    }
};

TEST_F(ShownTexture, HoldsEveryPixelWhateverTheSidesOfThePicture)
{
    ASSERT_TRUE(Open(64, 64));
    for (int across = 1; across <= 9; across++)
        for (PngColour colour : {PngRgb, PngRgba}) {
            const int components = colour == PngRgb ? 3 : 4;
            const std::string name = std::to_string(across) + "x" + std::to_string(components) + ".png";
            RawPng png;
            png.width = across;
            png.height = 5;
            png.colour = colour;
            png.bytes = PatternBytes(across, 5, components);
            SaveRawPng(PathOf(name), png);
            Texture* const texture = TextureLoader::GetInstance()->GetTexture(name, false, false, false);
            ASSERT_NE(nullptr, texture);
            EXPECT_EQ(components, texture->components);
            EXPECT_EQ(png.bytes, PixelsInGl(texture, colour == PngRgb ? GL_RGB : GL_RGBA, components))
                << name;
        }
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(ShownTexture, ShowsTheTopRowOfThePictureAtTZero)
{
    ASSERT_TRUE(Open(64, 48));
    const Picture slope = SlopePicture(64, 48);
    AddPicture("slope.png", slope);
    Texture* const texture = TextureLoader::GetInstance()->GetTexture("slope.png", false, false, false);
    ASSERT_NE(nullptr, texture);
    texture->Bind();
    DrawOverWindow();
    EXPECT_EQ(slope.pixels, Grab().pixels);
}

TEST_F(ShownTexture, IsScaledToPowersOfTwoByMipmaps)
{
    ASSERT_TRUE(Open(64, 64));
    AddPicture("odd.png", PlainPicture(33, 21, 3, 50, 100, 150));
    Texture* const texture = TextureLoader::GetInstance()->GetTexture("odd.png", true, true, true);
    ASSERT_NE(nullptr, texture);
    EXPECT_EQ(33, texture->width);
    EXPECT_EQ(21, texture->height);
    const Bytes pixels = PixelsInGl(texture, GL_RGB, 3);
    ASSERT_EQ(32u * 16 * 3, pixels.size());
    for (size_t i = 0; i < pixels.size(); i += 3) {
        ASSERT_NEAR(50, pixels[i], 1) << i;
        ASSERT_NEAR(100, pixels[i + 1], 1) << i;
        ASSERT_NEAR(150, pixels[i + 2], 1) << i;
    }
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(ShownTexture, NeverSamplesItsSmallerLevels)
{
    ASSERT_TRUE(Open(64, 64));
    Picture stripes = PlainPicture(512, 512, 3, 0, 0, 0);
    for (size_t i = 0; i < stripes.pixels.size(); i += 6)
        stripes.pixels[i] = stripes.pixels[i + 1] = stripes.pixels[i + 2] = 255;
    AddPicture("stripes.png", stripes);
    Texture* const texture = TextureLoader::GetInstance()->GetTexture("stripes.png", true, true, false);
    ASSERT_NE(nullptr, texture);
    texture->Bind();
    DrawOverWindow(); // at an eighth of its size, where every smaller level is grey
    for (unsigned char value : Grab().pixels)
        ASSERT_TRUE(value == 0 || value == 255) << int(value);
}

TEST_F(ShownTexture, OfAGreyPictureIsHarmless)
{
    ASSERT_TRUE(Open(64, 64));
    RawPng png;
    png.width = 31;
    png.height = 31;
    png.colour = PngGrey;
    png.bytes = PatternBytes(31, 31, 1);
    SaveRawPng(PathOf("grey.png"), png);
    for (bool mipmap : {false, true}) {
        Texture texture;
        ImageData image = TextureLoader::GetInstance()->LoadImage("grey.png");
        ASSERT_NE(nullptr, image.data);
        EXPECT_TRUE(mipmap ? texture.UploadMipmapped(&image, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT)
                           : texture.Upload(&image, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
        FreeImage(&image);
    }
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(ShownTexture, ThatCouldNotBeHadDrawsThePlainColour)
{
    ASSERT_TRUE(Open(64, 64));
    Texture* const texture = TextureLoader::GetInstance()->GetTexture("missing.jpg", true, true, true);
    EXPECT_EQ(nullptr, texture);
    EXPECT_EQ(1u, boxes.size());
    BindTexture(texture);
    DrawOverWindow();
    EXPECT_EQ(Bytes(64 * 64 * 3, 255), Grab().pixels);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(ShownTexture, IsDeletedAfterTheWindowWithoutHarm)
{
    ASSERT_TRUE(Open(64, 64));
    AddPicture("a.png", 4, 4);
    EXPECT_NE(nullptr, TextureLoader::GetInstance()->GetTexture("a.png", true, true, true));
    platform::PostQuit(0);
    window.PumpMessage();
    window.Destroy();
    TextureLoader::GetInstance()->Shutdown();
}
