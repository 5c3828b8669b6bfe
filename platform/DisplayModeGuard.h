// SPDX-License-Identifier: MIT
// Restores the desktop's display mode if this process ends without doing so itself: by a signal, a crash or a
// kill. An X server keeps the mode that a program has set after the program is gone.
//
// The guard is a small process of its own. It records the mode of every screen when it starts and waits for
// the end of this process, which closes the pipe between the two however it ends. Then the guard sets the
// recorded modes.
#pragma once

namespace platform
{

// Starts the guard. Call before changing the mode, while the process has one thread. Returns once the modes
// are recorded. Does nothing without an X server that can change modes, or while a guard is running.
void StartDisplayModeGuard();

// Ends the guard. Call once the mode is restored. Does nothing if no guard is running.
void EndDisplayModeGuard();

} // namespace platform
