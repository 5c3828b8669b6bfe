// SPDX-License-Identifier: MIT
#include "music/FileDecoder.h"

#include <algorithm>

// The frames that a seek leaves to be decoded ahead of the place asked for. A compressed frame leans on those
// before it: measured right behind a seek, Vorbis was wrong for a part of a block, Opus in its last bit and
// MP3 at low bit rates for up to 4 of its frames of 1152. Two of Vorbis' longest blocks are enough for all.
static const int64_t runUpFrames = 16384;

static Speaker SpeakerOf(int place)
{
    switch (place) {
    case SF_CHANNEL_MAP_LEFT:
    case SF_CHANNEL_MAP_FRONT_LEFT:
    case SF_CHANNEL_MAP_FRONT_LEFT_OF_CENTER:
    case SF_CHANNEL_MAP_TOP_FRONT_LEFT:
        return SpeakerLeft;
    case SF_CHANNEL_MAP_RIGHT:
    case SF_CHANNEL_MAP_FRONT_RIGHT:
    case SF_CHANNEL_MAP_FRONT_RIGHT_OF_CENTER:
    case SF_CHANNEL_MAP_TOP_FRONT_RIGHT:
        return SpeakerRight;
    case SF_CHANNEL_MAP_REAR_LEFT:
    case SF_CHANNEL_MAP_SIDE_LEFT:
    case SF_CHANNEL_MAP_TOP_REAR_LEFT:
        return SpeakerSurroundLeft;
    case SF_CHANNEL_MAP_REAR_RIGHT:
    case SF_CHANNEL_MAP_SIDE_RIGHT:
    case SF_CHANNEL_MAP_TOP_REAR_RIGHT:
        return SpeakerSurroundRight;
    case SF_CHANNEL_MAP_REAR_CENTER:
    case SF_CHANNEL_MAP_TOP_REAR_CENTER:
        return SpeakerSurroundCentre;
    case SF_CHANNEL_MAP_LFE:
        return SpeakerLowFrequency;
    default:
        return SpeakerCentre;
    }
}

static std::vector<Speaker> SpeakersOf(SNDFILE* file, int channels)
{
    std::vector<int> places(channels);
    const int size = int(places.size() * sizeof(int));
    if (!sf_command(file, SFC_GET_CHANNEL_MAP_INFO, places.data(), size))
        return UsualSpeakers(channels);
    std::vector<Speaker> speakers;
    for (int place : places)
        speakers.push_back(SpeakerOf(place));
    return speakers;
}

std::unique_ptr<Decoder> FileDecoder::Open(const std::string& path)
{
    SF_INFO info = {};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file)
        return nullptr;
    return std::unique_ptr<Decoder>(new FileDecoder(file, info));
}

FileDecoder::FileDecoder(SNDFILE* openFile, const SF_INFO& info) : file(openFile)
{
    rate = info.samplerate;
    speakers = SpeakersOf(file, info.channels);
}

FileDecoder::~FileDecoder()
{
    sf_close(file);
}

int FileDecoder::Read(float* samples)
{
    return int(std::max<sf_count_t>(sf_readf_float(file, samples, BlockFrames), 0));
}

int64_t FileDecoder::Seek(int64_t frame)
{
    return sf_seek(file, std::max<int64_t>(frame - runUpFrames, 0), SEEK_SET);
}
