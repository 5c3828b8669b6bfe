// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace edit
{

// Keeps this process, which plays the show, from taking the machine with it: it gets no more than so many bytes for its
// data (0: as many as there are), writes no core file, and is the first to end if the system's memory runs out all the
// same.
void LimitProcess(uint64_t memoryLimit);

} // namespace edit
