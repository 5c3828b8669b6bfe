// SPDX-License-Identifier: MIT
#include "effects/FX_Towers.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_TowersPicture : public ScenePictureFixture
{
};

TEST_F(FX_TowersPicture, TheEyeSweepsInAndTurnsAmongTheBeams)
{
    Textures({"fasanenbude.jpg", "beam_1.png"});
    Lights({"spirograph.jpg", "skybox_tower_left.jpg", "skybox_tower_back.jpg", "skybox_tower_right.jpg",
            "skybox_tower_front.jpg"});
    FX_Towers flight;
    Prepare(&flight);
    GLWindow::SetPerspective(45);
    Look(&flight, 1, "FX_Towers-sweeping-in");
    Look(&flight, 5, "FX_Towers-orbit");
    Send(&flight, "flash_line");
    Look(&flight, 5.0625, "FX_Towers-beams");
}
