// SPDX-License-Identifier: MIT
#include "tests/support/picture/ScenePictureFixture.h"

#include "tests/Folders.h"

#include <cmath>
#include <filesystem>

static const int windowWidth = 320, windowHeight = 240;
static const int side = 64; // of a pattern

// Red grows to the right, green downward, blue is the picture's own; a ring is cut in, and a mark at the top
// left.
static Picture Pattern(const std::string& name)
{
    unsigned hue = 7;
    for (char c : name)
        hue = hue * 31 + unsigned(c);
    const bool alpha = name.compare(name.size() - 4, 4, ".png") == 0;
    Picture picture;
    picture.width = picture.height = side;
    picture.components = alpha ? 4 : 3;
    for (int y = 0; y < side; y++)
        for (int x = 0; x < side; x++) {
            const double dx = x - 31.5, dy = y - 31.5, r = std::sqrt(dx * dx + dy * dy);
            const bool ring = r > 18 && r < 24, mark = x < 16 && y < 8;
            picture.pixels.push_back((unsigned char)(mark ? 255 : ring ? 30 : 40 + 3 * x));
            picture.pixels.push_back((unsigned char)(mark ? 255 : ring ? 30 : 40 + 3 * y));
            picture.pixels.push_back((unsigned char)(mark ? 255 : ring ? 60 : 40 + hue % 160));
            if (alpha)
                picture.pixels.push_back((unsigned char)(mark ? 255 : r > 31 ? 0 : 220));
        }
    return picture;
}

// Black at the border, as light that is added must be.
static Picture Light()
{
    Picture picture;
    picture.width = picture.height = side;
    for (int y = 0; y < side; y++)
        for (int x = 0; x < side; x++) {
            const double dx = (x - 31.5) / 31.5, dy = (y - 31.5) / 31.5;
            const double light = std::max(0.0, 1 - std::sqrt(dx * dx + dy * dy));
            for (const double channel : {1.0, 0.8, 0.5})
                picture.pixels.push_back((unsigned char)(255 * light * light * channel));
        }
    return picture;
}

void ScenePictureFixture::SetUp()
{
    UseOwnData();
    ASSERT_TRUE(Open(windowWidth, windowHeight));
    window.SetLetterbox(0.85f);
}

void ScenePictureFixture::AddFiles(const EffectFiles& files)
{
    for (const char* name : files.textures)
        AddPicture(name, Pattern(name));
    for (const char* name : files.lights)
        AddLight(name);
    for (const EffectFile& file : ListFiles(files))
        if (file.kind != TextureFile)
            std::filesystem::copy_file(SOURCE_DIR "/Data/" + file.name, PathOf(file.name),
                                       std::filesystem::copy_options::overwrite_existing);
}

void ScenePictureFixture::AddLight(const std::string& name)
{
    AddPicture(name, Light());
}

void ScenePictureFixture::ExpectPicture(const std::string& name)
{
    EXPECT_TRUE(
        MatchesGolden(Grab(), name,
                      Tolerance("edges and magnified patterns may move by a pixel in another version of the "
                                "rasteriser, surfaces by a step or two")
                          .Maximum(4)
                          .Mean(0.6)
                          .Share(0.02)));
}

void ScenePictureFixture::Look(Effect* effect, double until, const std::string& name)
{
    const double step = 1.0 / 64;
    while (effect->GetLocalTime() < until - step / 2) {
        PassTime(step);
        effect->AddLocalTime(FrameTimer::GetDelta());
        effect->Update();
    }
    StartTimer(FrameTimer::GetTime()); // the picture itself takes no time
    Frame(effect);
    ExpectPicture(name);
}

void ScenePictureFixture::Play(Effect* effect, double seconds)
{
    RunFor(effect, seconds, 0.25);
    StartTimer(FrameTimer::GetTime());
}
