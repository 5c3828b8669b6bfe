// SPDX-License-Identifier: MIT
// Makes a GL context report its errors: each with the file and line of the call, on the debug channel. In
// debug builds only, where that channel is stderr; in others nothing happens.
#pragma once

namespace platform
{

// For the context that is current, and until it is deleted. A driver without KHR_debug is asked in vain.
void ReportGLErrors();

} // namespace platform
