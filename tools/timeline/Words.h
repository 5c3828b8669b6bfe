// SPDX-License-Identifier: MIT
// What the picture says in words: the summary in the head, and the titles that a resting pointer reads.
#pragma once

#include "tools/timeline/TimelineModel.h"
#include "tools/timeline/Times.h"

#include <string>
#include <vector>

namespace timeline
{

// Short phrases, most important first.
std::vector<std::string> Summary(const TimelineModel& model, const Tempo& tempo);

// heard: the messages that the entry gets, in order of time.
std::string EntryTitle(const TimelineModel& model, size_t entry, const std::vector<size_t>& heard,
                       const Tempo& tempo);

// One message in full; of several a line each, as far as a reader follows.
std::string MessagesTitle(const TimelineModel& model, const std::vector<size_t>& messages,
                          const Tempo& tempo);

std::string LoadingTitle(const TimelineModel& model);
std::string MusicTitle(const TimelineModel& model);

// What stands in the lane of a music that does not play; empty if it plays.
std::string MusicNote(const Music& music);

std::string RemarksTitle(const TimelineModel& model, const std::vector<size_t>& remarks);

// "bars 0\xe2\x80\x9348.5", with an en dash: where an entry lies.
std::string BarsNote(const Entry& entry, const Tempo& tempo);

// "one entry", "3 entries".
std::string Count(size_t number, const std::string& one, const std::string& several);

// "hand", "fade_in \xc3\x97 7" of several with one name, "3 messages" of a mixture.
std::string MessagesLabel(const TimelineModel& model, const std::vector<size_t>& messages);

} // namespace timeline
