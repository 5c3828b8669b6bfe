// SPDX-License-Identifier: MIT
#include "tools/capture/PngFile.h"

#include "tools/capture/FrameSink.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <png.h>

namespace capture
{

RgbPicture WithoutFourth(const Frame& frame)
{
    RgbPicture picture;
    picture.width = frame.width;
    picture.height = frame.height;
    picture.pixels.resize(size_t(frame.width) * size_t(frame.height) * 3);
    unsigned char* out = picture.pixels.data();
    for (int y = 0; y < frame.height; y++) {
        const unsigned char* in = frame.Row(y);
        for (int x = 0; x < frame.width; x++, in += 4, out += 3) {
            out[0] = in[0];
            out[1] = in[1];
            out[2] = in[2];
        }
    }
    return picture;
}

bool WritePng(const std::string& path, const RgbPicture& picture, bool quick, std::string* error)
{
    const std::string part = path + ".part";
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = png_uint_32(picture.width);
    image.height = png_uint_32(picture.height);
    image.format = PNG_FORMAT_RGB;
    image.flags = quick ? PNG_IMAGE_FLAG_FAST : 0;
    if (!png_image_write_to_file(&image, part.c_str(), 0, picture.pixels.data(), 0, nullptr)) {
        *error = path + ": " + image.message;
        png_image_free(&image);
        remove(part.c_str());
        return false;
    }
    if (rename(part.c_str(), path.c_str()) != 0) {
        *error = path + ": " + strerror(errno);
        remove(part.c_str());
        return false;
    }
    return true;
}

} // namespace capture
