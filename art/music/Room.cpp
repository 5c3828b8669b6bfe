// SPDX-License-Identifier: MIT
#include "art/music/Room.h"
#include "art/music/Filters.h"

#include <array>
#include <cmath>
#include <vector>

namespace waltz
{

constexpr int lineCount = 16;
constexpr double decayLow = 2.7;    // seconds for 60 dB
constexpr double decayTreble = 1.1; // the same at half the sample rate
constexpr double before = 0.016;    // seconds until the network hears anything
constexpr double breathing = 7;     // samples by which some lines move to and fro
constexpr float returned = 0.55f;

// clang-format off
// Samples; primes, so that no two lines agree soon.
constexpr std::array<int, lineCount> lengths = {
    1103, 1259, 1399, 1553, 1733, 1879, 2039, 2213, 2389, 2579, 2767, 2939, 3137, 3323, 3527, 3733};

struct Reflection {
    double seconds;
    float left, right;
};
constexpr Reflection reflections[] = {
    {0.0093,  0.26f,  0.10f},
    {0.0127,  0.08f,  0.24f},
    {0.0191, -0.19f, -0.11f},
    {0.0236, -0.09f, -0.20f},
    {0.0312,  0.15f,  0.06f},
    {0.0389,  0.07f,  0.14f},
    {0.0471, -0.10f,  0.09f},
};

constexpr std::array<std::array<int, 4>, 2> diffuserLengths = {{{142, 277, 379, 107}, {151, 263, 397, 113}}};
// clang-format on
constexpr float diffusion = 0.62f;

class DelayLine
{
public:
    explicit DelayLine(int longest) : buffer(longest + 2, 0.0f) {}
    void Write(float x)
    {
        if (++at == buffer.size())
            at = 0;
        buffer[at] = x;
    }
    // What was written `samples` ago, 0 for the last.
    float Read(int samples) const
    {
        size_t place = at + buffer.size() - samples;
        return buffer[place >= buffer.size() ? place - buffer.size() : place];
    }
    float Read(double samples) const
    {
        const int whole = int(samples);
        const float rest = float(samples - whole);
        return Read(whole) + rest * (Read(whole + 1) - Read(whole));
    }

private:
    Samples buffer;
    size_t at = 0;
};

class Diffuser
{
public:
    explicit Diffuser(int length) : line(length), samples(length) {}
    float Next(float x)
    {
        const float delayed = line.Read(samples - 1);
        const float inside = x - diffusion * delayed;
        line.Write(inside);
        return delayed + diffusion * inside;
    }

private:
    DelayLine line;
    int samples;
};

// Of each line: the loss of one round, more of it in the treble.
struct Loss {
    float gain, pole, last = 0;
    explicit Loss(int length)
    {
        const double low = std::pow(10, -3.0 * length / (decayLow * sampleRate));
        const double high = std::pow(10, -3.0 * length / (decayTreble * sampleRate));
        pole = float((low - high) / (low + high));
        gain = float(low * (1 - pole));
    }
    float Next(float x) { return last = gain * x + pole * last; }
};

// Everything into everything, with the same energy: a Hadamard matrix, by sums and differences.
static void Scatter(std::array<float, lineCount>& x)
{
    for (int step = 1; step < lineCount; step *= 2) {
        for (int i = 0; i < lineCount; i += 2 * step) {
            for (int j = i; j < i + step; j++) {
                const float a = x[j], b = x[j + step];
                x[j] = a + b;
                x[j + step] = a - b;
            }
        }
    }
    for (float& each : x)
        each *= 0.25f;
}

Stereo RoomOf(const Stereo& sent)
{
    Stereo room(sent.origin, sent.Size());
    std::vector<DelayLine> lines;
    std::vector<Loss> losses;
    for (const int length : lengths) {
        lines.emplace_back(length + 2 * int(breathing) + 2);
        losses.emplace_back(length);
    }
    std::vector<Diffuser> diffusers[2];
    for (int side = 0; side < 2; side++)
        for (const int length : diffuserLengths[side])
            diffusers[side].emplace_back(length);
    DelayLine early[2] = {DelayLine(4096), DelayLine(4096)};
    DCBlock block[2];
    const int beforeSamples = int(before * sampleRate);

    std::array<float, lineCount> x{};
    std::array<double, 4> sway{};
    for (int64_t i = 0; i < sent.Size(); i++) {
        early[0].Write(sent.left[i]);
        early[1].Write(sent.right[i]);
        float into[2];
        for (int side = 0; side < 2; side++) {
            into[side] = early[side].Read(beforeSamples);
            for (Diffuser& diffuser : diffusers[side])
                into[side] = diffuser.Next(into[side]);
        }
        // Four of the lines breathe, each at its own pace, or the tail would ring.
        if (i % 32 == 0) {
            const double seconds = double(sent.origin + i) / sampleRate;
            for (int k = 0; k < 4; k++)
                sway[k] = breathing * (1 + double(SineOfTurns(seconds * (0.31 + 0.13 * k) + 0.25 * k)));
        }
        for (int k = 0; k < lineCount; k++) {
            const float out =
                k % 4 == 1 ? lines[k].Read(lengths[k] - 1 + sway[k / 4]) : lines[k].Read(lengths[k] - 1);
            x[k] = losses[k].Next(out);
        }
        float left = 0, right = 0;
        for (int k = 0; k < lineCount; k += 2) {
            const float sign = k % 4 == 0 ? 1.0f : -1.0f;
            left += sign * x[k];
            right += sign * x[k + 1];
        }
        Scatter(x);
        for (int k = 0; k < lineCount; k++)
            lines[k].Write(x[k] + into[k % 2] * 0.25f);
        for (const Reflection& reflection : reflections) {
            const int ago = int(reflection.seconds * sampleRate);
            left += reflection.left * early[0].Read(ago) + 0.3f * reflection.right * early[1].Read(ago);
            right += reflection.right * early[1].Read(ago) + 0.3f * reflection.left * early[0].Read(ago);
        }
        room.left[i] = returned * block[0].Next(left);
        room.right[i] = returned * block[1].Next(right);
    }
    return room;
}

} // namespace waltz
