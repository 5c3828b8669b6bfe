// SPDX-License-Identifier: MIT
// The sound system: music files streamed from the disk, mixed on channels, played by an output device. Order
// of calls: GetVersion, SetDriver, Init, SetBufferSize, then streams. There is no shut-down: the end of the
// process ends the sound.
//
// All of it is called from the main thread, and every call returns at once, whatever the device or the disk
// does: decoding, mixing and output run on threads of their own, which take their orders from atomic fields (see
// SoundStream.h). Only OpenStream reads the file: its headers, and of an MP3 all frame headers.
//
// A call that fails reports nothing: its result says so and nothing else happens. Calls for a stream that is null or
// closed fail.
#pragma once

#include <string>

class SoundStream;

class SoundSystem
{
public:
    static constexpr int DefaultDriver = 1; // the system's default output device

    static constexpr int FreeChannel = -1;
    static constexpr int AllChannels = -3;

    // Mode bits of OpenStream.
    static constexpr unsigned LoopOff = 0x1;
    static constexpr unsigned Stereo = 0x40;
    // A seek lands on the exact frame in compressed files too.
    static constexpr unsigned AccurateTime = 0x20000;

    static float GetVersion();

    // Chooses the output of the next Init. Without a choice, or with another than DefaultDriver, that fails.
    static void SetDriver(int driver);

    // Starts the output at a rate from MinMixRate to MaxMixRate, with 1 to MaxChannels channels; no
    // flags are known, so they are 0. False: one of these is wrong, or there is no device. Once it has
    // started, further calls change nothing and return true.
    static bool Init(int mixRate, int channels, unsigned flags);
    static constexpr int MinMixRate = 8000;
    static constexpr int MaxMixRate = 192000;
    static constexpr int MaxChannels = 1024;

    // How far ahead the streams opened from now on are decoded, in milliseconds (a second unless it is set).
    // See SoundStream for the range that is kept.
    static void SetBufferSize(int milliseconds);

    // Opens a music file of any format that OpenDecoder knows (music/Decoder.h). The only mode there is sets all three
    // bits; offset and length select a part, and must be 0, for the whole. Null: not started, another mode or
    // part, or a file that can't be opened. The stream belongs to the system; it is stopped, at time 0.
    static SoundStream* OpenStream(const std::string& path, unsigned mode, int offset, int length);

    // Lets the stream play from its time on; one that has run out begins again; one that plays goes on
    // playing. The channel must be FreeChannel: any will do. Returns the channel's number, or -1 if none was
    // free.
    static int PlayStream(int channel, SoundStream* stream);

    // Moves the stream to a time, playing or not. Below 0 counts as 0. The samples that the device asks for
    // from then on are those from frame milliseconds * rate / 1000 on, rounded to the nearest, halves up.
    // After the end there is silence, and the time stays as it was set.
    static bool SetStreamTime(SoundStream* stream, int milliseconds);

    // The time of the next sample that the device will ask for, in milliseconds, rounded to the nearest. It
    // stops at the end of the music. 0 on failure.
    static int GetStreamTime(SoundStream* stream);

    static bool StopStream(SoundStream* stream);  // and moves it to time 0
    static bool CloseStream(SoundStream* stream); // stops it first; the handle is of no use any more

    // The pause of all channels; the only channel argument is AllChannels, others give false. Pausing neither
    // loses nor repeats a frame. A stream that is set to play during the pause is heard after it.
    static bool GetPaused(int channel);
    static bool SetPaused(int channel, bool paused);
};
