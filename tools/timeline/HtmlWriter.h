// SPDX-License-Identifier: MIT
// The picture in a page: a card for what the pointer rests on, the moment under the pointer, zoom and pan
// with wheel, mouse and keyboard. One file that asks for no other. Without scripts it is the plain picture.
#pragma once

#include "tools/timeline/Picture.h"

#include <string>

namespace timeline
{

// Lays the show out once for each step of the zoom. The options' own zoom is of no account.
std::string HtmlPicture(const TimelineModel& model, const LayoutOptions& options);

} // namespace timeline
