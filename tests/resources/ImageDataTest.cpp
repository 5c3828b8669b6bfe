// SPDX-License-Identifier: MIT
#include "resources/ImageData.h"

#include <gtest/gtest.h>

#include <vector>

typedef std::vector<unsigned char> Bytes;

TEST(ImageDataRecord, StartsAsAFailureOfThreeComponents)
{
    const ImageData image;
    EXPECT_EQ(nullptr, image.data);
    EXPECT_EQ(0, image.width);
    EXPECT_EQ(0, image.height);
    EXPECT_EQ(3, image.components);
}

TEST(ImageDataRecord, PixelsAreZerosAndThereEvenIfThereAreNone)
{
    unsigned char* const pixels = AllocatePixels(1000);
    EXPECT_EQ(Bytes(1000), Bytes(pixels, pixels + 1000));
    FreePixels(pixels);
    unsigned char* const none = AllocatePixels(0);
    EXPECT_NE(nullptr, none);
    FreePixels(none);
}

TEST(ImageDataRecord, FreeingKeepsTheSizesAndMayBeDoneTwice)
{
    ImageData image;
    image.data = AllocatePixels(12);
    image.width = 2;
    image.height = 2;
    FreeImage(&image);
    EXPECT_EQ(nullptr, image.data);
    EXPECT_EQ(2, image.width);
    EXPECT_EQ(2, image.height);
    FreeImage(&image);
}
