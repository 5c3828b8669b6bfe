// SPDX-License-Identifier: MIT
#include "tools/cli/Output.h"

#include "tools/cli/ReplaceFile.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace cli
{

namespace fs = std::filesystem;

// Writes and, but for standard output, closes. The cause of a failure is in errno.
static bool WriteText(FILE* file, const std::string& text)
{
    const bool written = fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool flushed = fflush(file) == 0 && written;
    const int cause = errno;
    const bool closed = file == stdout || fclose(file) == 0;
    if (!flushed)
        errno = cause;
    return flushed && closed;
}

static bool WriteInto(const std::string& path, const std::string& text)
{
    FILE* const file = fopen(path.c_str(), "wb");
    return file && WriteText(file, text);
}

bool WriteOutput(const std::string& path, const std::string& text, std::string* reason)
{
    std::error_code error;
    const std::string target = FollowLinks(path);
    const fs::file_status there = fs::status(target, error);
    signal(SIGXFSZ, SIG_IGN); // a limit of the file's size is an error of write then
    bool written = false;
    if (path == "-")
        written = WriteText(stdout, text);
    else if (there.type() == fs::file_type::none)
        errno = error.value(); // a loop of links, a folder that may not be read
    else if (fs::exists(there) && !fs::is_regular_file(there))
        written = WriteInto(path, text); // a device or a pipe
    else
        written = ReplaceFile(target, text, Buffered, OwnerMayChange) ||
                  ((errno == EACCES || errno == EROFS) &&
                   WriteInto(path, text)); // a file of ours in a folder that is not
    if (!written)
        *reason = strerror(errno);
    return written;
}

} // namespace cli
