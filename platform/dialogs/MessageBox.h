// SPDX-License-Identifier: MIT
// Modal message boxes: caption, wrapped body, icon, one OK button. Possible before any window exists and
// while a full-screen window is up. Main thread only.
#pragma once

#include <string>

namespace platform
{

const unsigned BoxErrorIcon = 0x10;
const unsigned BoxInformationIcon = 0x40;

struct MessageBox {
    std::string caption;
    std::string body;
    unsigned icon; // BoxErrorIcon or BoxInformationIcon
};

// Shows the box and returns when the user has closed it: with OK, Enter, space, Escape, or through the window
// manager. While the show's window is up, SIGINT and SIGTERM close it as well. A text of any length and
// content will do; what doesn't fit scrolls. Without a display the box goes to stderr as text and the call
// returns at once.
void ShowMessageBox(std::string caption, std::string body, unsigned icon);

} // namespace platform
