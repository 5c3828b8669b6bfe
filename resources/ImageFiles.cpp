// SPDX-License-Identifier: MIT
#include "resources/ImageFiles.h"

#include <IL/il.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>

const uintmax_t maxFileBytes = 256u << 20;

std::string ReadPictureFile(const std::string& path)
{
    namespace fs = std::filesystem;
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return "";
    const uintmax_t size = fs::file_size(path, error);
    if (error || size > maxFileBytes)
        return "";
    FILE* file = fopen(path.c_str(), "rb");
    if (!file)
        return "";
    std::string bytes(size, '\0');
    bytes.resize(fread(bytes.data(), 1, bytes.size(), file));
    fclose(file);
    return bytes;
}

struct OpenPicture {
    std::string bytes;
    size_t position; // may lie past the end, as in a file
};

static ILHANDLE ILAPIENTRY OpenForLibrary(ILconst_string path)
{
    const std::string bytes = ReadPictureFile(path);
    return bytes.empty() ? nullptr : new OpenPicture{bytes, 0};
}

static void ILAPIENTRY CloseForLibrary(ILHANDLE handle)
{
    delete static_cast<OpenPicture*>(handle);
}

static ILboolean ILAPIENTRY AtEndForLibrary(ILHANDLE handle)
{
    const OpenPicture* picture = static_cast<OpenPicture*>(handle);
    return picture->position >= picture->bytes.size();
}

static ILint ILAPIENTRY GetByteForLibrary(ILHANDLE handle)
{
    OpenPicture* picture = static_cast<OpenPicture*>(handle);
    if (picture->position >= picture->bytes.size())
        return EOF;
    return static_cast<unsigned char>(picture->bytes[picture->position++]);
}

static ILint ILAPIENTRY ReadForLibrary(void* buffer, ILuint size, ILuint count, ILHANDLE handle)
{
    OpenPicture* picture = static_cast<OpenPicture*>(handle);
    const size_t wanted = size_t{size} * count;
    const size_t left = picture->bytes.size() - std::min(picture->bytes.size(), picture->position);
    const size_t got = std::min(wanted, left);
    if (wanted > 0)
        memset(buffer, 0, wanted);
    if (got > 0)
        memcpy(buffer, picture->bytes.data() + picture->position, got);
    picture->position += got;
    return size > 0 ? static_cast<ILint>(got / size) : 0;
}

static ILint ILAPIENTRY SeekForLibrary(ILHANDLE handle, ILint offset, ILint mode)
{
    OpenPicture* picture = static_cast<OpenPicture*>(handle);
    int64_t from = 0;
    if (mode == IL_SEEK_CUR)
        from = static_cast<int64_t>(picture->position);
    else if (mode == IL_SEEK_END)
        from = static_cast<int64_t>(picture->bytes.size());
    if (from + offset < 0)
        return -1;
    picture->position = static_cast<size_t>(from + offset);
    return 0;
}

static ILint ILAPIENTRY TellForLibrary(ILHANDLE handle)
{
    return static_cast<ILint>(static_cast<OpenPicture*>(handle)->position);
}

void GuardImageFiles()
{
    ilSetRead(OpenForLibrary, CloseForLibrary, AtEndForLibrary, GetByteForLibrary, ReadForLibrary,
              SeekForLibrary, TellForLibrary);
}
