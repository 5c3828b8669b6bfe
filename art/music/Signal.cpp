// SPDX-License-Identifier: MIT
#include "art/music/Signal.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

constexpr int tableSize = 4096;

static const Samples& SineTable()
{
    static const Samples table = [] {
        Samples sines(tableSize + 1);
        for (int i = 0; i <= tableSize; i++)
            sines[i] = float(std::sin(2 * pi * i / tableSize));
        return sines;
    }();
    return table;
}

void Stereo::Add(const Samples& sound, int64_t start, float gain, float pan)
{
    const float angle = (std::clamp(pan, -1.0f, 1.0f) + 1) * float(pi / 4);
    const float toLeft = gain * std::cos(angle), toRight = gain * std::sin(angle);
    const int64_t first = std::max<int64_t>(0, origin - start);
    const int64_t end = std::min<int64_t>(int64_t(sound.size()), origin + Size() - start);
    for (int64_t i = first; i < end; i++) {
        left[start - origin + i] += toLeft * sound[i];
        right[start - origin + i] += toRight * sound[i];
    }
}

void Stereo::Add(const Stereo& other, float gain)
{
    const int64_t first = std::max(origin, other.origin);
    const int64_t end = std::min(origin + Size(), other.origin + other.Size());
    for (int64_t i = first; i < end; i++) {
        left[i - origin] += gain * other.left[i - other.origin];
        right[i - origin] += gain * other.right[i - other.origin];
    }
}

void FadeOut(Samples* sound, size_t count)
{
    const size_t tail = std::min(sound->size(), count);
    for (size_t i = 0; i < tail; i++)
        (*sound)[sound->size() - 1 - i] *= float(i) / float(tail);
}

float FromDecibel(float decibel)
{
    return std::pow(10.0f, decibel / 20);
}

float ToDecibel(double share)
{
    return share > 1e-10 ? float(20 * std::log10(share)) : -200.0f;
}

float SineOfTurns(double turns)
{
    static const Samples& table = SineTable();
    const double place = (turns - std::floor(turns)) * tableSize;
    const int index = std::min(int(place), tableSize - 1);
    const float rest = float(place - index);
    return table[index] + rest * (table[index + 1] - table[index]);
}

} // namespace waltz
