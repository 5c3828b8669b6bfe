// SPDX-License-Identifier: MIT
#include "effects/FX_Footprint.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_FootprintPicture : public ScenePictureFixture
{
};

TEST_F(FX_FootprintPicture, PrintsCrossTheSandUntilItIsGone)
{
    AddFiles(FX_Footprint::files);
    FX_Footprint walk;
    Prepare(&walk);
    Look(&walk, 3, "FX_Footprint-sand");
    Send(&walk, "step");
    Look(&walk, 3.25, "FX_Footprint-one-step");
    Send(&walk, "step");
    Look(&walk, 3.5, "FX_Footprint-two-steps");
    Send(&walk, "trigger_base");
    Look(&walk, 4.5, "FX_Footprint-without-sand");
}
