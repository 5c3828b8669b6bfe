// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace waltz
{

// Sound is 44100 samples a second, as floats; 1 is full scale. Times in samples count from the start of the
// night.
constexpr int sampleRate = 44100;
constexpr int samplesPerBeat = 26460; // 600 ms
constexpr int samplesPerBar = 3 * samplesPerBeat;

constexpr double pi = 3.14159265358979323846;

using Samples = std::vector<float>;

// A window of the night: sample 0 of both channels is the night's sample `origin`.
struct Stereo {
    int64_t origin = 0;
    Samples left, right;

    Stereo() = default;
    Stereo(int64_t from, int64_t count) : origin(from), left(count), right(count) {}
    int64_t Size() const { return int64_t(left.size()); }

    // Mixes a sound in that starts at the night's sample `start`; what lies outside the window is dropped.
    // `pan` is -1 left to 1 right, with the same power everywhere.
    void Add(const Samples& sound, int64_t start, float gain, float pan);
    void Add(const Stereo& other, float gain); // by the night's time
};

// Takes the last so many samples to silence in a straight line; all of a sound that has fewer.
void FadeOut(Samples* sound, size_t count);

float FromDecibel(float decibel);
float ToDecibel(double share); // -200 for silence

// Sine by table, for a phase in turns of any size.
float SineOfTurns(double turns);

} // namespace waltz
