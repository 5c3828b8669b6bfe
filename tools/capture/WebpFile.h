// SPDX-License-Identifier: MIT
// What stands in the container of an animated WebP file, which ffprobe can't read.
#pragma once

#include <cstdint>
#include <string>

namespace capture
{

// How long the frames of the file are shown together, in milliseconds: an encoder may join frames that are alike, so that
// their number tells less. 0: a still picture. -1: the file can't be read, is no WebP or ends too early, and *error says
// so.
int64_t AnimationLength(const std::string& path, std::string* error);

} // namespace capture
