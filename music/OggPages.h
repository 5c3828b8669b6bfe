// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

// How many frames the last page of an Ogg file holds, at most, at 48000 Hz or the rate of the file, whichever
// is more. A file that has no two pages near its end, or whose last two contradict each other, gives the most
// frames that a page can hold. Reads the last 130 KB of the file.
int64_t LastOggPageFrames(const std::string& path);
