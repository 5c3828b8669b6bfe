// SPDX-License-Identifier: MIT
// Gives the desktop its display mode back if this process ends without doing so itself: by a signal that ends
// it, by a crash, by a kill. An X server keeps the mode that a program has set when the program is gone.
//
// The guard is a small process of its own. It notes the mode of every screen when it starts, waits for the
// end of this process, which closes a pipe between the two whatever the way out was, and then sets what it
// noted.
#pragma once

namespace platform
{

// Starts the guard; call it ahead of a change of the mode, while the process has one thread. It returns once
// the modes are noted. Nothing happens without an X server that can change modes, or while a guard is there.
void StartDisplayModeGuard();

// Ends the guard; call it once the mode is back. Nothing happens without one.
void EndDisplayModeGuard();

} // namespace platform
