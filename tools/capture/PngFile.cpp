// SPDX-License-Identifier: MIT
#include "tools/capture/PngFile.h"

#include "tools/capture/FrameSink.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <png.h>
#include <unistd.h>

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

static bool Write(int descriptor, const RgbPicture& picture, bool quick, std::string* error)
{
    const int copy = dup(descriptor); // which fclose may close
    FILE* const stream = copy < 0 ? nullptr : fdopen(copy, "wb");
    if (!stream) {
        *error = strerror(errno);
        if (copy >= 0)
            close(copy);
        return false;
    }
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = png_uint_32(picture.width);
    image.height = png_uint_32(picture.height);
    image.format = PNG_FORMAT_RGB;
    image.flags = quick ? PNG_IMAGE_FLAG_FAST : 0;
    errno = 0;
    const bool encoded =
        png_image_write_to_stdio(&image, stream, 0, picture.pixels.data(), 0, nullptr) && !ferror(stream);
    int cause = errno;
    const bool flushed = fclose(stream) == 0;
    if (encoded && flushed)
        return true;
    if (encoded)
        cause = errno;
    *error = cause ? strerror(cause) : image.message; // the library has no words but "Write Error"
    png_image_free(&image);
    return false;
}

bool WritePng(OutputFile& file, const RgbPicture& picture, bool quick, std::string* error)
{
    if (!Write(file.Descriptor(), picture, quick, error)) {
        file.Discard();
        return false;
    }
    const bool kept = file.Keep();
    *error = file.error;
    return kept;
}

} // namespace capture
