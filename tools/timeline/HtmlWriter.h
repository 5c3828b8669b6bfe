// SPDX-License-Identifier: MIT
// The picture as an HTML page: one file that loads no other. Its script shows a card about the item under the pointer
// and the moment there, and zooms and pans with wheel, mouse and keyboard; with scripts switched off the picture
// stands still.
#pragma once

#include "tools/timeline/TimelinePicture.h"

#include <string>

namespace timeline
{

// Lays the show out once for each step of the zoom. The options' own zoom is of no account.
std::string HtmlPicture(const TimelineModel& model, const LayoutOptions& options);

} // namespace timeline
