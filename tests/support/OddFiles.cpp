// SPDX-License-Identifier: MIT
#include "tests/support/OddFiles.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

static void MakeFolder(const std::string& path)
{
    std::filesystem::create_directory(path);
}

static void MakeFifo(const std::string& path)
{
    if (mkfifo(path.c_str(), 0600) != 0)
        abort();
}

static void LinkToZeros(const std::string& path)
{
    std::filesystem::create_symlink("/dev/zero", path);
}

static void LinkToItself(const std::string& path)
{
    std::filesystem::create_symlink(std::filesystem::path(path).filename(), path);
}

static void LinkToNothing(const std::string& path)
{
    std::filesystem::create_symlink("/no/such/file", path);
}

const std::vector<OddFile>& OddFiles()
{
    static const std::vector<OddFile> kinds = {
        {"a folder", MakeFolder},
        {"a FIFO", MakeFifo},
        {"an endless device", LinkToZeros},
        {"a link to itself", LinkToItself},
        {"a link to nothing", LinkToNothing},
    };
    return kinds;
}
