// SPDX-License-Identifier: MIT
// What the page of HtmlWriter brings along besides pictures.
#pragma once

namespace timeline
{

extern const char* const PageStyle;  // CSS
extern const char* const PageScript; // JavaScript; holds no "</"

} // namespace timeline
