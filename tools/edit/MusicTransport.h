// SPDX-License-Identifier: MIT
// The script's music from any moment on, and the clock that the picture follows while it plays.
//
// With music, and at full speed, the clock is the sound: PositionSeconds is what is heard now, the device's latency
// taken off as far as it is known. Without music, without a device and at other speeds it is silent, on the process's
// clock.
//
// No call waits. The sound device and the file are opened on a thread of their own, and the file is decoded on the
// stream's. Main thread only. The sound output stays open to the end of the process: all
// objects of this class share it, so that one of them plays at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace edit
{

class MusicTransport
{
public:
    MusicTransport();
    ~MusicTransport();
    MusicTransport(const MusicTransport&) = delete;
    MusicTransport& operator=(const MusicTransport&) = delete;

    // The music file; empty: none. The same path again opens the file anew, as after it was written. If it plays, it
    // goes on from where it is.
    void SetMusic(std::string path);

    // False while the file is being opened. Play may be called at any time.
    bool IsReady();
    bool HasMusic();             // opened, and there is a device for it
    std::string Failure() const; // why there is none: no such file, no device; empty if all is well

    // Starts at a time of the show in seconds, or jumps there if it plays already. The first sample that is heard is
    // that of the nearest millisecond. At a speed other than 1 there is no sound.
    void Play(double fromSeconds, double speed = 1);
    void Stop();
    bool IsPlaying() const;

    // What is heard now; where it started, until the first sample is heard; where it stopped, after Stop. Never goes
    // back while it plays on. After the music it runs on in silence.
    double PositionSeconds();

private:
    struct Work;
    std::unique_ptr<Work> work;
};

} // namespace edit
