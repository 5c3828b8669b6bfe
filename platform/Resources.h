// SPDX-License-Identifier: MIT
// Files that are part of the program itself: those of platform/resources, embedded when it is built
// (cmake/EmbedResources.cmake). A file put there is found at the next build.
#pragma once

#include <cstddef>
#include <string>

namespace platform
{

struct Resource {
    const char* name; // the bare file name, "start-form.png"; null in the row that ends the table
    const unsigned char* data;
    size_t size; // bytes
};

extern const Resource resources[];

// Looks a file up by its bare name, case and all. True: *data and *size are its bytes, which belong to the
// program and stay to its end. False: there is no such file, and *data and *size are null and 0.
bool FindResource(const std::string& name, const unsigned char** data, size_t* size);

// For tests: one resource more, found ahead of the table; null takes it off again. Borrowed.
void AddTestResource(const Resource* resource);

} // namespace platform
