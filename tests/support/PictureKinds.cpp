// SPDX-License-Identifier: MIT
#include "tests/support/PictureKinds.h"

#include <cstdio> // jpeglib.h wants it first
#include <cstdlib>

#include <jpeglib.h>
#include <png.h>

static FILE* OpenToWrite(const std::string& path)
{
    FILE* const file = fopen(path.c_str(), "wb");
    if (!file) {
        perror(path.c_str());
        abort();
    }
    return file;
}

std::vector<unsigned char> PatternBytes(int width, int height, int bytesPerPixel)
{
    std::vector<unsigned char> bytes;
    for (int i = 0; i < width * height * bytesPerPixel; i++)
        bytes.push_back(static_cast<unsigned char>(i * 37 + i / 7 + 11));
    return bytes;
}

void SaveRawPng(const std::string& path, const RawPng& png)
{
    FILE* const file = OpenToWrite(path);
    png_structp writer = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(writer);
    if (setjmp(png_jmpbuf(writer)))
        abort();
    png_init_io(writer, file);
    png_set_IHDR(writer, info, png_uint_32(png.width), png_uint_32(png.height), png.depth, png.colour,
                 png.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    std::vector<png_color> palette;
    for (size_t i = 0; i + 2 < png.palette.size(); i += 3)
        palette.push_back({png.palette[i], png.palette[i + 1], png.palette[i + 2]});
    if (!palette.empty())
        png_set_PLTE(writer, info, palette.data(), int(palette.size()));
    png_write_info(writer, info);
    const size_t rowBytes = png.bytes.size() / size_t(png.height);
    std::vector<png_bytep> rows;
    for (int y = 0; y < png.height; y++)
        rows.push_back(const_cast<png_bytep>(png.bytes.data() + size_t(y) * rowBytes));
    png_write_image(writer, rows.data());
    png_write_end(writer, info);
    png_destroy_write_struct(&writer, &info);
    fclose(file);
}

Picture SlopePicture(int width, int height)
{
    Picture picture;
    picture.width = width;
    picture.height = height;
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            picture.pixels.push_back(static_cast<unsigned char>(40 + 3 * x));
            picture.pixels.push_back(static_cast<unsigned char>(30 + 5 * y));
            picture.pixels.push_back(90);
        }
    return picture;
}
