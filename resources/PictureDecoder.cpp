// SPDX-License-Identifier: MIT
#include "resources/PictureDecoder.h"

#include "resources/ImageFiles.h"

#include <IL/il.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/wait.h>
#include <unistd.h>

const unsigned childSeconds = 10;
const unsigned largestSaneSide = 16384; // pixels; the library counts a picture's bytes in 32 bits

static unsigned Byte(const std::string& bytes, size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

static unsigned Big16(const std::string& bytes, size_t at)
{
    return Byte(bytes, at) << 8 | Byte(bytes, at + 1);
}

static bool SidesAreSane(unsigned width, unsigned height)
{
    return width <= largestSaneSide && height <= largestSaneSide;
}

static bool IsPng(const std::string& bytes)
{
    return bytes.compare(0, 8, "\x89PNG\r\n\x1A\n") == 0;
}

static bool IsJpeg(const std::string& bytes)
{
    return bytes.compare(0, 3, "\xFF\xD8\xFF") == 0;
}

// A header that is not all there counts as sane, here and below: the decoder says what is wrong with it.
static bool PngIsSane(const std::string& bytes)
{
    const size_t widthAt = 16;
    const size_t heightAt = 20;
    return bytes.size() < heightAt + 4 ||
           SidesAreSane(Big16(bytes, widthAt) << 16 | Big16(bytes, widthAt + 2),
                        Big16(bytes, heightAt) << 16 | Big16(bytes, heightAt + 2));
}

static bool StartsFrame(unsigned marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

static bool HasLength(unsigned marker)
{
    return marker > 0x01 && (marker < 0xD0 || marker > 0xD8);
}

// Goes from marker to marker as the decoder does, to the one that tells the sides.
static bool JpegIsSane(const std::string& bytes)
{
    const size_t heightAt = 5; // counted from the 0xFF in front of the marker
    const size_t widthAt = 7;
    size_t at = 2;
    while (at + widthAt + 2 <= bytes.size()) {
        const unsigned marker = Byte(bytes, at + 1);
        if (Byte(bytes, at) != 0xFF || marker == 0xFF)
            ++at; // padding, or junk that the decoder skips
        else if (StartsFrame(marker))
            return SidesAreSane(Big16(bytes, at + widthAt), Big16(bytes, at + heightAt));
        else
            at += 2 + (HasLength(marker) ? Big16(bytes, at + 2) : 0);
    }
    return true;
}

// By content first: left to itself the library goes by the extension, and a TGA named .jpg would fail.
static bool LoadForeign(const std::string& path)
{
    const ILenum type = ilDetermineType(path.c_str());
    return (type != IL_TYPE_UNKNOWN && ilLoad(type, path.c_str())) || ilLoadImage(path.c_str());
}

// The library can be left to itself where the extension doesn't lie.
static bool LoadKnown(const std::string& path, ILenum type)
{
    if (ilTypeFromExt(path.c_str()) == type)
        return ilLoadImage(path.c_str());
    return ilLoad(type, path.c_str());
}

static DecodedPicture TakePicture(bool loaded)
{
    DecodedPicture picture;
    picture.loaded = loaded;
    if (!loaded) {
        picture.error = ilGetError();
        return picture;
    }
    picture.width = ilGetInteger(IL_IMAGE_WIDTH);
    picture.height = ilGetInteger(IL_IMAGE_HEIGHT);
    picture.bytesPerPixel = ilGetInteger(IL_IMAGE_BYTES_PER_PIXEL);
    const size_t told = size_t(picture.width) * picture.height * picture.bytesPerPixel;
    const size_t held = ilGetInteger(IL_IMAGE_SIZE_OF_DATA);
    picture.pixels.assign(reinterpret_cast<const char*>(ilGetData()), std::min(told, held));
    return picture;
}

// What goes through the pipe in front of the pixels.
struct PictureHead {
    bool loaded;
    unsigned error;
    int width;
    int height;
    int bytesPerPixel;
    size_t bytes;
};

static bool WriteAll(int pipe, const void* data, size_t size)
{
    const char* from = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = write(pipe, from, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        from += written;
        size -= written;
    }
    return true;
}

static std::string ReadToEnd(int pipe)
{
    std::string all;
    char buffer[65536];
    for (;;) {
        const ssize_t got = read(pipe, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return all;
        all.append(buffer, got);
    }
}

static bool EndedWell(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

[[noreturn]] static void BeTheChild(const std::string& path, int pipe)
{
    alarm(childSeconds);
    const DecodedPicture picture = TakePicture(LoadForeign(path));
    const PictureHead head = {picture.loaded, picture.error,         picture.width,
                              picture.height, picture.bytesPerPixel, picture.pixels.size()};
    const bool sent =
        WriteAll(pipe, &head, sizeof head) && WriteAll(pipe, picture.pixels.data(), picture.pixels.size());
    _exit(sent ? 0 : 1);
}

static DecodedPicture DecodeInChild(const std::string& path)
{
    DecodedPicture picture;
    picture.error = IL_INTERNAL_ERROR; // unless the child lives to say otherwise
    int ends[2];
    if (pipe(ends) != 0)
        return picture;
    const pid_t child = fork();
    if (child == 0)
        BeTheChild(path, ends[1]);
    close(ends[1]);
    const std::string sent = child > 0 ? ReadToEnd(ends[0]) : "";
    close(ends[0]);
    PictureHead head;
    if (child < 0 || !EndedWell(child) || sent.size() < sizeof head)
        return picture;
    memcpy(&head, sent.data(), sizeof head);
    picture.loaded = head.loaded;
    picture.error = head.error;
    picture.width = head.width;
    picture.height = head.height;
    picture.bytesPerPixel = head.bytesPerPixel;
    picture.pixels = sent.substr(sizeof head, head.bytes);
    return picture;
}

DecodedPicture DecodePicture(const std::string& path)
{
    const std::string bytes = ReadPictureFile(path);
    if (bytes.empty()) // the library has words for that
        return TakePicture(ilLoadImage(path.c_str()));
    if (!IsPng(bytes) && !IsJpeg(bytes))
        return DecodeInChild(path);
    if (IsPng(bytes) ? PngIsSane(bytes) : JpegIsSane(bytes))
        return TakePicture(LoadKnown(path, IsPng(bytes) ? IL_PNG : IL_JPG));
    DecodedPicture refused;
    refused.error = IL_ILLEGAL_FILE_VALUE;
    return refused;
}
