// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

#include <string>

namespace waltz
{

// 32-bit float WAV. False if it cannot be written.
bool WriteWave(const std::string& path, const Stereo& sound);

// Vorbis of quality 6. The same sound gives the same bytes: the stream's serial number, which the library
// throws dice for, is set to a fixed one. False if it cannot be written.
bool WriteVorbis(const std::string& path, const Stereo& sound);

// Any file that libsndfile reads, of two channels at 44100 Hz. False otherwise.
bool ReadSound(const std::string& path, Stereo& sound);

} // namespace waltz
