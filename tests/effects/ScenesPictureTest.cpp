// SPDX-License-Identifier: MIT
// What each scene looks like at its telling moments, under the real shaders and meshes. The textures are made
// here: plain patterns that show orientation, repeat and alpha, so that a picture may be repainted without a
// new golden image, and a texture that is turned, mirrored or swapped is seen at once.
#include "effects/FS_Image.h"
#include "effects/FX_Clouds.h"
#include "effects/FX_Credits.h"
#include "effects/FX_FlashHand.h"
#include "effects/FX_Footprint.h"
#include "effects/FX_Path.h"
#include "effects/FX_RopeThing.h"
#include "effects/FX_Scroller_Intro.h"
#include "effects/FX_Towers.h"
#include "effects/FX_VerticalScroller.h"
#include "effects/Transition_Fish.h"
#include "effects/WhiteFlashOverlay.h"
#include "tests/support/picture/PictureFixture.h"

#include <cmath>
#include <fstream>
#include <sstream>

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

class Scenes : public PictureFixture
{
protected:
    void SetUp() override
    {
        UseOwnData();
        for (const char* name : {"standard_projection.vp", "postprocessing_blur.fp", "glowmask.vp",
                                 "glowmask.fp", "mix.fp", "fish.vp", "fish.fp", "fish.txt", "fisheyes.txt"}) {
            std::ifstream file(std::string(SOURCE_DIR) + "/Data/" + name);
            std::stringstream text;
            text << file.rdbuf();
            AddFile(name, text.str());
        }
        ASSERT_TRUE(Open(windowWidth, windowHeight));
        window.SetLetterbox(0.85f);
    }
    void Textures(std::initializer_list<const char*> names)
    {
        for (const char* name : names)
            AddPicture(name, Pattern(name));
    }
    void Lights(std::initializer_list<const char*> names)
    {
        for (const char* name : names)
            AddPicture(name, Light());
    }
    void ExpectPicture(const std::string& name)
    {
        EXPECT_TRUE(MatchesGolden(
            Grab(), name,
            Tolerance("edges and magnified patterns may move by a pixel in another version of the "
                      "rasteriser, surfaces by a step or two")
                .Maximum(4)
                .Mean(0.6)
                .Share(0.02)));
    }
    // Goes to this moment of the scene without drawing on the way, and looks.
    void Look(Effect* effect, double until, const std::string& name)
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
    // The same for scenes that move in Render: with every frame drawn, a quarter of a second each.
    void Play(Effect* effect, double seconds)
    {
        RunFor(effect, seconds, 0.25);
        StartTimer(FrameTimer::GetTime());
    }
};

TEST_F(Scenes, Opening)
{
    Textures({"tessel-logo.png", "black-chick.png", "moonwaltz-logo.png", "waldsterben.png",
              "waldsterben2.png", "sky-background_01.jpg", "sky-background_02.jpg", "sky-background_03.jpg",
              "sky-background_04.jpg"});
    Lights({"partikel_2.jpg"});
    FX_Scroller_Intro intro;
    Prepare(&intro);
    Play(&intro, 17);
    Send(&intro, "light_flash");
    Look(&intro, 17.25, "Opening-logo-and-sparks");
    Play(&intro, 39);
    Send(&intro, "light_flash");
    Look(&intro, 56.5, "Opening-wood");
    Send(&intro, "fadein_logo");
    Play(&intro, 31);
    Look(&intro, 88, "Opening-closing-logo");
}

TEST_F(Scenes, Painting)
{
    Textures({"ochre_painting1.jpg"});
    Lights({"glowmask.jpg"});
    FS_Image image("ochre_painting1.jpg");
    Prepare(&image);
    Look(&image, 0.5, "Painting-plain");
    Send(&image, "fade");
    Look(&image, 1.5, "Painting-glow");
    Look(&image, 14, "Painting-late");
}

