// SPDX-License-Identifier: MIT
#include "platform/Paths.h"

#include <filesystem>

namespace platform
{

static const char* const spellings[] = {"data\\", "Data\\", "data/", "Data/"};
static const size_t spellingLength = 5;

static std::string dataDirectory = "Data";

bool NamesDataDirectory(const std::string& name)
{
    for (const char* spelling : spellings)
        if (name.compare(0, spellingLength, spelling) == 0)
            return true;
    return false;
}

std::string DataPath(std::string name)
{
    if (NamesDataDirectory(name))
        name.erase(0, spellingLength);
    return dataDirectory + "/" + name;
}

std::string ResolvePath(std::string path)
{
    return NamesDataDirectory(path) ? DataPath(path) : path;
}

void SetDataDirectory(std::string directory)
{
    dataDirectory = directory;
}

std::string GetDataDirectory()
{
    return dataDirectory;
}

void FindDataDirectory(const std::string& production)
{
    namespace fs = std::filesystem;
    std::error_code error;
    if (fs::is_directory("Data", error)) {
        dataDirectory = "Data";
        return;
    }
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    if (error)
        return;
    const fs::path beside = executable.parent_path();
    const fs::path candidates[] = {
        beside / "Data",
        beside / ".." / "Data",
        beside / ".." / ".." / "Data", // build/<preset>/moonwaltz in the source tree
        beside / ".." / "share" / production / "Data",
    };
    for (const fs::path& candidate : candidates)
        if (fs::is_directory(candidate, error)) {
            dataDirectory = candidate.lexically_normal().string();
            return;
        }
}

} // namespace platform
