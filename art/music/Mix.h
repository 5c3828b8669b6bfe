// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Score.h"
#include "art/music/Signal.h"

#include <string>

namespace waltz
{

// Plays the score from sample `from` to before sample `end` and mixes it in the room, without mastering. The window sounds
// as the same piece of the whole night does, except for the reverberation of what was played more than nine seconds
// before it, which is below -60 dB.
//
// With a folder each part is also written there as PART.wav, without the room, and the room as room.wav.
// False if one of them cannot be written.
bool RenderMix(const Score& score, int64_t from, int64_t end, const std::string& stemFolder, Stereo& mix);

} // namespace waltz
