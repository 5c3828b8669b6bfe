// SPDX-License-Identifier: MIT
#include "art/music/Mix.h"
#include "art/music/Filters.h"
#include "art/music/Orchestra.h"
#include "art/music/Performance.h"
#include "art/music/Room.h"
#include "art/music/SoundFile.h"
#include "art/music/instruments/Struck.h"
#include "art/music/instruments/Sustained.h"

#include <algorithm>

namespace waltz
{

// Rendered ahead of a window and thrown away: longer than any note rings on and the room remembers.
constexpr int64_t preroll = 9 * sampleRate;
constexpr int64_t longestRing = 9 * sampleRate;

static Samples PlayStruck(const Note& note, Sound sound)
{
    switch (sound) {
    case Sound::MusicBox:
        return PlayMusicBox(note, false);
    case Sound::BrokenBox:
        return PlayMusicBox(note, true);
    case Sound::Celesta:
        return PlayCelesta(note);
    case Sound::FeltPiano:
        return PlayFeltPiano(note);
    case Sound::PluckedBass:
        return PlayPluckedBass(note);
    case Sound::Pizzicato:
        return PlayPizzicato(note);
    case Sound::Drum:
        return PlayDrum(note);
    case Sound::Step:
        return PlayStep(note);
    default:
        return PlayBrush(note);
    }
}

static Stereo PlaySustained(const Phrase& phrase, const Dynamics& dynamics, const Part& part)
{
    switch (part.sound) {
    case Sound::Reed:
        return PlayReed(phrase, dynamics, part.pan);
    case Sound::Wind:
        return PlayWind(phrase, dynamics);
    case Sound::Shore:
        return PlayShore(phrase, dynamics);
    case Sound::Pad: {
        // The three sections sit from left to right, the highest on the left.
        const float seat = 0.65f * float(phrase[0].line == 1 ? 0.15 : 1 - phrase[0].line);
        return PlayBowed(phrase, dynamics, BowedKindOf(part.sound, phrase[0].line), seat);
    }
    default:
        return PlayBowed(phrase, dynamics, BowedKindOf(part.sound, 0), part.pan);
    }
}

// A keyboard lies across the picture, low keys left, high keys right; feet go left and right of the middle.
static float SeatOf(const Note& note, const Part& part)
{
    if (part.sound == Sound::FeltPiano || part.sound == Sound::Celesta || part.sound == Sound::MusicBox)
        return part.pan + 0.015f * float(note.pitch - 64);
    if (part.sound == Sound::Step)
        return part.pan + (int(note.pitch) == stroke ? -0.16f : 0.16f);
    return part.pan;
}

static void PlayVoice(const Voice& voice, const Part& part, const Rubato& rubato, Stereo& stem)
{
    const int64_t end = stem.origin + stem.Size();
    for (const Phrase& phrase : Perform(voice, part, rubato)) {
        const Note& last = phrase.back();
        if (phrase.front().start > end + sampleRate || last.start + last.length + longestRing < stem.origin)
            continue;
        if (IsSustained(part.sound))
            stem.Add(PlaySustained(phrase, voice.dynamics, part), 1);
        else
            stem.Add(PlayStruck(phrase[0], part.sound), phrase[0].start, 1, SeatOf(phrase[0], part));
    }
    Biquad lowCut[2], highCut[2];
    for (int side = 0; side < 2; side++) {
        lowCut[side].HighPass(part.lowCut);
        highCut[side].LowPass(part.highCut);
        Samples& sound = side == 0 ? stem.left : stem.right;
        for (float& x : sound)
            x = highCut[side].Next(lowCut[side].Next(x));
    }
}

static Stereo Window(const Stereo& sound, int64_t from, int64_t end)
{
    Stereo window(from, end - from);
    window.Add(sound, 1);
    return window;
}

bool RenderMix(const Score& score, int64_t from, int64_t end, const std::string& stemFolder, Stereo& mix)
{
    const int64_t begin = std::max<int64_t>(0, from - preroll);
    Stereo all(begin, end - begin), sent(begin, end - begin);
    for (size_t i = 0; i < score.voices.size(); i++) {
        const Part& part = Orchestra()[i];
        if (score.voices[i].tones.empty())
            continue;
        Stereo stem(begin, end - begin);
        PlayVoice(score.voices[i], part, score.rubato, stem);
        all.Add(stem, FromDecibel(part.gain));
        sent.Add(stem, FromDecibel(part.gain + part.room));
        if (stemFolder.empty())
            continue;
        Stereo window(from, end - from);
        window.Add(stem, FromDecibel(part.gain));
        if (!WriteWave(stemFolder + "/" + part.name + ".wav", window))
            return false;
    }
    const Stereo room = RoomOf(sent);
    all.Add(room, 1);
    mix = Window(all, from, end);
    return stemFolder.empty() || WriteWave(stemFolder + "/room.wav", Window(room, from, end));
}

} // namespace waltz
