// SPDX-License-Identifier: MIT
// What tests and benchmarks open in place of the sound device: an output that is pulled by hand, so that they get
// the samples, or none at all.
#pragma once

#include "platform/SoundOutput.h"

namespace platform
{

enum SoundOutputKind {
    SoundFromDevice,   // the kind that a process starts with
    SoundPulledByHand, // calls `fill` on the thread that calls PullSound
    SoundMissing       // opening it fails
};

// Chooses the kind of the next OpenSoundOutput. Main thread only.
void UseSoundOutput(SoundOutputKind kind);

// Takes the next count frames from the output that is pulled by hand. Patient pulling gives each frame, however
// long its decoding takes; impatient pulling is what a device does. While no such output is open the frames are
// silent. Any thread, one at a time.
void PullSound(StereoFrame* frames, int count, bool patient = true);

} // namespace platform
