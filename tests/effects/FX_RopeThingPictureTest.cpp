// SPDX-License-Identifier: MIT
#include "effects/FX_RopeThing.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_RopeThingPicture : public ScenePictureFixture
{
};

TEST_F(FX_RopeThingPicture, TheFishComesFromAfarFromBesideAndInTheFace)
{
    AddFiles(FX_RopeThing::files);
    FX_RopeThing fish;
    Prepare(&fish);
    GLWindow::SetPerspective(45);
    Send(&fish, "intro");
    Look(&fish, 2.5, "FX_RopeThing-intro");
    Send(&fish, "front");
    Look(&fish, 3.5, "FX_RopeThing-front");
    Send(&fish, "shock");
    Look(&fish, 3.609375, "FX_RopeThing-shock");
}
