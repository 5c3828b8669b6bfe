// SPDX-License-Identifier: MIT
// The style sheet and the script that HtmlPicture writes into its page, embedded from the folder tools/timeline/page.
#pragma once

#include <string>

namespace timeline
{

std::string PageStyle();  // CSS, with the show's colours as variables: var(--ink), var(--amber) ...
std::string PageScript(); // JavaScript; holds no "</"

} // namespace timeline