TEST_F(Scenes, FishWipe)
{
    Textures({"fischgraeten_1.png", "fischgraeten_2.png"});
    glClearColor(0.5f, 0.4f, 0.3f, 1);
    Transition_Fish fish;
    Prepare(&fish);
    Look(&fish, 0.125, "FishWipe-bone");
    Look(&fish, 1.5, "FishWipe-half-way");
    Look(&fish, 4, "FishWipe-open");
}

TEST_F(Scenes, Photograph)
{
    Textures({"foto.png"});
    glClearColor(0.2f, 0.25f, 0.4f, 1);
    FX_FlashHand hand;
    Prepare(&hand);
    Send(&hand, "flash");
    Look(&hand, 0.03125, "Photograph-jump");
    Look(&hand, 1, "Photograph-rest");
    Look(&hand, 3, "Photograph-blurred");
}

TEST_F(Scenes, Footprints)
{
    Textures({"footprint.png", "sandbau.jpg"});
    Lights({"footprint_white.jpg"});
    FX_Footprint walk;
    Prepare(&walk);
    Look(&walk, 3, "Footprints-sand");
    Send(&walk, "step");
    Look(&walk, 3.25, "Footprints-one-step");
    Send(&walk, "step");
    Look(&walk, 3.5, "Footprints-two-steps");
    Send(&walk, "trigger_base");
    Look(&walk, 4.5, "Footprints-without-sand");
}

TEST_F(Scenes, ClosingRoll)
{
    Textures({"abspanner_1.png", "abspanner_2.png", "abspanner_3.png"});
    glClearColor(0.1f, 0.1f, 0.2f, 1);
    FX_VerticalScroller roll;
    Prepare(&roll);
    Look(&roll, 3, "ClosingRoll-rising");
    Look(&roll, 14, "ClosingRoll-two-pages");
    Send(&roll, "stopScroll");
    Look(&roll, 20, "ClosingRoll-stopped");
}

TEST_F(Scenes, CloudFlight)
{
    Textures({"cloud_5.png", "cloud_6.png", "himmelarsch.jpg", "himmelarschling.jpg", "greetings_01.png",
              "greetings_02.png", "greetings_03.png", "greetings_04.png", "greetings_05.png",
              "greetings_06.png", "greetings_07.png", "greetings_08.png", "greetings_09.png",
              "greetings_11.png", "greetings_12.png", "greetings_13.png"});
    FX_Clouds flight;
    Prepare(&flight);
    GLWindow::SetPerspective(45);
    Look(&flight, 2, "CloudFlight-clouds");
    Send(&flight, "hand");
    Look(&flight, 2.5, "CloudFlight-hand");
    Send(&flight, "blend");
    Send(&flight, "handFrakt");
    Look(&flight, 3, "CloudFlight-dive");
}

TEST_F(Scenes, MakersNames)
{
    Textures({"stoned.jpg", "credit-fen_tarogato.png", "credit-ochre.png", "credit-dunmarrow.png",
              "credit-lowbeam.png", "ackerbau_tiled2_2.jpg"});
    FX_Credits credits;
    Prepare(&credits);
    for (int step = 0; step < 8; step++) {
        Send(&credits, "fade_in");
        Look(&credits, 1.5 * (step + 1), "MakersNames-step-" + std::to_string(step));
    }
}

