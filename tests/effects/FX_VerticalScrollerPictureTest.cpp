// SPDX-License-Identifier: MIT
#include "effects/FX_VerticalScroller.h"

#include "tests/support/picture/ScenePictureFixture.h"

#include <GL/glew.h>

class FX_VerticalScrollerPicture : public ScenePictureFixture
{
};

TEST_F(FX_VerticalScrollerPicture, ThePagesRiseAndComeToRest)
{
    AddFiles(FX_VerticalScroller::files);
    glClearColor(0.1f, 0.1f, 0.2f, 1);
    FX_VerticalScroller roll;
    Prepare(&roll);
    Look(&roll, 3, "FX_VerticalScroller-rising");
    Look(&roll, 14, "FX_VerticalScroller-two-pages");
    Send(&roll, "stopScroll");
    Look(&roll, 20, "FX_VerticalScroller-stopped");
}
