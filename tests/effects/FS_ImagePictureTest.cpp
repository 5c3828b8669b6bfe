// SPDX-License-Identifier: MIT
#include "effects/FS_Image.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FS_ImagePicture : public ScenePictureFixture
{
};

TEST_F(FS_ImagePicture, LightTravelsThroughThePainting)
{
    Textures({"ochre_painting1.jpg"});
    Lights({"glowmask.jpg"});
    FS_Image image("ochre_painting1.jpg");
    Prepare(&image);
    Look(&image, 0.5, "FS_Image-plain");
    Send(&image, "fade");
    Look(&image, 1.5, "FS_Image-glow");
    Look(&image, 14, "FS_Image-late");
}
