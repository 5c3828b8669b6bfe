// SPDX-License-Identifier: MIT
// How tests, and tools that must not wait for a user, collect message boxes instead of showing them.
#pragma once

#include "platform/dialogs/MessageBox.h"

#include <vector>

namespace platform
{

// From here on boxes of the calling thread, which need not be the main one, are appended to *sink and return at
// once; null shows them again. The sink is borrowed. Returns the thread's sink up to now.
std::vector<MessageBox>* CollectMessageBoxes(std::vector<MessageBox>* sink);

} // namespace platform
