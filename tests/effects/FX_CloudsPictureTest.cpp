// SPDX-License-Identifier: MIT
#include "effects/FX_Clouds.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_CloudsPicture : public ScenePictureFixture
{
};

TEST_F(FX_CloudsPicture, AHandComesOutOfTheCloudsAndTheFlightDives)
{
    Textures({"cloud_5.png", "cloud_6.png", "himmelarsch.jpg", "himmelarschling.jpg", "greetings_01.png",
              "greetings_02.png", "greetings_03.png", "greetings_04.png", "greetings_05.png",
              "greetings_06.png", "greetings_07.png", "greetings_08.png", "greetings_09.png",
              "greetings_11.png", "greetings_12.png", "greetings_13.png"});
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
