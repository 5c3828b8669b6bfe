// SPDX-License-Identifier: MIT
// What the page of HtmlWriter brings along besides pictures: the files of the folder page.
#pragma once

#include <string>

namespace timeline
{

std::string PageStyle();  // CSS, with the show's colours as variables: var(--ink), var(--amber) ...
std::string PageScript(); // JavaScript; holds no "</"

} // namespace timeline
