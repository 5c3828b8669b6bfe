// SPDX-License-Identifier: MIT
#include "resources/PictureDecoder.h"

#include "platform/ChildProcess.h"
#include "resources/ImageData.h"
#include "resources/ImageFiles.h"
#include "resources/PictureClaims.h"

#include <IL/il.h>
#include <IL/ilu.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

static const unsigned childSeconds = 10;
static const rlim_t childMemory = rlim_t{2} << 30; // bytes
static const int maxBytesPerPixel = 32;            // four doubles

static bool IsPng(const std::string& bytes)
{
    return bytes.compare(0, 8, "\x89PNG\r\n\x1A\n") == 0;
}

static bool IsJpeg(const std::string& bytes)
{
    return bytes.compare(0, 3, "\xFF\xD8\xFF") == 0;
}

static std::string LibraryWords(unsigned error)
{
    const char* const words = iluErrorString(error);
    return words ? words : "";
}

// Loads a picture by the type that its content shows, and where it shows none by its extension. The library alone
// goes by the extension, and fails on a TGA named .jpg.
static bool LoadForeign(const std::string& path, ILenum type)
{
    return (type != IL_TYPE_UNKNOWN && ilLoad(type, path.c_str())) || ilLoadImage(path.c_str());
}

// The same for JPEG and PNG. Where the extension is right, the library may choose its reader itself.
static bool LoadKnown(const std::string& path, ILenum type)
{
    if (ilTypeFromExt(path.c_str()) == type)
        return ilLoadImage(path.c_str());
    return ilLoad(type, path.c_str());
}

// The state of a picture in the library. The child process sends it through the pipe ahead of the pixels.
struct PictureHead {
    bool loaded;
    unsigned error; // if not loaded: the library's code
    int width;
    int height;
    int bytesPerPixel;
};

static size_t HeldBytes(const PictureHead& head)
{
    return size_t(head.width) * size_t(head.height) * size_t(head.bytesPerPixel);
}

static PictureHead HeadOf(bool loaded)
{
    PictureHead head = {};
    head.loaded = loaded;
    if (loaded) {
        head.width = ilGetInteger(IL_IMAGE_WIDTH);
        head.height = ilGetInteger(IL_IMAGE_HEIGHT);
        head.bytesPerPixel = ilGetInteger(IL_IMAGE_BYTES_PER_PIXEL);
    } else {
        head.error = ilGetError();
    }
    return head;
}

// Allocates the pixels, which the caller then fills in. After a broken file the sizes in the library may be anything,
// so that they are checked first.
static DecodedPicture MakePicture(const PictureHead& head, size_t fileBytes)
{
    DecodedPicture picture;
    if (!head.loaded) {
        picture.complaint = LibraryWords(head.error);
        return picture;
    }
    if (head.width <= 0 || head.height <= 0 || head.bytesPerPixel <= 0 ||
        head.bytesPerPixel > maxBytesPerPixel) {
        picture.complaint = LibraryWords(IL_ILLEGAL_FILE_VALUE);
        return picture;
    }
    const PictureClaim claim = LoosestPictureClaim(uint64_t(head.width), uint64_t(head.height));
    if (const char* const refusal = WhyPictureIsRefused(claim, fileBytes)) {
        picture.complaint = refusal;
        return picture;
    }
    picture.width = head.width;
    picture.height = head.height;
    picture.bytesPerPixel = head.bytesPerPixel;
    picture.pixels = AllocatePixels(std::max(HeldBytes(head), size_t(head.width) * size_t(head.height) * 3));
    if (!picture.pixels)
        picture.complaint = LibraryWords(IL_OUT_OF_MEMORY);
    return picture;
}

static DecodedPicture DecodeInPlace(const std::string& path, ILenum type, size_t fileBytes)
{
    const PictureHead head = HeadOf(LoadKnown(path, type));
    DecodedPicture picture = MakePicture(head, fileBytes);
    if (picture.pixels)
        memcpy(picture.pixels, ilGetData(),
               std::min(HeldBytes(head), size_t(ilGetInteger(IL_IMAGE_SIZE_OF_DATA))));
    return picture;
}

static bool ReadAll(int pipe, void* data, size_t size)
{
    char* to = static_cast<char*>(data);
    while (size > 0) {
        const ssize_t got = read(pipe, to, size);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        to += got;
        size -= size_t(got);
    }
    return true;
}

