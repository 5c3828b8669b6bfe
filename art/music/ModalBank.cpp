// SPDX-License-Identifier: MIT
#include "art/music/ModalBank.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

constexpr size_t blockSize = 256;
constexpr float inaudible = 1e-6f;

// What a mode is multiplied with each sample to lose 60 dB in `decay` seconds.
static double Shrink(double decay)
{
    return std::exp(-6.907755 / (std::max(decay, 0.001) * sampleRate));
}

void ModalBank::Add(double hz, double amplitude, double decay, double phase)
{
    if (hz > 0.45 * sampleRate)
        return;
    if (used == 4) {
        groups.push_back(ModeGroup());
        used = 0;
    }
    const double turn = 2 * pi * hz / sampleRate, shrink = Shrink(decay);
    ModeGroup& group = groups.back();
    group.x[used] = float(amplitude * std::cos(2 * pi * phase));
    group.y[used] = float(amplitude * std::sin(2 * pi * phase));
    group.cosine[used] = float(shrink * std::cos(turn));
    group.sine[used] = float(shrink * std::sin(turn));
    used++;
}

void ModalBank::Ring(Samples& sound, size_t begin, size_t end)
{
    for (size_t block = begin; block < end; block += blockSize) {
        const size_t blockEnd = std::min(end, block + blockSize);
        for (ModeGroup& group : groups) {
            Lanes x = group.x, y = group.y;
            const Lanes cosine = group.cosine, sine = group.sine;
            for (size_t i = block; i < blockEnd; i++) {
                sound[i] += (y[0] + y[1]) + (y[2] + y[3]);
                const Lanes nextX = x * cosine - y * sine;
                y = x * sine + y * cosine;
                x = nextX;
            }
            group.x = x;
            group.y = y;
        }
        const auto silent = [](const ModeGroup& group) {
            for (int i = 0; i < 4; i++)
                if (std::fabs(group.x[i]) + std::fabs(group.y[i]) > inaudible)
                    return false;
            return true;
        };
        groups.erase(std::remove_if(groups.begin(), groups.end(), silent), groups.end());
        if (groups.empty()) {
            used = 4;
            return;
        }
    }
}

void ModalBank::Damp(double decay)
{
    const float shrink = float(Shrink(decay));
    for (ModeGroup& group : groups) {
        group.cosine *= Lanes{shrink, shrink, shrink, shrink};
        group.sine *= Lanes{shrink, shrink, shrink, shrink};
    }
}

} // namespace waltz
