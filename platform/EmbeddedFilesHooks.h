// SPDX-License-Identifier: MIT
// How tests replace the embedded files.
#pragma once

#include "platform/EmbeddedFiles.h"

namespace platform
{

// Puts another table, which is borrowed, in place of the program's own; null restores that.
void UseEmbeddedFiles(const EmbeddedFile* table);

} // namespace platform
