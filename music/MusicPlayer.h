// SPDX-License-Identifier: MIT
// The one piece of music of a show, over the sound system. It plays once, from its start to its end, and is
// not a clock: the timeline runs on FrameTimer alone. Called from the main thread; takes no lock, and no call
// waits.
//
// Order of calls: Init once, Open while the script is read, Play when everything is loaded, Stop when the
// show has reached its end. Only Init and Open can fail, and they report nothing themselves; a seek or a play
// that fails goes unnoticed, and without a stream there is nothing to fail.
#pragma once

#include <string>

class SoundStream;

class MusicPlayer
{
public:
    MusicPlayer();
    ~MusicPlayer(); // neither stops nor closes the stream: it sounds until the process ends

    bool Init(); // starts the sound system; false if it is too old or there is no sound device

    // Opens a file of the data directory. A stream that was open before is forgotten: it stays open, and what
    // it does it goes on doing. False: it can't be opened, and there is no stream then.
    bool Open(std::string fileName);

    void Play();                    // also ends a pause
    void SetTime(int milliseconds); // the show calls Play first and seeks then
    void Stop();
    void Close(); // Stop, then gives the stream back

    void Rewind(int milliseconds);  // as far as the start of the music
    void Forward(int milliseconds); // a negative way leads back, as far as the start
    void Pause();
    float GetTime(); // seconds since the start of the music, 0 without a stream

private:
    void SeekFromHere(long long milliseconds);

    SoundStream* stream; // borrowed from the sound system, null until a file is open
};
