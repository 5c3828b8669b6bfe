// SPDX-License-Identifier: MIT
// The window of a tool.
#pragma once

namespace platform
{

} // namespace platform
