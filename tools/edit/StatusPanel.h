// SPDX-License-Identifier: MIT
// The line at the foot of the window: the newest notice, whether the script is saved, and what the processes of the show
// take.
#pragma once

#include "tools/edit/Session.h"
#include "tools/edit/WindowLayout.h"

#include <string>

namespace edit
{

class StatusPanel
{
public:
    // Takes the notice out of the session's state and shows it for some seconds.
    void Draw(Session* session, Rect place);

    // True if a notice stands that should not any longer, by cli::MonotonicSeconds: draw a frame without it.
    bool NoticeEnds(double now) const;

private:
    std::string notice;
    double noticeSince = 0;
};

} // namespace edit
