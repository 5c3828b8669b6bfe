// SPDX-License-Identifier: MIT
#include "tools/cli/Input.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace cli
{

// 0 or what stands in errno.
static int ReadToEnd(int file, std::string* text)
{
    char piece[65536];
    for (;;) {
        const ssize_t got = read(file, piece, sizeof piece);
        if (got <= 0)
            return got < 0 ? errno : 0;
        if (text->size() + size_t(got) > MaxInputBytes)
            return EFBIG;
        text->append(piece, size_t(got));
    }
}

bool ReadInput(const std::string& path, std::string* text, std::string* reason)
{
    const bool standard = path == "-";
    const int file = standard ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const int cause = file < 0 ? errno : ReadToEnd(file, text);
    if (!standard && file >= 0)
        close(file);
    if (cause)
        *reason = strerror(cause);
    return cause == 0;
}

} // namespace cli
