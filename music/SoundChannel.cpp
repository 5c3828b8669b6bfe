// SPDX-License-Identifier: MIT
#include "music/SoundChannel.h"

#include <algorithm>

static const StereoFrame silence = {0.0f, 0.0f};

static void Add(StereoFrame* sum, StereoFrame frame, float gain)
{
    sum->left += frame.left * gain;
    sum->right += frame.right * gain;
}

SoundChannel::SoundChannel(int rate)
    : fadeFrames(rate * FadeMilliseconds / 1000), stream(nullptr), sounding(false), position(0),
      lateFrames(0), rampFrames(fadeFrames), lastFrame(silence), tail(fadeFrames, silence),
      tailStart(fadeFrames), scratch(std::max(fadeFrames, MaxFrames))
{
}

void SoundChannel::Mix(SoundStream* user, bool paused, StereoFrame* mix, int count, bool patient)
{
    if (user != stream) {
        stream = user;
        sounding = false;
        position = stream ? stream->Reported() : 0;
    }
    if (!stream) {
        MixTail(mix, count);
        return;
    }
    const StreamOrder order = stream->LastOrder();
    ApplyOrder(order, paused);
    if (sounding)
        MixStream(mix, count, patient);
    else
        MixTail(mix, count);
    stream->Report(order, position + lateFrames, sounding && stream->EndsAt(position));
}

void SoundChannel::ApplyOrder(const StreamOrder& order, bool paused)
{
    const bool moves = !(order == stream->AppliedOrder());
    const bool sounds = order.playing && !paused;
    if (sounding && (moves || !sounds))
        CatchTail(fadeFrames);
    if (moves) {
        position = stream->PositionOf(order.milliseconds);
        lateFrames = 0;
        lastFrame = silence;
        if (!stream->Holds(position))
            stream->Want(order);
    }
    if (sounds && (moves || !sounding))
        rampFrames = position == 0 ? fadeFrames : 0;
    sounding = sounds;
}

void SoundChannel::MixStream(StereoFrame* mix, int count, bool patient)
{
    if (patient)
        stream->WaitFor(position + count);
    const int64_t skipped = std::min(lateFrames, stream->FramesFrom(position));
    position += skipped;
    lateFrames -= skipped;
    if (skipped > 0 || lateFrames > 0)
        rampFrames = 0;

    const int heard = int(std::min<int64_t>(stream->FramesFrom(position), count));
    stream->Copy(position, heard, scratch.data());
    position += heard;
    for (int i = 0; i < heard; ++i) {
        Add(&mix[i], scratch[i], RampGain());
        rampFrames = std::min(rampFrames + 1, fadeFrames);
    }
    if (heard > 0)
        lastFrame = scratch[heard - 1];
    MixTail(mix, heard);
    if (heard == count)
        return;

    const bool late = !stream->EndsAt(position);
    if (late) {
        CatchTail(0);
        lateFrames += count - heard;
    } else {
        lateFrames = 0;
    }
    lastFrame = silence;
    MixTail(mix + heard, count - heard);
}

// Takes what would be heard next out of the stream, at most so many frames, and lets it fall to silence.
// Where there is less than a ramp's length the last frame stands still while it falls.
void SoundChannel::CatchTail(int most)
{
    // What is left of a tail before this one comes first.
    const auto left = std::copy(tail.begin() + tailStart, tail.end(), tail.begin());
    std::fill(left, tail.end(), silence);
    tailStart = 0;
    if (lateFrames > 0)
        return; // silent already

    const int caught = int(std::min<int64_t>(stream->FramesFrom(position), most));
    stream->Copy(position, caught, scratch.data());
    position += caught;
    const float top = RampGain();
    for (int i = 0; i < fadeFrames; ++i) {
        if (i < caught)
            lastFrame = scratch[i];
        Add(&tail[i], lastFrame, top * float(fadeFrames - i) / float(fadeFrames + 1));
    }
}

void SoundChannel::MixTail(StereoFrame* mix, int count)
{
    for (int i = 0; i < count && tailStart < fadeFrames; ++i, ++tailStart)
        Add(&mix[i], tail[tailStart], 1.0f);
}

// Of the next frame.
float SoundChannel::RampGain() const
{
    return rampFrames < fadeFrames ? float(rampFrames + 1) / float(fadeFrames + 1) : 1.0f;
}
