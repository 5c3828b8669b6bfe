// SPDX-License-Identifier: MIT
// What the loader does without GL: its birth, its end, and what may be done with nothing.
#include "resources/TextureLoader.h"

#include "kernel/Report.h"
#include "tests/resources/ImageLibrary.h"
#include "tests/support/BoxWatch.h"
#include "tests/support/ShowFixture.h"

class LoaderBirth : public ShowFixture
{
protected:
    ~LoaderBirth() override { SetImageLibraryVersions(0, 0); }

    void ExpectRefusal()
    {
        EXPECT_EQ(nullptr, TextureLoader::GetInstance());
        ASSERT_EQ(1u, boxes.size());
        EXPECT_EQ("Marlinex 1.5 Error: Texture Loader", boxes[0].caption);
        EXPECT_EQ(std::string("Bad: Wrong DEVIL Version") + ErrorTail, boxes[0].body);
        EXPECT_TRUE(QuitWasPosted());
        boxes.clear();
    }
};

TEST_F(LoaderBirth, ThereIsOneLoaderForTheWholeProcess)
{
    TextureLoader* const loader = TextureLoader::GetInstance();
    ASSERT_NE(nullptr, loader);
    EXPECT_EQ(loader, TextureLoader::GetInstance());
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(QuitWasPosted());
}

TEST_F(LoaderBirth, AnOldImageLibraryIsReportedAtEveryCall)
{
    SetImageLibraryVersions(166, 166);
    ExpectRefusal();
    ExpectRefusal();
}

TEST_F(LoaderBirth, BothPartsOfTheLibraryMustBeRecent)
{
    SetImageLibraryVersions(166, 167);
    ExpectRefusal();
    SetImageLibraryVersions(167, 166);
    ExpectRefusal();
}

TEST_F(LoaderBirth, Version167IsRecentEnoughAndARefusalIsNotRemembered)
{
    SetImageLibraryVersions(166, 166);
    ExpectRefusal();
    SetImageLibraryVersions(167, 167);
    EXPECT_NE(nullptr, TextureLoader::GetInstance());
    SetImageLibraryVersions(166, 166); // and now the loader is there
    EXPECT_NE(nullptr, TextureLoader::GetInstance());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(LoaderBirth, AnOldImageLibraryIsReportedBeforeTheQuitIsPosted)
{
    SetImageLibraryVersions(166, 166);
    BoxWatch watch;
    EXPECT_EQ(nullptr, TextureLoader::GetInstance());
    EXPECT_EQ(std::vector<bool>{false}, watch.quitAtBox);
    EXPECT_TRUE(QuitWasPosted());
}

TEST_F(LoaderBirth, WithoutALoaderEveryRequestGivesNothing)
{
    EXPECT_EQ(nullptr, RequestTexture(nullptr, "a.jpg", true, true, true));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(LoaderBirth, TheEndIsHarmlessWithoutAContext)
{
    TextureLoader* const loader = TextureLoader::GetInstance();
    AddPicture("a.png");
    ASSERT_NE(nullptr, loader->GetTexture("a.png", false, false, false));
    EXPECT_TRUE(loader->CreateBlankTexture(2, 2, "blank"));
    loader->Shutdown();
    loader->Shutdown(); // nothing is left to delete
    EXPECT_TRUE(boxes.empty());
}

TEST_F(LoaderBirth, TheEndShutsTheImageLibraryDownAndDeletingAllDoesNot)
{
    TextureLoader* const loader = TextureLoader::GetInstance();
    loader->DeleteAll();
    EXPECT_EQ(0, LibraryShutdowns());
    loader->Shutdown();
    EXPECT_EQ(1, LibraryShutdowns());
}

TEST_F(LoaderBirth, TheEndMayComeBeforeAnyTexture)
{
    TextureLoader::GetInstance()->Shutdown();
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(QuitWasPosted());
}
