// SPDX-License-Identifier: MIT
// Makes a GL context report each of its errors on the debug channel, with the file and line of the GL call.
// Does nothing except in debug builds.
#pragma once

namespace platform
{

// Applies to the current context until that is deleted. Does nothing if the driver lacks KHR_debug.
void ReportGLErrors();

} // namespace platform
