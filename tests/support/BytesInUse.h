// SPDX-License-Identifier: MIT
// What the process has taken from the heap and not given back, in bytes.
#pragma once

#include <cstddef>

size_t BytesInUse();
