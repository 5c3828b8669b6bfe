// SPDX-License-Identifier: MIT
#include "effects/FX_Clouds.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_CloudsPicture : public ScenePictureFixture
{
};

TEST_F(FX_CloudsPicture, AHandComesOutOfTheCloudsAndTheFlightDives)
{
    AddFiles(FX_Clouds::files);
    FX_Clouds flight;
    Prepare(&flight);
    GLWindow::SetPerspective(45);
    Look(&flight, 2, "FX_Clouds-clouds");
    Send(&flight, "hand");
    Look(&flight, 2.5, "FX_Clouds-hand");
    Send(&flight, "blend");
    Send(&flight, "handFrakt");
    Look(&flight, 3, "FX_Clouds-dive");
}
