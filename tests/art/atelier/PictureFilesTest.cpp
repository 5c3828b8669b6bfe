// SPDX-License-Identifier: MIT
// The files of the pictures: who paints and who loads each, its size, its channels, its bytes.
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace atelier;

// What the show asks for: the textures of the effects, the loading screen and the form.
static std::set<std::string> WantedPictures()
{
    std::set<std::string> wanted = {loadingPicture, "start-form.png"};
    for (const EffectRecord& row : ProductionEffects())
        for (const EffectFile& file : ListFiles(row.files))
            if (file.kind == TextureFile)
                wanted.insert(file.name);
    return wanted;
}

TEST(PictureFiles, EveryPictureOfTheShowHasAPainterAndNoOtherIsPainted)
{
    std::set<std::string> painted;
    for (const PictureGroup& group : AllGroups()) {
        EXPECT_FALSE(group.pictures.empty()) << group.effect;
        for (const Picture& picture : group.pictures) {
            // The desktop's icons, and the pictures of another production.
            const std::string file = picture.file;
            if (file.starts_with("desktop/icons/") || file.starts_with("template/"))
                continue;
            EXPECT_TRUE(painted.insert(NameOf(picture)).second) << picture.file << " is painted twice";
            EXPECT_TRUE(WantedPictures().count(NameOf(picture))) << picture.file << ": no effect loads it";
        }
    }
    for (const std::string& name : WantedPictures())
        EXPECT_EQ(1u, painted.count(name))
            << name << " has no painter: it stands in no table under art/atelier/pictures whose group "
            << "art/atelier/Pictures.cpp lists";
}

TEST(PictureFiles, EachGroupHasTheKeyOfTheEffectThatLoadsItsPictures)
{
    for (const PictureGroup& group : AllGroups()) {
        const std::string key = group.effect;
        if (key == "Frame" || key == "Icon" || key == "Template")
            continue; // of the program, the desktop, and another production
        const EffectRecord* const record = FindRecord(key);
        ASSERT_NE(nullptr, record) << key << ", for which " << group.pictures.at(0).file
                                   << " is painted, is no effect of kernel/Production.cpp";
        for (const Picture& picture : group.pictures) {
            const std::vector<EffectFile> files = ListFiles(record->files);
            EXPECT_TRUE(std::any_of(files.begin(), files.end(),
                                    [&](const EffectFile& file) { return file.name == NameOf(picture); }))
                << key << ", for which " << picture.file << " is painted, does not load it";
        }
    }
}

TEST(PictureFiles, EachFileHasTheSizeAndTheChannelsOfItsRow)
{
    for (const PictureGroup& group : AllGroups())
        for (const Picture& picture : group.pictures) {
            if (picture.format == Format::Svg)
                continue; // no pixels
            const Raster raster = LoadPicture(picture.file);
            EXPECT_EQ(picture.width, raster.width) << picture.file;
            EXPECT_EQ(picture.height, raster.height) << picture.file;
            EXPECT_EQ(ChannelsOf(picture.format), raster.channels) << picture.file;
        }
}

TEST(PictureFiles, APictureIsTheSameBytesWheneverItIsPainted)
{
    for (const char* name : {"partikel_2.jpg", "loading.jpg"}) {
        const Picture* picture = FindPicture(name);
        ASSERT_NE(nullptr, picture);
        const std::string first = Encoded(Finished(picture->paint(), 3), picture->file);
        const std::string second = Encoded(Finished(picture->paint(), 3), picture->file);
        EXPECT_FALSE(first.empty());
        EXPECT_EQ(first, second) << name;
    }
}
