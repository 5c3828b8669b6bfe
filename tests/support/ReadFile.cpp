// SPDX-License-Identifier: MIT
#include "tests/support/ReadFile.h"

#include <fstream>
#include <iterator>

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}
