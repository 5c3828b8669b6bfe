// SPDX-License-Identifier: MIT
// The fixture for the picture of a scene at its telling moments: PictureFixture (read that first) with a
// window of 320 by 240 in the shows' band, under the real shaders and models. The textures are made here:
// plain patterns that show orientation, repeat and alpha, so that a picture may be repainted without a new
// golden image, and a texture that is turned, mirrored or swapped is seen at once.
//
//     class FX_LanternPicture : public ScenePictureFixture
//     {
//     };
//
//     TEST_F(FX_LanternPicture, TheLanternFlaresUp)
//     {
//         AddFiles(FX_Lantern::files);
//         FX_Lantern lantern;
//         Prepare(&lantern);
//         Send(&lantern, "light");
//         Look(&lantern, 0.5, "FX_Lantern-lit"); // tests/golden/FX_Lantern-lit.png
//     }
#pragma once

#include "kernel/EffectRecord.h"
#include "tests/support/picture/PictureFixture.h"

class ScenePictureFixture : public PictureFixture
{
protected:
    void SetUp() override;

    // What the scene loads, before Prepare: a pattern for each of its textures, light that is black at its
    // border for each of its lights, and the production's own models and shaders.
    void AddFiles(const EffectFiles& files);

    // Such a light in the place of a pattern: for a texture that a shader reads as a mask.
    void AddLight(const std::string& name);

    void ExpectPicture(const std::string& name);

    // Goes to this second of the scene without drawing on the way, draws it, and holds it against the golden
    // image of this name.
    void Look(Effect* effect, double until, const std::string& name);

    // For scenes that move in Render: passes these seconds with every frame drawn, each a quarter of a
    // second.
    void Play(Effect* effect, double seconds);
};
