// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Score.h"
#include "art/music/Signal.h"

#include <string>

namespace waltz
{

// Plays the score from sample `from` to before sample `end` and mixes it in the room; no mastering yet. A
// window comes out as the same piece of the whole night would, but for what the room still remembered from
// before a silence of its own making: less than -60 dB of what sounds.
//
// With a folder each part is also written there as PART.wav, without the room, and the room as room.wav.
// False if one of them cannot be written.
bool RenderMix(const Score& score, int64_t from, int64_t end, const std::string& stemFolder, Stereo& mix);

} // namespace waltz
