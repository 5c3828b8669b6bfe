// SPDX-License-Identifier: MIT
// Where sound leaves the program: one output of stereo frames, full scale from -1 to 1, which asks for some
// whenever it needs them. Three kinds: the system's default sound device, an output that is pulled by hand
// (tests hear the samples, a capture needs no device), and none at all (the start fails).
#pragma once

namespace platform
{

struct StereoFrame {
    float left;
    float right;
};

enum SoundOutputKind {
    SoundFromDevice, // what a process starts with
    SoundPulledByHand,
    SoundMissing
};

// Fills count frames. Called on the thread of the output: a device has one of its own, and pulling by hand
// calls on the thread that pulls. One call at a time. It must not wait for anything, unless `patient` is set:
// then nobody listens in real time, and it may wait for what isn't decoded yet.
typedef void (*SoundFill)(void* context, StereoFrame* frames, int count, bool patient);

// Chooses the kind of the next OpenSoundOutput. Main thread only.
void UseSoundOutput(SoundOutputKind kind);

// Opens the output and lets it run; it stays open to the end of the process. `context` is handed to `fill`
// untouched, and must live as long. False, after a trace on the debug channel: there is no device, it can't
// be opened, or an output is open already. Without a sound card that is known at once. Main thread only.
bool OpenSoundOutput(int rate, SoundFill fill, void* context);

// For tests and tools: takes the next count frames from the output that is pulled by hand. Patient pulling
// gives each frame, however long its decoding takes; impatient pulling is what a device does. While no such
// output is open the frames are silent. Any thread, one at a time.
void PullSound(StereoFrame* frames, int count, bool patient = true);

} // namespace platform
