// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

#include <array>

namespace waltz
{

// Mean power spectrum of a range of samples, Hann windows of `size`, an even number, half overlapping: size / 2 + 1
// values. The Fourier transform is kissfft's, in single precision.
std::vector<double> MeanSpectrum(const Samples& sound, int64_t from, int64_t end, int size);

// How strong each pitch class is in a range, C first, from 65 Hz to 2 kHz, as shares of their sum.
std::array<double, 12> Chroma(const Samples& sound, int64_t from, int64_t end);

} // namespace waltz
