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
            EXPECT_LE(blue, brightest + noise) << x << " " << y;
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
