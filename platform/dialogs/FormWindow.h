// SPDX-License-Identifier: MIT
// The window of the start form.
#pragma once

#include "platform/dialogs/StartForm.h"

namespace platform
{

// Does what ShowStartForm says, with a real window. There must be a display.
int RunFormWindow(StartForm& form);

} // namespace platform
