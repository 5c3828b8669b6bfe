// SPDX-License-Identifier: MIT
// Music files for tests, made by the test itself, and decoded again with direct calls to the libraries: what
// the sound system plays is compared with that.
#pragma once

#include <string>
#include <vector>

namespace soundfiles
{

struct Kind {
    const char* name;   // of the file
    int format;         // libsndfile's
    int rate;           // Hz
    int channels;       // 1 or 2
    double compression; // 0 best to 1 smallest, below 0 for formats without
    int bitrateMode;    // of an MP3, -1 for others
};

// Every way of storing music that the tests know, the tracker module (format 0) among them.
extern const std::vector<Kind> kinds;
const Kind& KindOf(const std::string& name);

// A path for a file or folder that differs from process to process, and is removed when the process ends.
std::string TemporaryPath(const std::string& name);

// A busy but smooth piece with some noise in it: no two places sound alike. Starts and ends in the middle of
// a wave.
std::vector<float> Tune(int rate, int channels, int frames);

void Write(const std::string& path, const std::vector<float>& samples, const Kind& kind);
void WriteBytes(const std::string& path, const std::string& bytes);

// A Protracker module of 4 channels with portamento, vibrato, arpeggio and volume slides; 7.68 s a pattern.
std::string Module(int patterns);

// Writes about that many seconds of music of the kind and returns the path.
std::string Make(const Kind& kind, double seconds);

// The whole file as interleaved samples of its own channels, by libsndfile alone.
std::vector<float> Decode(const std::string& path);

// The whole module in stereo at 44100 Hz, by libopenmpt alone, in the pieces that the player cuts.
std::vector<float> Render(const std::string& path);

} // namespace soundfiles
