// SPDX-License-Identifier: MIT
// Changes the rate of stereo frames by band-limited interpolation (a sinc under a Kaiser window, 100 dB down
// outside the band). Each output frame is a sum over the input frames around its place in time and depends on
// nothing else, so that a seek gives the same bits as playing up to the place.
//
// Output frame n lies at input frame n * inputRate / outputRate, exactly.
//
// Written by hand because the usual libraries keep a history of what they were fed: after a seek their output differs in
// its last bits from that of playing up to the place, and a show is to sound the same wherever it was started.
#pragma once

#include "platform/SoundOutput.h"

#include <cstdint>
#include <vector>

using platform::StereoFrame;

class Resampler
{
public:
    Resampler(int fromRate, int toRate); // Hz, both above 0; equal rates copy

    // The input frames that output frame n is made of. Some of them may lie ahead of the first frame (below
    // 0) or after the last: there the input is silent.
    int64_t FirstInput(int64_t n) const;
    int64_t LastInput(int64_t n) const;

    // How many output frames lie within an input of that many frames.
    int64_t OutputLength(int64_t inputLength) const;

    // Output frame n. input holds the frames from FirstInput(n) to LastInput(n).
    StereoFrame Interpolate(int64_t n, const StereoFrame* input);

private:
    void TabulateKernel(double scale);
    void Weigh(double fraction, float* weights) const;

    int inputRate;
    int outputRate;
    int reach;                 // input frames on either side of the place; 0 copies
    double step;               // along the kernel's table, per input frame
    std::vector<float> kernel; // one side, from its middle outwards
    int phases;                // different fractions that places have
    // The weights for each phase, 2 * reach of them; or one row, if there are too many.
    std::vector<float> rows;
};
