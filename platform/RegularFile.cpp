// SPDX-License-Identifier: MIT
#include "platform/RegularFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform
{

static int OpenFlags(const char* mode)
{
    const bool both = strchr(mode, '+') != nullptr;
    switch (mode[0]) {
    case 'w':
        return (both ? O_RDWR : O_WRONLY) | O_CREAT | O_TRUNC;
    case 'a':
        return (both ? O_RDWR : O_WRONLY) | O_CREAT | O_APPEND;
    default:
        return both ? O_RDWR : O_RDONLY;
    }
}

FILE* OpenRegularFile(const std::string& path, const char* mode)
{
    // Without O_NONBLOCK, opening a FIFO would block before fstat can tell what it is.
    const int descriptor = open(path.c_str(), OpenFlags(mode) | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return nullptr;
    struct stat status;
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(descriptor);
        errno = EINVAL;
        return nullptr;
    }
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    FILE* const file = fdopen(descriptor, mode);
    if (!file)
        close(descriptor);
    return file;
}

bool IsRegularFile(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace platform
