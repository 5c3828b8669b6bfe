// SPDX-License-Identifier: MIT
// Concatenates the parts of a video. The encoded pictures are copied; the music is encoded anew from its
// file, so that there are no gaps in it.
#pragma once

#include "tools/capture/Encoding.h"
#include "tools/capture/FrameSelection.h"
#include "tools/capture/MusicTrack.h"
#include "tools/capture/OutputFile.h"

namespace capture
{

// The selection is that of the whole video. The file must be open. If track is null the result has no sound.
// Parts whose frames together are not as many as the selection has are refused before anything is written.
// False: *error says why.
bool JoinParts(const std::vector<std::string>& parts, OutputFile& file, const Encoding& encoding,
               const FrameSelection& selection, MusicTrack* track, std::string* error);

} // namespace capture
