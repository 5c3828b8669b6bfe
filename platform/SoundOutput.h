// SPDX-License-Identifier: MIT
// The sound output of the program. It takes stereo frames, full scale from -1 to 1, and calls for them
// whenever it needs some. Three kinds: the system's default sound device, an output that is pulled by hand
// (tests hear the samples, a capture needs no device), and none at all (opening it fails).
#pragma once

namespace platform
{

struct StereoFrame {
    float left;
    float right;
};

enum SoundOutputKind {
    SoundFromDevice, // the kind that a process starts with
    SoundPulledByHand,
    SoundMissing
};

// Fills count frames. Called on the thread of the output: a device has one of its own, and pulling by hand
// calls on the thread that pulls. One call at a time. It must not block unless `patient` is set: then nobody
// listens in real time, and it may wait for frames that aren't decoded yet.
typedef void (*SoundFill)(void* context, StereoFrame* frames, int count, bool patient);

// Chooses the kind of the next OpenSoundOutput. Main thread only.
void UseSoundOutput(SoundOutputKind kind);

// Opens the output and lets it run; it stays open to the end of the process. `context` is handed to `fill`
// untouched and must live as long; `fill` must not be null, the rate is above 0. False if there is no device
// or it can't be opened, which the debug channel tells, or an output is open already. One thread at a time.
bool OpenSoundOutput(int rate, SoundFill fill, void* context);

// How long it takes from the call of `fill` until its first frame is heard, as far as that is known, in seconds: the
// buffer of the device. 0 without one.
double SoundOutputDelay();

// For tests and tools: takes the next count frames from the output that is pulled by hand. Patient pulling
// gives each frame, however long its decoding takes; impatient pulling is what a device does. While no such
// output is open the frames are silent. Any thread, one at a time.
void PullSound(StereoFrame* frames, int count, bool patient = true);

} // namespace platform
