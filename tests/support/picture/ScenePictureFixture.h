// SPDX-License-Identifier: MIT
// The fixture for the picture of a scene at its telling moments: PictureFixture (read that first) with a
// window of 320 by 240 in the shows' band, under the real shaders and meshes. The textures are made here:
// plain patterns that show orientation, repeat and alpha, so that a picture may be repainted without a new
// golden image, and a texture that is turned, mirrored or swapped is seen at once.
//
//     class FX_LanternPicture : public ScenePictureFixture
//     {
//     };
//
//     TEST_F(FX_LanternPicture, TheLanternFlaresUp)
//     {
//         Lights({"lantern.png"});
//         FX_Lantern lantern;
//         Prepare(&lantern);
//         Send(&lantern, "light");
//         Look(&lantern, 0.5, "FX_Lantern-lit"); // tests/golden/FX_Lantern-lit.png
//     }
#pragma once

#include "tests/support/picture/PictureFixture.h"

#include <initializer_list>

class ScenePictureFixture : public PictureFixture
{
protected:
    void SetUp() override;

    // The pictures that the scene asks for, before Prepare: a pattern for each, or a light that is black at
    // its border, as what is added must be.
    void Textures(std::initializer_list<const char*> names);
    void Lights(std::initializer_list<const char*> names);

    void ExpectPicture(const std::string& name);

    // Goes to this second of the scene without drawing on the way, draws it, and holds it against the golden
    // image of this name.
    void Look(Effect* effect, double until, const std::string& name);

    // For scenes that move in Render: passes these seconds with every frame drawn, each a quarter of a
    // second.
    void Play(Effect* effect, double seconds);
};
