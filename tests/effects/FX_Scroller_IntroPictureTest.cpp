// SPDX-License-Identifier: MIT
#include "effects/FX_Scroller_Intro.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_Scroller_IntroPicture : public ScenePictureFixture
{
};

TEST_F(FX_Scroller_IntroPicture, SparksLightTheWoodAndTheLogoComesAtTheEnd)
{
    Textures({"tessel-logo.png", "black-chick.png", "moonwaltz-logo.png", "waldsterben.png",
              "waldsterben2.png", "sky-background_01.jpg", "sky-background_02.jpg", "sky-background_03.jpg",
              "sky-background_04.jpg"});
    Lights({"partikel_2.jpg"});
    FX_Scroller_Intro intro;
    Prepare(&intro);
    Play(&intro, 17);
    Send(&intro, "light_flash");
    Look(&intro, 17.25, "FX_Scroller_Intro-logo-and-sparks");
    Play(&intro, 39);
    Send(&intro, "light_flash");
    Look(&intro, 56.5, "FX_Scroller_Intro-wood");
    Send(&intro, "fadein_logo");
    Play(&intro, 31);
    Look(&intro, 88, "FX_Scroller_Intro-closing-logo");
}
