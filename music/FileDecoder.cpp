// SPDX-License-Identifier: MIT
#include "music/FileDecoder.h"

#include "music/Mp3Decoder.h"
#include "music/OggPages.h"

#include <algorithm>
#include <fcntl.h>

// The frames that a seek leaves to be decoded ahead of the place asked for. A compressed frame leans on those
// before it: measured right after a seek, Vorbis was wrong for a part of a block and Opus in its last bit.
// Two of Vorbis' longest blocks are enough for both.
static const int64_t runUpFrames = 16384;

// The least distance between the places that are tried after damage: a usual frame of FLAC.
static const int64_t minLeap = 4096;

// They reach over almost three hours of damage. A file with a broken header may have no length to end at.
static const int maxLeaps = 50;

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

// Without a name libsndfile goes by the content alone: a file of unknown content that is called .mp3 it would
// search for MPEG frames, with notes on the standard error stream.
static SNDFILE* OpenSoundFile(const std::string& path, SF_INFO* info)
{
    if (!Mp3Decoder::HasExtension(path))
        return sf_open(path.c_str(), SFM_READ, info);
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    return descriptor < 0 ? nullptr : sf_open_fd(descriptor, SFM_READ, info, SF_TRUE);
}

std::unique_ptr<Decoder> FileDecoder::Open(const std::string& path)
{
    SF_INFO info = {};
    SNDFILE* file = OpenSoundFile(path, &info);
    if (!file)
        return nullptr;
    return std::unique_ptr<Decoder>(new FileDecoder(path, file, info));
}

FileDecoder::FileDecoder(const std::string& filePath, SNDFILE* openFile, const SF_INFO& info)
    : path(filePath), file(openFile), length(info.frames), lastPageStart(info.frames), position(0),
      damaged(false), silentFrames(0)
{
    rate = info.samplerate;
    speakers = SpeakersOf(file, info.channels);
    // libsndfile counts from the end of the page that a seek lands in, and the last page of an Ogg is cut to
    // the length of the music: seeks into it are off by what was cut.
    if ((info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_OGG)
        lastPageStart = std::max<int64_t>(length - LastOggPageFrames(path), 0);
}

FileDecoder::~FileDecoder()
{
    sf_close(file);
}

int FileDecoder::Read(float* samples)
{
    if (silentFrames == 0 && file) {
        const sf_count_t got = sf_readf_float(file, samples, BlockFrames);
        // The error that cuts a block short is told with its frames, and not again with the next block.
        damaged |= sf_error(file) != SF_ERR_NO_ERROR;
        if (got > 0) {
            position += got;
            return int(got);
        }
        // The end is no error. An Ogg is never found to be damaged here, and must not be sought in: after
        // damage that it has stepped over its position runs late, and its last seconds would come twice.
        const int64_t broken = position;
        if (!damaged || SeekBehindDamage(broken) < 0)
            return 0;
        silentFrames = position - broken;
    }
    const int silent = int(std::min<int64_t>(silentFrames, BlockFrames));
    std::fill_n(samples, size_t(silent) * speakers.size(), 0.0f);
    silentFrames -= silent;
    return silent;
}

int64_t FileDecoder::Seek(int64_t frame)
{
    silentFrames = 0;
    int64_t reached = SeekTo(std::max<int64_t>(std::min(frame, lastPageStart) - runUpFrames, 0));
    if (reached < 0)
        reached = SeekBehindDamage(frame);
    if (reached > frame) {
        silentFrames = reached - frame;
        return frame;
    }
    return reached;
}

// Where libsndfile goes on, which may be another place, or -1.
int64_t FileDecoder::SeekTo(int64_t frame)
{
    const int64_t reached = file ? sf_seek(file, frame, SEEK_SET) : -1;
    if (reached >= 0)
        position = reached;
    damaged = false;
    return reached;
}

// Goes to a place from that frame on where something can be decoded: not the first one, but the silence is at
// most a quarter longer than the damage and costs a few dozen seeks. -1: there is none.
int64_t FileDecoder::SeekBehindDamage(int64_t frame)
{
    std::vector<float> block(size_t(BlockFrames) * speakers.size());
    int64_t distance = 0;
    for (int i = 0; i < maxLeaps && frame + distance < length; ++i) {
        // libFLAC can't seek any more once it has failed to.
        if (!Reopen())
            return -1;
        const int64_t reached = SeekTo(frame + distance);
        if (reached >= frame && sf_readf_float(file, block.data(), BlockFrames) > 0)
            return SeekTo(reached);
        distance += std::max(minLeap, distance / 4);
    }
    return -1;
}

bool FileDecoder::Reopen()
{
    sf_close(file);
    SF_INFO info = {};
    file = OpenSoundFile(path, &info);
    // Another file may lie there by now.
    if (file && (info.channels != int(speakers.size()) || info.samplerate != rate)) {
        sf_close(file);
        file = nullptr;
    }
    return file != nullptr;
}
