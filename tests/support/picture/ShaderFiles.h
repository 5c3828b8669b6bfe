// SPDX-License-Identifier: MIT
// The fixture for the production's own shader files on the software rasteriser: PictureFixture (read that first) with
// textures out of pixels, and the picture that the fixed pipeline draws, to compare with.
//
//     class MixShader : public ShaderFiles
//     {
//     };
//
//     TEST_F(MixShader, ShowsTheFirstPictureAtZero)
//     {
//         ASSERT_TRUE(Open(64, 64));
//         Texture texture;
//         MakeTexture(&texture, SlopePicture(64, 64));
//         const Picture plain = DrawPlain(&texture);
//         ...                                          // the same quad under the shader: DrawQuad, then Grab
//     }
#pragma once

#include "tests/support/picture/PictureFixture.h"

class Texture;

class ShaderFiles : public PictureFixture
{
protected:
    // A texture of these pixels, as the loader would make it; repeating like those of the effects.
    static void MakeTexture(Texture* texture, const Picture& picture);

    // A square RGB picture: grey at the middle of each pixel as bright as the function says, from 0 to 1. x grows to
    // the right and y downward, both from 0 to 1.
    static Picture Paint(int side, float (*brightness)(float x, float y));

    // A quad over the whole window, t = 0 at the top, in this colour. The depth test is off from here on.
    static void DrawQuad(float red = 1, float green = 1, float blue = 1, float alpha = 1);

    // What the fixed pipeline makes of it.
    Picture DrawPlain(Texture* texture, float red = 1, float green = 1, float blue = 1,
                      float alpha = 1) const;

    // Over all channels, 0 to 255.
    static double MeanOf(const Picture& picture);
};
