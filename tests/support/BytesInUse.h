// SPDX-License-Identifier: MIT
// Returns the heap memory that the process has allocated and not freed, in bytes.
#pragma once

#include <cstddef>

size_t BytesInUse();
