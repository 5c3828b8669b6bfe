// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

// All bytes of a file; nothing if it can't be read.
std::string ReadFile(const std::filesystem::path& path);
