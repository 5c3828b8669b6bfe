// SPDX-License-Identifier: MIT
// The sound output of the program: the system's default sound device. It takes stereo frames, full scale from -1
// to 1, and calls for them whenever it needs some. SoundOutputHooks.h puts something else in the device's place.
#pragma once

namespace platform
{

struct StereoFrame {
    float left;
    float right;
};

// Fills count frames. Called on the thread of the output, which a device has of its own, one call at a time. It
// must not block unless `patient` is set: then nobody listens in real time, and it may wait for frames that
// aren't decoded yet.
typedef void (*SoundFill)(void* context, StereoFrame* frames, int count, bool patient);

// Opens the output and lets it run; it stays open to the end of the process. `context` is handed to `fill`
// untouched and must live as long; `fill` must not be null, the rate is above 0. False if there is no device
// or it can't be opened, which the debug channel tells, or an output is open already. One thread at a time.
bool OpenSoundOutput(int rate, SoundFill fill, void* context);

// How long it takes from the call of `fill` until its first frame is heard, as far as that is known, in seconds: the
// buffer of the device. 0 without one.
double SoundOutputDelay();

} // namespace platform
