// SPDX-License-Identifier: MIT
#include "tools/capture/VideoProbe.h"

#include "tools/capture/FfmpegProcess.h"
#include "tools/capture/WebpFile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace capture
{

int64_t CountFrames(const std::string& path, std::string* error)
{
    FfmpegProcess probe;
    if (!probe.Start({"ffprobe", "-v", "error", "-select_streams", "v:0", "-count_packets", "-show_entries",
                      "stream=nb_read_packets", "-of", "csv=p=0", "file:" + path}) ||
        !probe.Finish()) {
        *error = path + ": " + probe.Error();
        return -1;
    }
    const std::string count = probe.process.Output();
    if (count.empty() || count[0] < '0' || count[0] > '9') {
        *error = path + ": there is no video in it";
        return -1;
    }
    return std::atoll(count.c_str());
}

// A single frame is a still picture, which has no time. Times are whole milliseconds.
static bool IsWholeAnimation(const OutputFile& file, const Encoding& encoding, int64_t frames,
                             std::string* error)
{
    const int64_t length = AnimationLength(file.Name(), error);
    if (length < 0)
        return false;
    const int64_t wanted = frames > 1 ? encoding.rate.MomentOf(frames, 1000) : 0;
    if (length >= wanted - 1 && length <= wanted + 1)
        return true;
    *error = "ffmpeg reported no error, but its file shows " + std::to_string(length) + " of " +
             std::to_string(wanted) + " milliseconds";
    return false;
}

static bool IsComplete(const OutputFile& file, const Encoding& encoding, int64_t frames, std::string* error)
{
    if (fsync(file.Descriptor()) != 0) {
        *error = file.Name() + ": " + strerror(errno);
        return false;
    }
    if (IsAnimation(encoding.output))
        return IsWholeAnimation(file, encoding, frames, error);
    const int64_t found = CountFrames(file.Name(), error);
    if (found < 0)
        return false;
    // Only of these formats is it known that each frame becomes one of the file's.
    if (encoding.more.empty() && encoding.HasOnePacketPerFrame() ? found == frames : found > 0)
        return true;
    *error = "ffmpeg reported no error, but its file holds " + std::to_string(found) + " of " +
             std::to_string(frames) + " frames";
    return false;
}

bool KeepVideo(OutputFile& file, const Encoding& encoding, int64_t frames, std::string* error)
{
    if (file.IsStream() || IsComplete(file, encoding, frames, error)) {
        if (file.Keep())
            return true;
        *error = file.error;
    }
    file.Discard();
    return false;
}

} // namespace capture
