// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Score.h"

#include <string>

namespace waltz
{

// Which sound was rendered from which score, as two digests of 16 hexadecimal digits. Kept beside the score
// in rendition.txt, so that a score that was changed and not rendered again is noticed without playing it.
struct Rendition {
    std::string score;
    std::string sound;
};

// Of everything that is played: sections, harmony, rubato, tones, dynamics. Not of how the texts spell it.
std::string ScoreDigest(const Score& score);

// Of a file's bytes; empty if it cannot be read.
std::string FileDigest(const std::string& path);

// False if the file cannot be written, or read as two lines "score DIGEST", "sound DIGEST".
bool WriteRendition(const std::string& path, const Rendition& rendition);
bool ReadRendition(const std::string& path, Rendition& rendition);

} // namespace waltz
