// SPDX-License-Identifier: MIT
// Errors of the X server. They have a file of their own because Xlib's headers take names such as KeyPress as macros.
#pragma once

namespace platform
{

// From now on what the server refuses is passed over, on all connections of the process; Xlib would end the process.
void IgnoreXErrors();

} // namespace platform
