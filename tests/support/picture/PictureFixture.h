// SPDX-License-Identifier: MIT
// The fixture of picture tests: StageFixture (read that first) with a real window and GL context of SDL's
// offscreen driver, drawn by Mesa's software rasteriser. Neither a display nor a graphics card is needed.
//
//     class BlackFlashOverlayPicture : public PictureFixture
//     {
//     };
//
//     TEST_F(BlackFlashOverlayPicture, TheBlackFlashDarkensWhatLiesBelow)
//     {
//         BlackFlashOverlay overlay;
//         Open(320, 240);
//         Prepare(&overlay);
//         Send(&overlay, "flash");
//         Frame(&overlay);
//         EXPECT_TRUE(MatchesGolden(Grab(), "BlackFlashOverlay-peak", Tolerance("the picture is plain")));
//     }
//
// The data directory is the production's own (UseOwnData takes the one of the test, with AddPicture and
// AddFile). One process opens one window, so picture tests run through ctest, which gives each a process of
// its own.
#pragma once

#include "tests/support/StageFixture.h"
#include "tests/support/picture/Golden.h"

class PictureFixture : public StageFixture
{
protected:
    PictureFixture();
    ~PictureFixture() override;

    // Opens the window, with a context of the compatibility profile; use ASSERT_TRUE. What the sequencer sets
    // ahead of a show is set: clear colour black, letterbox of the whole window, perspective of 45 degrees.
    bool Open(int width, int height);

    // The back buffer of the window as it is now, RGB.
    Picture Grab() const;

    // A quad over the whole window in the current colour, as effects draw a picture: t = 0 at the top.
    static void DrawWindowQuad();

    // From here on each swap's picture is kept as well; the last one stands in `shown`.
    void GrabAtSwaps();
    Picture shown;
    int swaps;

private:
    static void FrameDone(void* fixture);

    int width, height;
};
