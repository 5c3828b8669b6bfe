// SPDX-License-Identifier: MIT
#include "art/music/Orchestra.h"

namespace waltz
{

const std::vector<Part>& Orchestra()
{
    // clang-format off
    static const std::vector<Part> parts = {
        //name        sound                low high    gain    pan   room lowCut highCut
        {"musicbox",  Sound::MusicBox,     60, 100,   -5.0f,  0.18f,  -6.0f, 180, 12000, true},
        {"brokenbox", Sound::BrokenBox,    48, 100,   -5.0f, -0.45f,  -2.0f, 180, 12000, true},
        {"celesta",   Sound::Celesta,      60, 108,   -9.0f,  0.50f,  -4.0f, 160, 12000, true},
        {"piano",     Sound::FeltPiano,    21, 100,   -6.0f, -0.10f,  -6.0f,  30,  9000, true},
        {"hand",      Sound::FeltPiano,    28,  88,   -6.5f, -0.20f,  -7.0f,  30,  8000, false},
        {"reed",      Sound::Reed,         57,  86,  -11.0f,  0.14f,  -5.0f, 140, 10000, true},
        {"violin",    Sound::Violins,      55, 100,  -12.5f, -0.45f,  -4.0f, 150, 10000, true},
        {"viola",     Sound::Violas,       48,  84,  -17.0f,  0.15f,  -4.0f, 100,  9000, true},
        {"cello",     Sound::Cellos,       36,  74,  -14.0f,  0.45f,  -5.0f,  50,  8000, true},
        {"solo",      Sound::SoloCello,    36,  79,  -14.0f,  0.12f,  -4.0f,  50,  9000, true},
        {"pad",       Sound::Pad,          36,  84,  -18.5f,  0.00f,  -2.0f,  80,  8000, false},
        {"bass",      Sound::PluckedBass,  28,  62,   -6.5f,  0.05f, -13.0f,  30,  5000, false},
        {"pizz",      Sound::Pizzicato,    45,  93,   -5.0f, -0.40f,  -5.0f, 100,  9000, false},
        {"drum",      Sound::Drum,         stroke, swish, -5.0f,  0.00f,  -6.0f,  28,  4000, false},
        {"brush",     Sound::Brush,        stroke, swish, -8.0f,  0.42f, -10.0f, 300, 11000, false},
        {"steps",     Sound::Step,         stroke, swish, -9.0f,  0.00f, -14.0f, 60, 12000, false},
        {"wind",      Sound::Wind,         36,  96,   -6.0f,  0.00f, -10.0f,  90,  9000, false},
        {"shore",     Sound::Shore,        36,  96,   -3.0f,  0.00f, -12.0f,  40, 11000, false},
    };
    // clang-format on
    return parts;
}

int FindPart(const std::string& name)
{
    for (size_t i = 0; i < Orchestra().size(); i++)
        if (name == Orchestra()[i].name)
            return int(i);
    return -1;
}

bool IsUnpitched(Sound sound)
{
    return sound == Sound::Drum || sound == Sound::Brush || sound == Sound::Step;
}

bool IsSustained(Sound sound)
{
    switch (sound) {
    case Sound::Reed:
    case Sound::Violins:
    case Sound::Violas:
    case Sound::Cellos:
    case Sound::SoloCello:
    case Sound::Pad:
    case Sound::Wind:
    case Sound::Shore:
        return true;
    default:
        return false;
    }
}

} // namespace waltz
