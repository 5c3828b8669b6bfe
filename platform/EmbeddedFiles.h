// SPDX-License-Identifier: MIT
// Files that are part of the program itself: those of platform/embedded, which the build turns into a table
// of bytes (cmake/EmbedFiles.cmake). A file that is put there is found after the next build.
#pragma once

#include <cstddef>
#include <string>

namespace platform
{

struct EmbeddedFile {
    const char* name; // the bare file name, "start-form.png"; null in the row that ends a table
    const unsigned char* data;
    size_t size; // bytes
};

// The table that the build makes.
extern const EmbeddedFile embeddedFiles[];

// Looks a file up by its bare name, case-sensitively. True: *data and *size are its bytes, which belong to
// the table. False: there is no such file, and *data and *size are null and 0.
bool FindEmbeddedFile(const std::string& name, const unsigned char** data, size_t* size);

} // namespace platform
