// SPDX-License-Identifier: MIT
#include "effects/FX_Scroller_Intro.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_Scroller_IntroPicture : public ScenePictureFixture
{
};

TEST_F(FX_Scroller_IntroPicture, SparksLightTheWoodAndTheLogoComesAtTheEnd)
{
    AddFiles(FX_Scroller_Intro::files);
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
