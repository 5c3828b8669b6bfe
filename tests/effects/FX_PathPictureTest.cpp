// SPDX-License-Identifier: MIT
#include "effects/FX_Path.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FX_PathPicture : public ScenePictureFixture
{
};

TEST_F(FX_PathPicture, TheWalkLeadsToTheTreeAndTurnsAboutIt)
{
    AddFiles(FX_Path::files);
    FX_Path path;
    Prepare(&path);
    Play(&path, 7);
    Look(&path, 7.125, "FX_Path-walking");
    Play(&path, 7);
    Send(&path, "trigger_cam");
    Play(&path, 3);
    Send(&path, "tree1");
    Look(&path, 17.375, "FX_Path-lifting");
    for (int i = 0; i < 5; i++)
        Send(&path, "tree2");
    Look(&path, 17.5, "FX_Path-orbiting");
}
