// SPDX-License-Identifier: MIT
#include "tests/support/PictureFiles.h"

#include <cstdio> // jpeglib.h wants it first
#include <cstdlib>
#include <cstring>

#include <jpeglib.h>
#include <png.h>
#include <unistd.h>

static void Fail(const char* what, const std::string& path)
{
    fprintf(stderr, "%s %s\n", what, path.c_str());
    abort();
}

const unsigned char* Picture::At(int x, int y) const
{
    return &pixels[(size_t(y) * size_t(width) + size_t(x)) * size_t(components)];
}

Picture PlainPicture(int width, int height, int components, unsigned char red, unsigned char green,
                     unsigned char blue, unsigned char alpha)
{
    const unsigned char channels[] = {red, green, blue, alpha};
    Picture picture;
    picture.width = width;
    picture.height = height;
    picture.components = components;
    for (int i = 0; i < width * height; i++)
        picture.pixels.insert(picture.pixels.end(), channels, channels + components);
    return picture;
}

static png_uint_32 PngFormat(int components)
{
    return components == 4 ? PNG_FORMAT_RGBA : components == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_GRAY;
}

void SavePng(const std::string& path, const Picture& picture)
{
    png_image image;
    memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = png_uint_32(picture.width);
    image.height = png_uint_32(picture.height);
    image.format = PngFormat(picture.components);
    if (!png_image_write_to_file(&image, path.c_str(), 0, picture.pixels.data(), 0, nullptr))
        Fail("can't write", path);
}

void SaveJpeg(const std::string& path, const Picture& picture, bool progressive)
{
    FILE* const file = fopen(path.c_str(), "wb");
    if (!file)
        Fail("can't write", path);
    jpeg_compress_struct compress;
    jpeg_error_mgr errors;
    compress.err = jpeg_std_error(&errors);
    jpeg_create_compress(&compress);
    jpeg_stdio_dest(&compress, file);
    compress.image_width = JDIMENSION(picture.width);
    compress.image_height = JDIMENSION(picture.height);
    compress.input_components = picture.components;
    compress.in_color_space = picture.components == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&compress);
    jpeg_set_quality(&compress, 100, TRUE);
    if (progressive)
        jpeg_simple_progression(&compress);
    jpeg_start_compress(&compress, TRUE);
    while (compress.next_scanline < compress.image_height) {
        JSAMPROW row = const_cast<JSAMPROW>(picture.At(0, int(compress.next_scanline)));
        jpeg_write_scanlines(&compress, &row, 1);
    }
    jpeg_finish_compress(&compress);
    jpeg_destroy_compress(&compress);
    fclose(file);
}

void SavePicture(const std::string& path, const Picture& picture)
{
    if (path.size() > 4 && path.compare(path.size() - 4, 4, ".jpg") == 0)
        SaveJpeg(path, picture);
    else
        SavePng(path, picture);
}

Picture LoadPng(const std::string& path, int components)
{
    png_image image;
    memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str()))
        Fail("can't read", path);
    image.format = PngFormat(components);
    Picture picture;
    picture.width = int(image.width);
    picture.height = int(image.height);
    picture.components = components;
    picture.pixels.resize(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr))
        Fail("can't read", path);
    return picture;
}

bool FileExists(const std::string& path)
{
    return access(path.c_str(), R_OK) == 0;
}
