// SPDX-License-Identifier: MIT
// The parts of a video as one: pictures as they are, the music anew from its file, so that it has no seams.
#pragma once

#include "tools/capture/Encoding.h"
#include "tools/capture/MusicTrack.h"
#include "tools/capture/OutputFile.h"
#include "tools/capture/Schedule.h"

namespace capture
{

// The schedule is that of the whole; the file is open; track is null for a silent video. False: *error says
// why. Parts whose frames are not as many as the schedule's are refused before anything is written.
bool JoinParts(const std::vector<std::string>& parts, OutputFile& file, const Encoding& encoding,
               const Schedule& schedule, MusicTrack* track, std::string* error);

} // namespace capture
