// SPDX-License-Identifier: MIT
// The texts of the picture: the summary in its head, and the titles that show while the pointer rests on an item.
#pragma once

#include "tools/timeline/TimelineModel.h"
#include "tools/timeline/Times.h"

#include <string>
#include <vector>

namespace timeline
{

// The summary under the title, as short phrases, the most important first.
std::vector<std::string> Summary(const TimelineModel& model, const Tempo& tempo);

// The title of an entry. heard: indices of the messages that the entry gets, in order of time.
std::string EntryTitle(const TimelineModel& model, size_t entry, const std::vector<size_t>& heard,
                       const Tempo& tempo);

// The title of a tick: all of one message, or a line for each of several, up to a limit.
std::string MessagesTitle(const TimelineModel& model, const std::vector<size_t>& messages,
                          const Tempo& tempo);

std::string LoadingTitle(const TimelineModel& model);
std::string MusicTitle(const TimelineModel& model);

// The text in the music's lane if the music does not play; empty if it does.
std::string MusicNote(const Music& music);

std::string RemarksTitle(const TimelineModel& model, const std::vector<size_t>& remarks);

// The bars from start to stop of an entry: "bars 0\xe2\x80\x9348.5", with an en dash.
std::string BarsNote(const Entry& entry, const Tempo& tempo);

// A number with the fitting form of the noun: "one entry", "3 entries".
std::string Count(size_t number, const std::string& one, const std::string& several);

// The name at a tick: "hand", "fade_in \xc3\x97 7" for messages of one name, "3 messages" for several names.
std::string MessagesLabel(const TimelineModel& model, const std::vector<size_t>& messages);

} // namespace timeline
