// SPDX-License-Identifier: MIT
// The border of a picture is not to be seen where the picture ends: light is black there, and what has alpha is
// transparent. PictureSeamsRecordedTest.cpp is about pictures that go on past their border.
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace atelier;

// The sides at which a picture does not end, and what goes on there.
static const std::map<std::string, std::string> sidesThatGoOn = {
    // the next face of the box
    {"skybox_tower_left.jpg", "lr"},
    {"skybox_tower_back.jpg", "lr"},
    {"skybox_tower_right.jpg", "lr"},
    {"skybox_tower_front.jpg", "lr"},
    // the edges of the screen
    {"foto.png", "tb"},
    {"waldsterben.png", "b"},
    {"waldsterben2.png", "b"},
    // the hinge of the fish
    {"fischgraeten_1.png", "r"},
    {"fischgraeten_2.png", "l"},
    // the card, whose face is laid on it there
    {"greetings_01.png", "t"},
    {"greetings_03.png", "t"},
    {"greetings_05.png", "t"},
    {"greetings_07.png", "t"},
    {"greetings_09.png", "t"},
    {"greetings_12.png", "t"},
    // the next piece of the score
    {"teststreifen.png", "lr"},
};

TEST(PictureBorders, AreBlackWhereThePictureIsLightAndTransparentWhereItHasAlpha)
{
    std::set<std::string> names = {loadingPicture};
    for (const EffectRecord& row : ProductionEffects())
        names.insert(row.files.lights.begin(), row.files.lights.end());
    for (const PictureGroup& group : AllGroups())
        for (const Picture& picture : group.pictures)
            if (picture.format == Format::PngRgba && std::string(picture.file).starts_with("Data/"))
                names.insert(NameOf(picture));
    for (const auto& [name, sides] : sidesThatGoOn)
        EXPECT_TRUE(names.count(name)) << name << " is neither light nor has it alpha";
    for (const std::string& name : names) {
        const Raster raster = LoadPicture(name);
        ASSERT_FALSE(raster.bytes.empty()) << name;
        const auto goesOn = sidesThatGoOn.find(name);
        EXPECT_EQ(goesOn == sidesThatGoOn.end() ? "" : goesOn->second, OpenSides(raster))
            << name << ": the sides at which its border is to be seen";
    }
}
