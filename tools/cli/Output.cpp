// SPDX-License-Identifier: MIT
#include "tools/cli/Output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace cli
{

bool WriteOutput(const std::string& path, const std::string& text, std::string* reason)
{
    const bool standard = path == "-";
    FILE* const file = standard ? stdout : fopen(path.c_str(), "wb");
    if (!file) {
        *reason = strerror(errno);
        return false;
    }
    bool written = fwrite(text.data(), 1, text.size(), file) == text.size();
    written = fflush(file) == 0 && written;
    const int cause = errno;
    if (!standard)
        written = fclose(file) == 0 && written;
    if (!written)
        *reason = strerror(cause);
    return written;
}

} // namespace cli
