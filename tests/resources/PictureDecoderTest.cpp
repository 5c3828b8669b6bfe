// SPDX-License-Identifier: MIT
#include "tests/resources/ImageFixture.h"

#include "tests/support/WithoutNewThreads.h"

#include <cerrno>
#include <csignal>
#include <filesystem>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

// Formats that are decoded in a process of their own.
class ForeignPictures : public ImageFixture
{
protected:
    ForeignPictures()
    {
        SetChildFate(ChildLives);
        AddFile("small.ppm", "P6 2 2 255\n" + pixels);
    }

    const std::string pixels = "abcdefghijkl";
};

TEST_F(ForeignPictures, AreDecodedInAnotherProcessAndArriveWhole)
{
    const ImageData image = Keep(loader->LoadImage("small.ppm"));
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(2, image.width);
    EXPECT_EQ(2, image.height);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(pixels, std::string(image.data, image.data + 12));
    EXPECT_NE(0, LastForeignDecoder());
    EXPECT_NE(getpid(), LastForeignDecoder());
}

TEST_F(ForeignPictures, ArriveWholeWhenTheyAreLarge)
{
    std::string large;
    for (int i = 0; i < 700 * 500 * 3; i++)
        large += static_cast<char>(i * 31 + i / 251);
    AddFile("large.ppm", "P6 700 500 255\n" + large);
    const ImageData image = Keep(loader->LoadImage("large.ppm"));
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(large, std::string(image.data, image.data + large.size()));
}

TEST_F(ForeignPictures, AreKnownByTheirContentToo)
{
    std::filesystem::copy_file(PathOf("small.ppm"), PathOf("liar.jpg"));
    EXPECT_EQ(2, Keep(loader->LoadImage("liar.jpg")).width);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ForeignPictures, FailWithTheLibrarysWordsFromTheChild)
{
    AddFile("odd.what", "nothing that anybody knows");
    ExpectFailure(loader->LoadImage("odd.what"), Complaint("odd.what", IL_INVALID_EXTENSION));
}

TEST_F(ForeignPictures, MayKillTheChildAndNotTheShow)
{
    for (ChildFate fate : {ChildCrashes, ChildCrashesAsItDecodes, ChildExits}) {
        SetChildFate(fate);
        ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
    }
    SetChildFate(ChildLives);
    EXPECT_EQ(2, Keep(loader->LoadImage("small.ppm")).width);
}

TEST_F(ForeignPictures, FailWhereTheSystemRefusesTheChild)
{
    chmod(PathOf(".").c_str(), 0755); // for a process that is not root's any more
    WithoutNewThreads(
        [this] { ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR)); });
}

TEST_F(ForeignPictures, AreWaitedForThroughSignals)
{
    FailSystemCalls(3, EINTR);
    const ImageData image = Keep(loader->LoadImage("small.ppm"));
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(pixels, std::string(image.data, image.data + 12));
    FailSystemCalls(0, 0);
    EXPECT_EQ(-1, waitpid(LastForeignDecoder(), nullptr, 0)) << "the child is left as a zombie";
    FailSystemCalls(1, EINTR);
    SetChildFate(ChildExits);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
}

// A program that ignores the end of its children hands that down to the show, and then there is nothing to wait for.
TEST_F(ForeignPictures, ArriveWhereTheEndOfChildrenIsIgnored)
{
    std::signal(SIGCHLD, SIG_IGN);
    const ImageData image = Keep(loader->LoadImage("small.ppm"));
    std::signal(SIGCHLD, SIG_DFL);
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(pixels, std::string(image.data, image.data + 12));
}

TEST_F(ForeignPictures, LeaveNoPipeOpen)
{
    const auto openDescriptors = [] {
        const std::filesystem::directory_iterator descriptors("/proc/self/fd");
        return std::distance(begin(descriptors), end(descriptors));
    };
    const auto before = openDescriptors();
    Keep(loader->LoadImage("small.ppm"));
    SetChildFate(ChildCrashes);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
    EXPECT_EQ(before, openDescriptors());
}

TEST_F(ForeignPictures, OfWhichTheLibraryHoldsLessThanItTellsFail)
{
    SetPictureInteger(IL_IMAGE_SIZE_OF_DATA, 5);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
}

TEST_F(ForeignPictures, FailWhereTheirPipeDoes)
{
    FailSystemCalls(1, EIO);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
    FailSystemCalls(0, 0);
}

TEST_F(ForeignPictures, FailWhereTheLibraryFailsAtTheKindThatTheirContentTells)
{
    AddFile("cut.gif", std::string("GIF89a\2\0\2\0\0\0\0", 13) + "!!!!!!");
    EXPECT_EQ(nullptr, loader->LoadImage("cut.gif").data);
    EXPECT_EQ(1u, boxes.size());
    EXPECT_TRUE(QuitWasPosted());
}