// Limits the child's address space to what it inherited from the show and childMemory more.
static void LimitMemory()
{
    unsigned long pages = 0;
    FILE* file = fopen("/proc/self/statm", "r");
    const bool known = file && fscanf(file, "%lu", &pages) == 1;
    if (file)
        fclose(file);
    rlimit limit;
    if (!known || getrlimit(RLIMIT_AS, &limit) != 0)
        return;
    limit.rlim_cur = std::min(limit.rlim_max, rlim_t(pages) * rlim_t(sysconf(_SC_PAGESIZE)) + childMemory);
    setrlimit(RLIMIT_AS, &limit);
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
}

// The whole work of the child process.
[[noreturn]] static void DecodeAndSend(const std::string& path, const std::string& bytes, int pipe)
{
    std::signal(SIGALRM, SIG_DFL); // whatever the process that this one was forked from does with it
    alarm(childSeconds);
    LimitMemory();
    const ILenum type = ilDetermineType(path.c_str());
    const char* const refusal = WhyPictureIsRefused(ReadPictureClaim(type, bytes), bytes.size());
    const size_t refusalLength = refusal ? strlen(refusal) : 0;
    bool sent = platform::WriteAll(pipe, &refusalLength, sizeof refusalLength) &&
                platform::WriteAll(pipe, refusal, refusalLength);
    if (sent && !refusal) {
        const PictureHead head = HeadOf(LoadForeign(path, type));
        const size_t held = head.loaded ? size_t(uint32_t(ilGetInteger(IL_IMAGE_SIZE_OF_DATA))) : 0;
        sent = platform::WriteAll(pipe, &head, sizeof head) &&
               platform::WriteAll(pipe, ilGetData(), std::min(HeldBytes(head), held));
    }
    _exit(sent ? 0 : 1);
}

static bool ReceivePicture(int pipe, size_t fileBytes, DecodedPicture* picture)
{
    size_t refusalLength = 0;
    if (!ReadAll(pipe, &refusalLength, sizeof refusalLength) || refusalLength > 200)
        return false;
    if (refusalLength > 0) {
        picture->complaint.resize(refusalLength);
        return ReadAll(pipe, picture->complaint.data(), refusalLength);
    }
    PictureHead head;
    if (!ReadAll(pipe, &head, sizeof head))
        return false;
    *picture = MakePicture(head, fileBytes);
    return !picture->pixels || ReadAll(pipe, picture->pixels, HeldBytes(head));
}

static DecodedPicture DecodeInChild(const std::string& path, const std::string& bytes)
{
    DecodedPicture failed;
    failed.complaint = LibraryWords(IL_INTERNAL_ERROR); // unless the child lives to say otherwise
    int ends[2];
    if (pipe(ends) != 0)
        return failed;
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]); // a pipe with no other reader ends the child when the picture is refused halfway
        DecodeAndSend(path, bytes, ends[1]);
    }
    close(ends[1]);
    DecodedPicture picture;
    const bool received = child > 0 && ReceivePicture(ends[0], bytes.size(), &picture);
    close(ends[0]);
    while (child > 0 && waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    if (received)
        return picture;
    FreePixels(picture.pixels);
    return failed;
}

DecodedPicture DecodePicture(const std::string& path)
{
    std::string bytes = ReadPictureFile(path);
    DecodedPicture refused;
    if (bytes.empty()) { // the library has words for that
        ilLoadImage(path.c_str());
        refused.complaint = LibraryWords(ilGetError());
        return refused;
    }
    if (!IsPng(bytes) && !IsJpeg(bytes))
        return DecodeInChild(path, bytes);
    const ILenum type = IsPng(bytes) ? IL_PNG : IL_JPG;
    const size_t fileBytes = bytes.size();
    if (type == IL_JPG && JpegEndsInSegment(bytes)) {
        refused.complaint = PictureTooShort;
        return refused;
    }
    if (const char* const refusal = WhyPictureIsRefused(ReadPictureClaim(type, bytes), fileBytes)) {
        refused.complaint = refusal;
        return refused;
    }
    bytes = std::string(); // the library reads the file again
    return DecodeInPlace(path, type, fileBytes);
}
