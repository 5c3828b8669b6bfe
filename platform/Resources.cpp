// SPDX-License-Identifier: MIT
#include "platform/Resources.h"

namespace platform
{

static const Resource* testResource = nullptr;

bool FindResource(const std::string& name, const unsigned char** data, size_t* size)
{
    if (testResource && name == testResource->name) {
        *data = testResource->data;
        *size = testResource->size;
        return true;
    }
    for (const Resource* resource = resources; resource->name; ++resource)
        if (name == resource->name) {
            *data = resource->data;
            *size = resource->size;
            return true;
        }
    *data = nullptr;
    *size = 0;
    return false;
}

void AddTestResource(const Resource* resource)
{
    testResource = resource;
}

} // namespace platform
