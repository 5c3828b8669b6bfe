// SPDX-License-Identifier: MIT
// What ffprobe finds in a video file.
#pragma once

#include "tools/capture/Encoding.h"
#include "tools/capture/OutputFile.h"

namespace capture
{

// How many frames the first video stream of a file has. -1: there is none, or the file can't be read, and
// *error says so. Reads the whole file, but decodes nothing.
int64_t CountFrames(const std::string& path, std::string* error);

// Gives a video its final name if it can be read and holds the frames that were written into it, and removes
// it otherwise: the exit status of an encoder is no proof. A stream can't be read again and is only closed.
// False: *error says why.
bool KeepVideo(OutputFile& file, const Encoding& encoding, int64_t frames, std::string* error);

} // namespace capture
