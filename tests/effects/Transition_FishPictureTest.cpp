// SPDX-License-Identifier: MIT
#include "effects/Transition_Fish.h"

#include "tests/support/picture/ScenePictureFixture.h"

#include <GL/glew.h>

class Transition_FishPicture : public ScenePictureFixture
{
};

TEST_F(Transition_FishPicture, TheBonesOpenOnWhatLiesBelow)
{
    AddFiles(Transition_Fish::files);
    glClearColor(0.5f, 0.4f, 0.3f, 1);
    Transition_Fish fish;
    Prepare(&fish);
    Look(&fish, 0.125, "Transition_Fish-bone");
    Look(&fish, 1.5, "Transition_Fish-half-way");
    Look(&fish, 4, "Transition_Fish-open");
}
