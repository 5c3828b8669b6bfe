// SPDX-License-Identifier: MIT
// The window of a message box.
#pragma once

#include "platform/dialogs/MessageBox.h"

namespace platform
{

// Does what ShowMessageBox says, with a real window. There must be a display.
void RunMessageBoxWindow(const MessageBox& box);

} // namespace platform
