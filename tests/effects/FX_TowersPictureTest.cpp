// SPDX-License-Identifier: MIT
#include "effects/FX_Towers.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_TowersPicture : public ScenePictureFixture
{
};

TEST_F(FX_TowersPicture, TheEyeSweepsInAndTurnsAmongTheBeams)
{
    AddFiles(FX_Towers::files);
    FX_Towers flight;
    Prepare(&flight);
    GLWindow::SetPerspective(45);
    Look(&flight, 1, "FX_Towers-sweeping-in");
    Look(&flight, 5, "FX_Towers-orbit");
    Send(&flight, "flash_line");
    Look(&flight, 5.0625, "FX_Towers-beams");
}
