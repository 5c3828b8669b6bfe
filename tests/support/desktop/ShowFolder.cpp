// SPDX-License-Identifier: MIT
#include "tests/support/desktop/ShowFolder.h"

#include "tests/Folders.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

ShowFolder::ShowFolder()
{
    char name[] = "/tmp/marlinex-show-XXXXXX";
    if (!mkdtemp(name))
        return;
    path = name;
    std::error_code error;
    fs::create_directory(path + "/Data", error);
}

ShowFolder::~ShowFolder()
{
    std::error_code error;
    if (!path.empty())
        fs::remove_all(path, error);
}

void ShowFolder::Write(const std::string& name, const std::string& text)
{
    std::ofstream(path + "/" + name, std::ios::binary) << text;
}

bool ShowFolder::CopyData(const std::string& name)
{
    std::error_code error;
    return fs::copy_file(SOURCE_DIR "/Data/" + name, path + "/Data/" + name, error);
}