// The names stand in a context of their own: no lamp, material, matrix or viewport of another scene may reach
// their tree, nor their picture on its way back.
TEST_F(Scenes, MakersNamesLookTheSameWhateverRanBefore)
{
    Textures({"stoned.jpg",
              "credit-fen_tarogato.png",
              "credit-ochre.png",
              "credit-dunmarrow.png",
              "credit-lowbeam.png",
              "ackerbau_tiled2_2.jpg",
              "budentextur.jpg",
              "licht-an.png",
              "licht-aus.png",
              "teststreifen.png",
              "ackerbau_tiled3.jpg",
              "ackerbau_tiled2.jpg",
              "skybox_left.jpg",
              "skybox_back.jpg",
              "skybox_right.jpg",
              "skybox_top.jpg",
              "fasanenbude.jpg",
              "beam_1.png",
              "spirograph.jpg",
              "skybox_tower_left.jpg",
              "skybox_tower_back.jpg",
              "skybox_tower_right.jpg",
              "skybox_tower_front.jpg",
              "fischhaut.jpg",
              "fisheye.jpg",
              "ochre_painting1.jpg",
              "footprint.png",
              "footprint_white.jpg",
              "sandbau.jpg",
              "fischgraeten_1.png",
              "fischgraeten_2.png"});
    Lights({"partikel_2.jpg", "ring.jpg", "glowmask.jpg"});
    FX_Credits credits;
    FX_Path path;
    FX_Towers towers;
    FX_RopeThing fish;
    FS_Image painting("ochre_painting1.jpg");
    FX_Footprint walk;
    Transition_Fish wipe;
    WhiteFlashOverlay flash;
    Effect* const others[6] = {&path, &towers, &fish, &painting, &walk, &wipe};
    Prepare(&credits);
    Prepare(&flash);
    for (Effect* other : others)
        Prepare(other);
    Send(&credits, "fade_in");
    Send(&credits, "fade_in");
    Play(&credits, 1.5);
    Frame(&credits);
    const Picture first = Grab();
    Send(&fish, "intro");
    for (Effect* other : others) {
        Play(other, 0.5);
        Frame(other);
        EXPECT_NE(first.pixels, Grab().pixels);
        // As in the show, where the flashes lie over every scene and switch blending off. Blending that
        // stands when the names begin does reach them: their off-screen picture has an alpha, and is blended
        // by it.
        Overlay(&flash);
        Frame(&credits);
        EXPECT_EQ(0, Compare(Grab(), first, 0).maximum);
    }
}

TEST_F(Scenes, VillageWalk)
{
    Textures({"budentextur.jpg", "licht-an.png", "licht-aus.png", "teststreifen.png", "ackerbau_tiled3.jpg",
              "ackerbau_tiled2.jpg", "skybox_left.jpg", "skybox_back.jpg", "skybox_right.jpg",
              "skybox_top.jpg"});
    Lights({"partikel_2.jpg", "ring.jpg"});
    FX_Path path;
    Prepare(&path);
    Play(&path, 7);
    Look(&path, 7.125, "VillageWalk-walking");
    Play(&path, 7);
    Send(&path, "trigger_cam");
    Play(&path, 3);
    Send(&path, "tree1");
    Look(&path, 17.375, "VillageWalk-lifting");
    for (int i = 0; i < 5; i++)
        Send(&path, "tree2");
    Look(&path, 17.5, "VillageWalk-orbiting");
}

TEST_F(Scenes, TowerFlight)
{
    Textures({"fasanenbude.jpg", "beam_1.png"});
    Lights({"spirograph.jpg", "skybox_tower_left.jpg", "skybox_tower_back.jpg", "skybox_tower_right.jpg",
            "skybox_tower_front.jpg"});
    FX_Towers flight;
    Prepare(&flight);
    GLWindow::SetPerspective(45);
    Look(&flight, 1, "TowerFlight-sweeping-in");
    Look(&flight, 5, "TowerFlight-orbit");
    Send(&flight, "flash_line");
    Look(&flight, 5.0625, "TowerFlight-beams");
}

TEST_F(Scenes, Fish)
{
    Textures({"fischhaut.jpg", "fisheye.jpg"});
    Lights({"partikel_2.jpg"});
    FX_RopeThing fish;
    Prepare(&fish);
    GLWindow::SetPerspective(45);
    Send(&fish, "intro");
    Look(&fish, 2.5, "Fish-intro");
    Send(&fish, "front");
    Look(&fish, 3.5, "Fish-front");
    Send(&fish, "shock");
    Look(&fish, 3.609375, "Fish-shock");
}
