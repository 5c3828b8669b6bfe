// SPDX-License-Identifier: MIT
#include "effects/FX_Credits.h"

#include "effects/FS_Image.h"
#include "effects/FX_Footprint.h"
#include "effects/FX_Path.h"
#include "effects/FX_RopeThing.h"
#include "effects/FX_Towers.h"
#include "effects/Transition_Fish.h"
#include "effects/WhiteFlashOverlay.h"
#include "tests/support/picture/ScenePictureFixture.h"

class FX_CreditsPicture : public ScenePictureFixture
{
};

TEST_F(FX_CreditsPicture, ATreeGrowsBesideEachName)
{
    AddFiles(FX_Credits::files);
    FX_Credits credits;
    Prepare(&credits);
    for (int step = 0; step < 8; step++) {
        Send(&credits, "fade_in");
        Look(&credits, 1.5 * (step + 1), "FX_Credits-step-" + std::to_string(step));
    }
}

// The names stand in a context of their own: no lamp, material, matrix or viewport of another scene may reach
// their tree, nor their picture on its way back.
TEST_F(FX_CreditsPicture, LooksTheSameWhateverRanBefore)
{
    for (const EffectFiles& files : {FX_Credits::files, FX_Path::files, FX_Towers::files, FX_RopeThing::files,
                                     FS_Image::files, FX_Footprint::files, Transition_Fish::files})
        AddFiles(files);
    FX_Credits credits;
    FX_Path path;
    FX_Towers towers;
    FX_RopeThing fish;
    FS_Image painting(FS_Image::files.textures[0]);
    FX_Footprint walk;
    Transition_Fish wipe;
    WhiteFlashOverlay flash;
    Effect* const others[6] = {&path, &towers, &fish, &painting, &walk, &wipe};
    Prepare(&credits);
    Prepare(&flash);
    for (Effect* other : others)
        Prepare(other);
    Send(&credits, "fade_in");
    Send(&credits, "fade_in");
    Play(&credits, 1.5);
    Frame(&credits);
    const Picture first = Grab();
    Send(&fish, "intro");
    for (Effect* other : others) {
        Play(other, 0.5);
        Frame(other);
        EXPECT_NE(first.pixels, Grab().pixels);
        // As in the show, where the flashes lie over every scene and switch blending off. Blending that
        // stands when the names begin does reach them: their off-screen picture has an alpha, and is blended
        // by it.
        Overlay(&flash);
        Frame(&credits);
        EXPECT_EQ(0, Compare(Grab(), first, 0).maximum);
    }
}