TEST_F(ForeignPictures, MayHangTheChildForTenSecondsOnly)
{
    std::signal(SIGALRM, SIG_IGN); // as whatever started the show may have left it
    SetChildFate(ChildHangs);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
    EXPECT_EQ(10u, LastAlarm());
    EXPECT_FALSE(OutlivedAlarm());
    std::signal(SIGALRM, SIG_DFL);
}

TEST_F(ForeignPictures, MayTakeTwoGibibytesMoreThanTheShowAndLeaveNoCoreFile)
{
    rlimit limit;
    ASSERT_EQ(0, getrlimit(RLIMIT_CORE, &limit));
    limit.rlim_cur = limit.rlim_max;
    ASSERT_EQ(0, setrlimit(RLIMIT_CORE, &limit));
    SetChildFate(ChildLives);
    void* const room = mmap(nullptr, 1 << 30, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    EXPECT_EQ(2, Keep(loader->LoadImage("small.ppm")).width);
    munmap(room, 1 << 30);
    EXPECT_NEAR(2048.0, double(LastMemoryRoom()) / (1 << 20), 64)
        << "mebibytes, less what it took up to there";
    EXPECT_EQ(0u, LastCoreLimit());
}

TEST_F(ForeignPictures, OfASingleByteArriveWhole)
{
    AddFile("dot.tga", std::string("\0\0\3\0\0\0\0\0\0\0\0\0\1\0\1\0\x08\0", 18) + '\xC8');
    const ImageData image = Keep(loader->LoadImage("dot.tga"));
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(0xC8, image.data[0]);
}

TEST_F(ForeignPictures, ThatTellOfMoreThanTheyHoldAreRefused)
{
    const char* const tooLong = "The picture has a side of more than 16384 pixels.";
    const char* const tooMany = "The picture has more than 67108864 pixels.";
    const char* const tooShort = "The file is too short for the picture that it tells of.";
    AddFile("wrong.png", "P6 65536 65536 255\nabcabcabc");
    ExpectFailure(loader->LoadImage("wrong.png"), Complaint("wrong.png", tooLong));
    AddFile("wrong.png", "P6 1431655766 1 255\nabcabcabc");
    ExpectFailure(loader->LoadImage("wrong.png"), Complaint("wrong.png", tooLong));
    AddFile("wrong.png", "P5 16384 16384 255\nabcabcabc");
    ExpectFailure(loader->LoadImage("wrong.png"), Complaint("wrong.png", tooMany));
    AddFile("wrong.png", "P6 8192 8192 255\nabcabcabc");
    ExpectFailure(loader->LoadImage("wrong.png"), Complaint("wrong.png", tooShort));

    std::string bitmap = SmallBitmap();
    bitmap.replace(18, 8, std::string("\0\0\1\0\0\0\1\0", 8)); // 65536 by 65536
    AddFile("wrong.bmp", bitmap);
    ExpectFailure(loader->LoadImage("wrong.bmp"), Complaint("wrong.bmp", tooLong));

    std::string targa = std::string("\0\0\2\0\0\0\0\0\0\0\0\0\xE8\3\xE8\3\x18\0", 18) + "abc";
    AddFile("wrong.tga", targa);
    ExpectFailure(loader->LoadImage("wrong.tga"), Complaint("wrong.tga", tooShort));
}

TEST_F(ForeignPictures, OfWhichTheLibraryMakesMoreThanTheFileCanHoldAreRefused)
{
    // 1600 by 1600 in a format whose header is not looked into; the library makes up what is missing.
    AddFile("large.cut", std::string("\x40\x06\x40\x06\0\0\0\0abc", 11));
    ExpectFailure(loader->LoadImage("large.cut"),
                  Complaint("large.cut", "The file is too short for the picture that it tells of."));
    EXPECT_FALSE(WIFSIGNALED(LastChildStatus()) && WTERMSIG(LastChildStatus()) == SIGALRM)
        << "it was waited for while it waited for somebody to take its pixels";
}

TEST_F(ForeignPictures, AreTheOnlyOnesThatNeedAChild)
{
    SetChildFate(ChildCrashes);
    AddPicture("own.png", 2, 2);
    AddPicture("own.jpg", 2, 2);
    EXPECT_EQ(2, Keep(loader->LoadImage("own.png")).width);
    EXPECT_EQ(2, Keep(loader->LoadImage("own.jpg")).width);
    ExpectFailure(loader->LoadImage("missing.tga"), Complaint("missing.tga", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ForeignPictures, ThatAreBrokenGiveTheirBox)
{
    // A picture of one plane that claims a million; the library's reader crashes on some of these.
    std::string psd("8BPS\0\1\0\0\0\0\0\0\0\x03\0\0\x03\xE8\0\0\x03\xE8\0\x08\0\x03", 26);
    psd += std::string(14, '\0') + std::string(200, '\x81');
    for (size_t size = 4; size < psd.size(); size += 7) {
        AddFile("broken.psd", psd.substr(0, size));
        ExpectWholeAnswer("broken.psd");
    }
}
