// SPDX-License-Identifier: MIT
// What the painting's shader reads out of its mask.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

using namespace atelier;

// What the shader would have to read around each pixel stands in the mask's green and blue.
TEST(FS_ImagePictures, TheGlowMaskHoldsWhatLiesAroundItsWays)
{
    const Raster mask = LoadPicture("glowmask.jpg");
    ASSERT_EQ(1024, mask.width);
    const int reach = 13;
    // What compression adds at the few worst places; an unmeasured mask is off by 100 and more.
    const int noise = 24;
    // On the edges of limbs a way is so much fainter than the grey of its time.
    const double faintest = 0.36;
    int ways = 0, beside = 0, far = 0;
    for (int y = 16; y < mask.height - 16; y += 7)
        for (int x = 16; x < mask.width - 16; x += 7) {
            double sum = 0;
            int pixels = 0, brightest = 0, darkest = 255;
            for (int dy = -reach; dy <= reach; dy++)
                for (int dx = -reach; dx <= reach; dx++)
                    if (dx * dx + dy * dy <= 177) { // 13.3 squared
                        const int red = At(mask, x + dx, y + dy, 0);
                        sum += red;
                        pixels++;
                        brightest = std::max(brightest, red);
                        darkest = std::min(darkest, red);
                    }
            const int red = At(mask, x, y, 0), green = At(mask, x, y, 1), blue = At(mask, x, y, 2);
            EXPECT_NEAR(sum / pixels, green, noise) << x << " " << y;
            EXPECT_LE(blue * faintest, brightest + noise) << x << " " << y;
            if (red > 40) {
                ways++;
                EXPECT_GT(blue, red * 0.75) << x << " " << y;
            } else if (red < 10 && green > 20) {
                beside++;
                EXPECT_GT(blue, brightest * 0.5) << "the time of the way beside it " << x << " " << y;
            } else if (brightest < 8) {
                far++;
                EXPECT_LT(green, 8) << "nothing to be lit " << x << " " << y;
                EXPECT_LT(blue, 8 + noise) << x << " " << y;
            }
        }
    EXPECT_GT(ways, 500);
    EXPECT_GT(beside, 500);
    EXPECT_GT(far, 500);
}

// A light along the middle of an arm or a leg makes a glass tube of it: it runs along their edges.
TEST(FS_ImagePictures, NoLimbOfTheDancersShinesFromWithin)
{
    const Raster mask = LoadPicture("glowmask.jpg");
    ASSERT_EQ(3, mask.channels);
    // His sleeve, thigh and shin; her raised arm below and above the elbow; her calf.
    for (const auto& [x, y] :
         {std::pair(300, 296), {530, 562}, {585, 640}, {230, 655}, {782, 284}, {840, 240}, {385, 664}})
        EXPECT_LT(At(mask, x, y, 0), 30) << x << " " << y;
    // The coat's stripes, the hair and the furrows do shine.
    for (const auto& [left, y, times] : {std::tuple(360, 420, 120), {830, 520, 180}, {640, 700, 180}}) {
        int brightest = 0;
        for (int x = left; x < left + 60; x++)
            brightest = std::max(brightest, At(mask, x, y, 0));
        EXPECT_GT(brightest, times * 0.6) << left << " " << y;
    }
}
