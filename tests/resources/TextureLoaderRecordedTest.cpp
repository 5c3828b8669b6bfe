// SPDX-License-Identifier: MIT
#include "resources/TextureLoader.h"

#include "tests/support/BytesInUse.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <filesystem>

class TextureCache : public ShowFixture
{
protected:
    TextureCache() : loader(TextureLoader::GetInstance()) { gl::Reset(); }

    TextureLoader* loader;
};

TEST_F(TextureCache, GivesTheSameTextureForTheSameNameAndReadsTheFileOnce)
{
    AddPicture("a.jpg", 4, 4);
    Texture* const texture = loader->GetTexture("a.jpg", true, true, true);
    ASSERT_NE(nullptr, texture);
    std::filesystem::remove(PathOf("a.jpg"));
    gl::ClearRecords();
    EXPECT_EQ(texture, loader->GetTexture("a.jpg", true, true, true));
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(TextureCache, LetsTheFirstRequestSettleTheFlags)
{
    AddPicture("a.jpg", 4, 4);
    Texture* const texture = loader->GetTexture("a.jpg", true, true, true);
    gl::ClearRecords();
    EXPECT_EQ(texture, loader->GetTexture("a.jpg", false, false, false));
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_EQ(GL_LINEAR, gl::FindTexture(texture->id)->minFilter);
    EXPECT_EQ(GL_REPEAT, gl::FindTexture(texture->id)->wrapS);
}

TEST_F(TextureCache, TellsUpperFromLowerCase)
{
    AddPicture("a.jpg", 4, 4);
    std::filesystem::copy_file(PathOf("a.jpg"), PathOf("A.JPG"));
    Texture* const lower = loader->GetTexture("a.jpg", true, true, true);
    Texture* const upper = loader->GetTexture("A.JPG", true, true, true);
    EXPECT_NE(lower, upper);
    EXPECT_NE(lower->id, upper->id);
    EXPECT_EQ(lower, loader->GetTexture("a.jpg", true, true, true));
    EXPECT_EQ(upper, loader->GetTexture("A.JPG", true, true, true));
}

TEST_F(TextureCache, FindsEveryOneOfManyNames)
{
    std::vector<Texture*> textures;
    for (int i = 0; i < 30; i++) {
        const std::string name = "picture" + std::to_string(i) + ".png";
        AddPicture(name, i + 1, 1);
        textures.push_back(loader->GetTexture(name, false, true, true));
    }
    for (int i = 0; i < 30; i++) {
        EXPECT_EQ(textures[size_t(i)],
                  loader->GetTexture("picture" + std::to_string(i) + ".png", false, true, true));
        EXPECT_EQ(i + 1, textures[size_t(i)]->width);
    }
}

TEST_F(TextureCache, TurnsEachFlagIntoItsParameters)
{
    for (int flags = 0; flags < 8; flags++) {
        const bool mipmap = flags & 1, repeat = flags & 2, linear = flags & 4;
        const std::string name = "flags" + std::to_string(flags) + ".png";
        AddPicture(name, 4, 4);
        Texture* const made = loader->GetTexture(name, mipmap, repeat, linear);
        ASSERT_NE(nullptr, made);
        const gl::TextureObject* const texture = gl::FindTexture(made->id);
        EXPECT_EQ(mipmap, texture->builtByGlu) << flags;
        EXPECT_EQ(mipmap ? 3u : 1u, texture->levels.size()) << flags;
        EXPECT_EQ(repeat ? GL_REPEAT : GL_CLAMP_TO_EDGE, texture->wrapS) << flags;
        EXPECT_EQ(repeat ? GL_REPEAT : GL_CLAMP_TO_EDGE, texture->wrapT) << flags;
        EXPECT_EQ(linear ? GL_LINEAR : GL_NEAREST, texture->minFilter) << flags; // never a mipmap filter
        EXPECT_EQ(linear ? GL_LINEAR : GL_NEAREST, texture->magFilter) << flags;
    }
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(TextureCache, SendsThePicturesOwnPixels)
{
    Picture picture = PlainPicture(4, 4, 4, 10, 20, 30, 40);
    for (size_t i = 0; i < picture.pixels.size(); i++)
        picture.pixels[i] = static_cast<unsigned char>(i * 3);
    AddPicture("own.png", picture);
    Texture* const texture = loader->GetTexture("own.png", false, false, false);
    ASSERT_NE(nullptr, texture);
    EXPECT_EQ(picture.pixels, gl::FindTexture(texture->id)->levels.at(0).pixels);
    EXPECT_EQ(4, texture->components);
}

TEST_F(TextureCache, KeepsNothingOfAFileThatCannotBeHad)
{
    EXPECT_EQ(nullptr, loader->GetTexture("late.jpg", true, true, true));
    EXPECT_EQ(1u, boxes.size());
    EXPECT_TRUE(QuitWasPosted());
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_EQ(nullptr, loader->GetTexture("late.jpg", true, true, true)); // tried and reported again
    EXPECT_EQ(2u, boxes.size());
    EXPECT_TRUE(QuitWasPosted());
    AddPicture("late.jpg", 2, 2);
    EXPECT_NE(nullptr, loader->GetTexture("late.jpg", true, true, true));
    EXPECT_EQ(2u, boxes.size());
}

TEST_F(TextureCache, KeepsNoPixelsOfWhatGlHas)
{
    // What GL has is in memory too, where the calls are recorded: once for each texture.
    const size_t mebibyte = 1 << 20; // 512 by 512 pixels of 4 bytes
    const size_t before = BytesInUse();
    EXPECT_TRUE(loader->CreateBlankTexture(512, 512, "blank"));
    const size_t ofOne = BytesInUse() - before;
    EXPECT_GE(ofOne, mebibyte);
    EXPECT_LT(ofOne, mebibyte + mebibyte / 2);
}

TEST_F(TextureCache, RefusesANameOfFourCharactersWhateverTheDirectoryHolds)
{
    AddPicture("a.png");
    std::filesystem::rename(PathOf("a.png"), PathOf("a.pn"));
    EXPECT_EQ(nullptr, loader->GetTexture("a.pn", true, true, true));
    EXPECT_EQ(1u, boxes.size());
}

TEST_F(TextureCache, IsWhatARequestThroughThePointerOfAnEffectAsks)
{
    AddPicture("a.jpg", 4, 4);
    Texture* const texture = RequestTexture(loader, "a.jpg", true, false, true);
    ASSERT_NE(nullptr, texture);
    EXPECT_EQ(texture, loader->GetTexture("a.jpg", false, false, false));
    EXPECT_TRUE(gl::FindTexture(texture->id)->builtByGlu);
    EXPECT_EQ(GL_CLAMP_TO_EDGE, gl::FindTexture(texture->id)->wrapS);
    EXPECT_EQ(GL_LINEAR, gl::FindTexture(texture->id)->minFilter);

    AddPicture("b.jpg", 4, 4);
    Texture* const other = RequestTexture(loader, "b.jpg", false, true, false);
    EXPECT_FALSE(gl::FindTexture(other->id)->builtByGlu);
    EXPECT_EQ(GL_REPEAT, gl::FindTexture(other->id)->wrapS);
    EXPECT_EQ(GL_NEAREST, gl::FindTexture(other->id)->minFilter);
}

TEST_F(TextureCache, TakesABlankTextureUnderItsName)
{
    EXPECT_TRUE(loader->CreateBlankTexture(8, 4, "blank"));
    EXPECT_TRUE(gl::CallsAre(
        gl::Calls(), {
                         "glEnable(GL_TEXTURE_2D)",
                         "glGenTextures(1)",
                         "glBindTexture(GL_TEXTURE_2D, 1)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT)",
                         "glTexImage2D(GL_TEXTURE_2D, 0, 4, 8, 4, 0, GL_RGBA, GL_UNSIGNED_BYTE, data)",
                         "glDisable(GL_TEXTURE_2D)",
                     }));
    EXPECT_EQ(std::vector<unsigned char>(8 * 4 * 4), gl::FindTexture(1)->levels.at(0).pixels);
    Texture* const blank = loader->GetTexture("blank", true, true, true);
    ASSERT_NE(nullptr, blank);
    EXPECT_EQ(1u, blank->id);
    EXPECT_EQ(8, blank->width);
}

TEST_F(TextureCache, NeverFindsTheSecondBlankTextureOfAName)
{
    EXPECT_TRUE(loader->CreateBlankTexture(2, 2, "blank"));
    EXPECT_TRUE(loader->CreateBlankTexture(4, 4, "blank"));
    EXPECT_EQ(2u, gl::Textures().size());
    EXPECT_EQ(2, loader->GetTexture("blank", true, true, true)->width);
}

TEST_F(TextureCache, TakesABlankTextureOfNoSize)
{
    EXPECT_TRUE(loader->CreateBlankTexture(-1, -1, "nothing"));
    EXPECT_NE(nullptr, loader->GetTexture("nothing", true, true, true));
}

TEST_F(TextureCache, GivesAllBackInTheirOrderAtTheEndAndIsEmptyThen)
{
    AddPicture("a.png", 2, 2);
    Texture* const texture = loader->GetTexture("a.png", true, true, true);
    loader->CreateBlankTexture(2, 2, "b");
    loader->CreateBlankTexture(2, 2, "c");
    gl::ClearRecords();
    loader->DeleteAll();
    EXPECT_TRUE(gl::CallsAre(
        gl::Calls(), {"glDeleteTextures(1, {1})", "glDeleteTextures(1, {2})", "glDeleteTextures(1, {3})"}));
    EXPECT_EQ(2, texture->width); // the object is still there for those who point at it
    EXPECT_NE(texture, loader->GetTexture("a.png", true, true, true));
}

TEST_F(TextureCache, DeletesTheTexturesAtShutdownWithOrWithoutAContext)
{
    loader->CreateBlankTexture(2, 2, "a");
    gl::ClearRecords();
    loader->Shutdown();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glDeleteTextures(1, {1})"}));

    loader->CreateBlankTexture(2, 2, "b");
    gl::SetContext(0);
    loader->Shutdown();
    gl::SetContext(1);
    EXPECT_TRUE(gl::NoErrors());
    EXPECT_TRUE(boxes.empty());
}
