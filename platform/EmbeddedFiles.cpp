// SPDX-License-Identifier: MIT
#include "platform/EmbeddedFiles.h"

#include "platform/EmbeddedFilesHooks.h"

namespace platform
{

static const EmbeddedFile* table = embeddedFiles;

bool FindEmbeddedFile(const std::string& name, const unsigned char** data, size_t* size)
{
    for (const EmbeddedFile* file = table; file->name; ++file)
        if (name == file->name) {
            *data = file->data;
            *size = file->size;
            return true;
        }
    *data = nullptr;
    *size = 0;
    return false;
}

void UseEmbeddedFiles(const EmbeddedFile* other)
{
    table = other ? other : embeddedFiles;
}

} // namespace platform
