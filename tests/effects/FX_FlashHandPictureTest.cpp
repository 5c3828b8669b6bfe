// SPDX-License-Identifier: MIT
#include "effects/FX_FlashHand.h"

#include "tests/support/picture/ScenePictureFixture.h"

#include <GL/glew.h>

class FX_FlashHandPicture : public ScenePictureFixture
{
};

TEST_F(FX_FlashHandPicture, ThePhotographJumpsRestsAndBlursAway)
{
    AddFiles(FX_FlashHand::files);
    glClearColor(0.2f, 0.25f, 0.4f, 1);
    FX_FlashHand hand;
    Prepare(&hand);
    Send(&hand, "flash");
    Look(&hand, 0.03125, "FX_FlashHand-jump");
    Look(&hand, 1, "FX_FlashHand-rest");
    Look(&hand, 3, "FX_FlashHand-blurred");
}
