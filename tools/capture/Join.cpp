// SPDX-License-Identifier: MIT
#include "tools/capture/Join.h"

#include "tools/capture/FfmpegProcess.h"
#include "tools/capture/MusicFeed.h"
#include "tools/capture/VideoProbe.h"

#include <filesystem>

namespace capture
{

bool JoinParts(const std::vector<std::string>& parts, OutputFile& file, const Encoding& encoding,
               const FrameSelection& selection, MusicTrack* track, std::string* error)
{
    int64_t frames = 0;
    std::vector<VideoPart> counted;
    for (const std::string& part : parts) {
        // ffmpeg reads the list line by line and knows no way to write such a path in it.
        if (std::filesystem::absolute(part).string().find_first_of("\r\n") != std::string::npos) {
            *error = "part " + std::to_string(counted.size() + 1) +
                     " has a line break in its path, which a list of parts can't have: rename it";
            return false;
        }
        counted.push_back({part, CountFrames(part, error)});
        if (counted.back().frames < 0)
            return false;
        frames += counted.back().frames;
    }
    if (frames != selection.end - selection.first) {
        *error = "the parts have " + std::to_string(frames) + " frames together, the show has " +
                 std::to_string(selection.end - selection.first) +
                 ": one is missing, incomplete or there twice, or they were made at another rate";
        return false;
    }

    Encoding joined = encoding;
    joined.output = file.Name();
    joined.streamed = file.IsStream();
    FfmpegProcess joiner;
    const std::string list = JoinList(counted, selection.rate);
    if (joiner.Start(JoinCommand(joined), file.IsStream() ? file.Descriptor() : -1))
        joiner.process.WriteFirst(list.data(), list.size()); // if that fails, so does the joiner
    joiner.process.CloseFirst();
    if (track) {
        MusicFeed feed(joiner.process, *track);
        feed.Start(selection.rate.MomentOf(selection.first, MusicTrack::Rate));
        feed.End(selection.rate.MomentOf(selection.end, MusicTrack::Rate));
    }
    if (joiner.Finish())
        return KeepVideo(file, joined, frames, error);
    *error = joiner.Error();
    file.Discard();
    return false;
}

} // namespace capture
