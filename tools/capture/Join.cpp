// SPDX-License-Identifier: MIT
#include "tools/capture/Join.h"

#include "tools/capture/MusicFeed.h"

#include <cstdlib>

namespace capture
{

// -1: no video, and *error says so.
static int64_t CountFrames(const std::string& part, std::string* error)
{
    ChildProcess probe;
    if (!probe.Start({"ffprobe", "-v", "error", "-select_streams", "v:0", "-count_packets", "-show_entries",
                      "stream=nb_read_packets", "-of", "csv=p=0", "file:" + part}) ||
        !probe.Finish()) {
        *error = part + ": " + probe.error;
        return -1;
    }
    const std::string count = probe.Output();
    if (count.empty() || count[0] < '0' || count[0] > '9') {
        *error = part + ": there is no video in it";
        return -1;
    }
    return std::atoll(count.c_str());
}

bool JoinParts(const std::vector<std::string>& parts, const Encoding& encoding, const Schedule& schedule,
               MusicTrack* track, std::string* error)
{
    int64_t frames = 0;
    std::vector<VideoPart> counted;
    for (const std::string& part : parts) {
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

    Encoding unfinished = encoding;
    unfinished.output = UnfinishedName(encoding.output);
    ChildProcess joiner;
    const std::string list = JoinList(counted, schedule.rate);
    if (joiner.Start(JoinCommand(unfinished)))
        joiner.WriteFirst(list.data(), list.size()); // if that fails, so does the joiner
    joiner.CloseFirst();
    if (track) {
        MusicFeed feed(joiner, *track);
        feed.Start(schedule.rate.MomentOf(schedule.first, MusicTrack::Rate));
        feed.End(schedule.rate.MomentOf(schedule.end, MusicTrack::Rate));
    }
    if (!joiner.Finish())
        *error = joiner.error;
    return KeepFinished(unfinished.output, error->empty() ? encoding.output : "", error) && error->empty();
}

} // namespace capture
