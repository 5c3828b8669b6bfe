// SPDX-License-Identifier: MIT
#include "effects/FS_Image.h"

#include "tests/support/picture/ScenePictureFixture.h"

class FS_ImagePicture : public ScenePictureFixture
{
};

TEST_F(FS_ImagePicture, LightTravelsThroughThePainting)
{
    AddFiles(FS_Image::files);
    AddLight("glowmask.jpg");
    FS_Image image(FS_Image::files.textures[0]);
    Prepare(&image);
    Look(&image, 0.5, "FS_Image-plain");
    Send(&image, "fade");
    Look(&image, 1.5, "FS_Image-glow");
    Look(&image, 8.5, "FS_Image-late");
    Look(&image, 14, "FS_Image-night");
}
