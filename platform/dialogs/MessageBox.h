// SPDX-License-Identifier: MIT
// Modal message boxes: caption, wrapped body, icon, one OK button. Possible before any window exists and
// while a full-screen window is up. Main thread only, but for threads that collect their boxes.
#pragma once

#include <string>
#include <vector>

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

// For tests and tools: from here on boxes of the calling thread are appended to *sink and return at once; null
// shows them again. The sink is borrowed. Returns the thread's sink up to now.
std::vector<MessageBox>* CollectMessageBoxes(std::vector<MessageBox>* sink);

} // namespace platform
