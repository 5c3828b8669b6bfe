// SPDX-License-Identifier: MIT
// Opens regular files and nothing else. A path may also lead to a folder, a FIFO without a writer or a device
// without an end: those count as files that can't be opened, so that no read ever blocks or runs forever.
#pragma once

#include <cstdio>
#include <string>

namespace platform
{

// fopen for regular files, also through symbolic links. Never waits. Null if the file can't be opened or is
// not a regular one; errno says why. The mode is one of fopen's: a first letter r, w or a, and a + anywhere
// behind it.
FILE* OpenRegularFile(const std::string& path, const char* mode);

// True if there is a regular file at the path, or a symbolic link that leads to one.
bool IsRegularFile(const std::string& path);

} // namespace platform
