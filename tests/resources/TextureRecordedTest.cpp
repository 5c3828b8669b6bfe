// SPDX-License-Identifier: MIT
#include "resources/Texture.h"

#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

typedef std::vector<std::string> Texts;

class SentTexture : public testing::Test
{
protected:
    SentTexture() { gl::Reset(); }

    // A picture whose bytes count upward, in memory of exactly its size.
    ImageData* MakeImage(int width, int height, int components)
    {
        bytes.clear();
        for (int i = 0; i < width * height * components; i++)
            bytes.push_back(static_cast<unsigned char>(i));
        bytes.shrink_to_fit();
        image.data = bytes.data();
        image.width = width;
        image.height = height;
        image.components = components;
        return &image;
    }

    std::vector<unsigned char> bytes;
    ImageData image;
    Texture texture;
};

TEST_F(SentTexture, IsEmptyAtFirst)
{
    EXPECT_EQ(0, texture.components);
    EXPECT_EQ(0u, texture.id);
    EXPECT_EQ(0, texture.width);
    EXPECT_EQ(0, texture.height);
}

TEST_F(SentTexture, OfThreeComponentsGoesUpInOneLevelWithItsParametersFirst)
{
    EXPECT_TRUE(texture.Upload(MakeImage(4, 2, 3), GL_LINEAR, GL_NEAREST, GL_REPEAT, GL_CLAMP_TO_EDGE));
    EXPECT_TRUE(gl::CallsAre(gl::Calls(),
                             {
                                 "glEnable(GL_TEXTURE_2D)",
                                 "glGenTextures(1)",
                                 "glBindTexture(GL_TEXTURE_2D, 1)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE)",
                                 "glTexImage2D(GL_TEXTURE_2D, 0, 3, 4, 2, 0, GL_RGB, GL_UNSIGNED_BYTE, data)",
                                 "glDisable(GL_TEXTURE_2D)",
                             }));
    EXPECT_EQ(1u, texture.id);
    EXPECT_EQ(3, texture.components);
    EXPECT_EQ(4, texture.width);
    EXPECT_EQ(2, texture.height);
    EXPECT_EQ(bytes, gl::FindTexture(1)->levels.at(0).pixels);
    EXPECT_EQ(1u, gl::FindTexture(1)->levels.size());
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(SentTexture, OfFourComponentsGoesUpAsRgba)
{
    EXPECT_TRUE(texture.Upload(MakeImage(3, 5, 4), GL_NEAREST, GL_LINEAR, GL_CLAMP_TO_EDGE, GL_REPEAT));
    EXPECT_TRUE(gl::CallsAre(
        gl::Calls(), {
                         "glEnable(GL_TEXTURE_2D)",
                         "glGenTextures(1)",
                         "glBindTexture(GL_TEXTURE_2D, 1)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT)",
                         "glTexImage2D(GL_TEXTURE_2D, 0, 4, 3, 5, 0, GL_RGBA, GL_UNSIGNED_BYTE, data)",
                         "glDisable(GL_TEXTURE_2D)",
                     }));
    EXPECT_EQ(4, texture.components);
    EXPECT_EQ(bytes, gl::FindTexture(1)->levels.at(0).pixels);
}

// The rows of the smallest levels are GLU's own, without padding. The filter for mipmaps is there for the
// upload only: with it a driver takes memory for all levels once.
TEST_F(SentTexture, WithMipmapsDiffersInTheUploadAndTheCareForRowsAndMemoryAlone)
{
    EXPECT_TRUE(
        texture.UploadMipmapped(MakeImage(4, 2, 3), GL_LINEAR, GL_NEAREST, GL_REPEAT, GL_CLAMP_TO_EDGE));
    EXPECT_TRUE(gl::CallsAre(gl::Calls(),
                             {
                                 "glEnable(GL_TEXTURE_2D)",
                                 "glGenTextures(1)",
                                 "glBindTexture(GL_TEXTURE_2D, 1)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE)",
                                 "glPixelStorei(GL_UNPACK_ALIGNMENT, 1)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, "
                                 "GL_NEAREST_MIPMAP_NEAREST)",
                                 "gluBuild2DMipmaps(GL_TEXTURE_2D, 3, 4, 2, GL_RGB, GL_UNSIGNED_BYTE, data)",
                                 "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
                                 "glPixelStorei(GL_UNPACK_ALIGNMENT, 4)",
                                 "glDisable(GL_TEXTURE_2D)",
                             }));
    EXPECT_EQ(3, texture.components);
    EXPECT_EQ(4, texture.width);
    EXPECT_EQ(2, texture.height);
    EXPECT_EQ(3u, gl::FindTexture(1)->levels.size()); // 4, 2 and 1 wide
}

TEST_F(SentTexture, OfFourComponentsWithMipmapsIsRgba)
{
    EXPECT_TRUE(texture.UploadMipmapped(MakeImage(2, 2, 4), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
    EXPECT_EQ(Texts{"gluBuild2DMipmaps(GL_TEXTURE_2D, 4, 2, 2, GL_RGBA, GL_UNSIGNED_BYTE, data)"},
              gl::CallsNamed({"gluBuild2DMipmaps", "glTexImage2D", "glPixelStorei"}));
}

TEST_F(SentTexture, KeepsItsOwnSidesWhereGluScalesThem)
{
    EXPECT_TRUE(texture.UploadMipmapped(MakeImage(5, 3, 4), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
    EXPECT_EQ(5, texture.width);
    EXPECT_EQ(3, texture.height);
    EXPECT_EQ(4, gl::FindTexture(1)->levels.at(0).width);
    EXPECT_EQ(4, gl::FindTexture(1)->levels.at(0).height);
}

TEST_F(SentTexture, OfOnePixelNeedsNoSpecialTreatment)
{
    for (int components : {3, 4}) {
        gl::ClearRecords();
        EXPECT_TRUE(texture.Upload(MakeImage(1, 1, components), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
        EXPECT_EQ(Texts{std::string("glTexImage2D(GL_TEXTURE_2D, 0, ") + (components == 3 ? "3" : "4") +
                        ", 1, 1, 0, " + (components == 3 ? "GL_RGB" : "GL_RGBA") +
                        ", GL_UNSIGNED_BYTE, data)"},
                  gl::CallsNamed({"glTexImage2D", "glPixelStorei"}));
        EXPECT_EQ(bytes, gl::FindTexture(texture.id)->levels.at(0).pixels);
    }
}

TEST_F(SentTexture, WhoseRowsAreNoMultipleOfFourBytesIsNeitherShearedNorReadPastItsEnd)
{
    for (bool mipmapped : {false, true}) {
        gl::Reset();
        MakeImage(2, 4, 3); // rows of 6 bytes
        const bool sent = mipmapped
                              ? texture.UploadMipmapped(&image, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT)
                              : texture.Upload(&image, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT);
        EXPECT_TRUE(sent);
        const Texts calls =
            gl::CallsNamed({"glPixelStorei", "glTexImage2D", "gluBuild2DMipmaps", "glDisable"});
        ASSERT_EQ(4u, calls.size());
        EXPECT_EQ("glPixelStorei(GL_UNPACK_ALIGNMENT, 1)", calls[0]);
        EXPECT_EQ("glPixelStorei(GL_UNPACK_ALIGNMENT, 4)", calls[2]);
        EXPECT_EQ(bytes, gl::FindTexture(1)->levels.at(0).pixels);
    }
}

TEST_F(SentTexture, OfTwoRowsNeedsTheCareAndOfOneRowDoesNot)
{
    for (int rows : {1, 2}) {
        gl::Reset();
        EXPECT_TRUE(texture.Upload(MakeImage(1, rows, 3), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
        EXPECT_EQ(rows == 1 ? 0 : 2, gl::CountCalls("glPixelStorei")) << rows;
        EXPECT_EQ(bytes, gl::FindTexture(1)->levels.at(0).pixels) << rows;
    }
}

TEST_F(SentTexture, OfOtherComponentsIsMadeWithoutALevel)
{
    for (int components : {1, 2, 5}) {
        gl::Reset();
        EXPECT_TRUE(texture.Upload(MakeImage(4, 4, components), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
        EXPECT_TRUE(
            texture.UploadMipmapped(MakeImage(3, 3, components), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
        EXPECT_EQ(0, gl::CountCalls("glTexImage2D") + gl::CountCalls("gluBuild2DMipmaps") +
                         gl::CountCalls("glPixelStorei"));
        EXPECT_EQ(2u, texture.id);
        EXPECT_EQ(components, texture.components);
        EXPECT_EQ(3, texture.width);
        EXPECT_FALSE(gl::Now().units[0].texture2D);
    }
}

TEST_F(SentTexture, WithoutDataIsNotMade)
{
    ImageData empty;
    EXPECT_FALSE(texture.Upload(&empty, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
    EXPECT_FALSE(texture.UploadMipmapped(&empty, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
    EXPECT_FALSE(texture.Upload(nullptr, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_EQ(0u, texture.id);
}

TEST_F(SentTexture, StaysBoundButIsDisabledAndBindEnablesItAgain)
{
    texture.Upload(MakeImage(4, 4, 3), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT);
    EXPECT_FALSE(gl::Now().units[0].texture2D);
    EXPECT_EQ(1u, gl::Now().units[0].bound);
    gl::ClearRecords();
    texture.Bind();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glEnable(GL_TEXTURE_2D)", "glBindTexture(GL_TEXTURE_2D, 1)"}));
    gl::ClearRecords();
    texture.Unbind();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glBindTexture(GL_TEXTURE_2D, 0)"}));
    EXPECT_TRUE(gl::Now().units[0].texture2D);
}

TEST_F(SentTexture, IsGivenBackToGl)
{
    texture.Upload(MakeImage(4, 4, 3), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT);
    gl::ClearRecords();
    texture.Delete();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glDeleteTextures(1, {1})"}));
    EXPECT_TRUE(gl::Textures().empty());
}

TEST_F(SentTexture, ThatIsNullBindsNoTexture)
{
    texture.Upload(MakeImage(4, 4, 3), GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT);
    gl::ClearRecords();
    BindTexture(&texture);
    BindTexture(nullptr);
    UnbindTexture();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glEnable(GL_TEXTURE_2D)", "glBindTexture(GL_TEXTURE_2D, 1)",
                                           "glEnable(GL_TEXTURE_2D)", "glBindTexture(GL_TEXTURE_2D, 0)",
                                           "glBindTexture(GL_TEXTURE_2D, 0)"}));
}
