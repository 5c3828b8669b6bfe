// SPDX-License-Identifier: MIT
#include "tools/capture/Join.h"

#include "tools/capture/MusicFeed.h"
#include "tools/capture/VideoProbe.h"

#include <filesystem>

namespace capture
{

bool JoinParts(const std::vector<std::string>& parts, OutputFile& file, const Encoding& encoding,
               const Schedule& schedule, MusicTrack* track, std::string* error)
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
    if (frames != schedule.end - schedule.first) {
        *error = "the parts have " + std::to_string(frames) + " frames together, the show has " +
                 std::to_string(schedule.end - schedule.first) +
                 ": one is missing, incomplete or there twice, or they were made at another rate";
        return false;
    }

    Encoding joined = encoding;
    joined.output = file.Name();
    joined.streamed = file.IsStream();
    ChildProcess joiner;
    const std::string list = JoinList(counted, schedule.rate);
    if (joiner.Start(JoinCommand(joined), file.IsStream() ? file.Descriptor() : -1))
        joiner.WriteFirst(list.data(), list.size()); // if that fails, so does the joiner
    joiner.CloseFirst();
    if (track) {
        MusicFeed feed(joiner, *track);
        feed.Start(schedule.rate.MomentOf(schedule.first, MusicTrack::Rate));
        feed.End(schedule.rate.MomentOf(schedule.end, MusicTrack::Rate));
    }
    if (joiner.Finish())
        return KeepVideo(file, joined, frames, error);
    *error = joiner.error;
    file.Discard();
    return false;
}

} // namespace capture
