// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

// Returns all bytes of a file, or an empty string if it can't be read.
std::string ReadFile(const std::filesystem::path& path);
