// SPDX-License-Identifier: MIT
// For tests that load pictures of a data folder of their own.
#pragma once

#include "kernel/Report.h"
#include "resources/TextureLoader.h"
#include "tests/resources/ImageLibrary.h"
#include "tests/support/PictureKinds.h"
#include "tests/support/ReadFile.h"
#include "tests/support/ShowFixture.h"

#include <IL/il.h>
#include <IL/ilu.h>

// 3 by 2 pixels of 24 bits: 9 bytes and 3 of padding a row, the lower row first.
inline std::string SmallBitmap()
{
    return std::string("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\3\0\0\0\2\0\0\0\1\0\x18\0", 30) +
           std::string(24, '\0') + std::string("lkjonmrqp\xEE\xEE\xEE", 12) +
           std::string("cbafedihg\xEE\xEE\xEE", 12);
}

typedef std::vector<unsigned char> Bytes;

class ImageFixture : public ShowFixture
{
protected:
    ImageFixture() : loader(TextureLoader::GetInstance()) {}

    ~ImageFixture() override
    {
        for (ImageData& image : images)
            FreeImage(&image);
        ForgetPictureIntegers();
    }

    // Hands the image on and frees its pixels with the fixture.
    ImageData Keep(ImageData image)
    {
        images.push_back(image);
        return image;
    }

    Bytes Pixels(const ImageData& image, int bytesPerPixel) const
    {
        return Bytes(image.data, image.data + image.width * image.height * bytesPerPixel);
    }

    ImageData LoadPngOf(PngColour colour, int depth, int bytesPerPixel, bool interlaced = false)
    {
        RawPng png;
        png.width = 33;
        png.height = 17;
        png.colour = colour;
        png.depth = depth;
        png.interlaced = interlaced;
        png.bytes = PatternBytes(33, 17, bytesPerPixel);
        if (colour == PngPalette) {
            png.palette = PatternBytes(16, 16, 3);
        }
        SaveRawPng(PathOf("picture.png"), png);
        const ImageData image = Keep(loader->LoadImage("picture.png"));
        EXPECT_TRUE(boxes.empty());
        EXPECT_EQ(33, image.width);
        EXPECT_EQ(17, image.height);
        return image;
    }

    // There are no pixels, and there was one box with this text and one quit.
    void ExpectFailure(const ImageData& image, std::string text)
    {
        EXPECT_EQ(nullptr, image.data);
        EXPECT_EQ(0, image.width);
        EXPECT_EQ(0, image.height);
        EXPECT_EQ(3, image.components);
        ASSERT_EQ(1u, boxes.size());
        EXPECT_EQ("Marlinex 1.5 Error: Texture Loader", boxes[0].caption);
        EXPECT_EQ("Bad: " + text + ErrorTail, boxes[0].body);
        EXPECT_TRUE(QuitWasPosted());
        boxes.clear();
    }

    std::string Complaint(std::string name, const char* words) const
    {
        return PathOf(name) + ": Could not load texture. \n" + words;
    }

    std::string Complaint(std::string name, unsigned error) const
    {
        return PathOf(name) + ": Could not load texture. \n" + iluErrorString(error);
    }

    // A file that is cut off or broken may load or not, but it must do one of the two whole.
    void ExpectWholeAnswer(std::string name)
    {
        ImageData image = loader->LoadImage(name);
        if (image.data) {
            EXPECT_TRUE(boxes.empty());
            EXPECT_FALSE(QuitWasPosted());
            unsigned sum = 0; // every byte that GL would read is there
            for (int i = 0; i < image.width * image.height * image.components; i++)
                sum += image.data[i];
            EXPECT_LE(sum, 255u * unsigned(image.width * image.height * image.components));
        } else {
            EXPECT_EQ(1u, boxes.size());
            EXPECT_TRUE(QuitWasPosted());
        }
        FreeImage(&image);
        boxes.clear();
    }

    TextureLoader* loader;
    std::vector<ImageData> images;
};
