// SPDX-License-Identifier: MIT
// The outline of a script after small changes, without reading all of it anew: while something is dragged it is needed at
// every step.
#pragma once

#include "tools/edit/Outline.h"
#include "tools/edit/TextChange.h"

#include <string>
#include <vector>

namespace edit
{

// What ReadOutline makes of `after`, which is `before`, with its outline, after the changes, in order. Where they can only
// touch blocks that they stand in, and these are few, only those go through the show's reader, and the others are taken
// over with their new places; else all of the text does.
Outline ReadChanged(const std::string& before, const Outline& outline, const std::vector<TextChange>& changes,
                    const std::string& after);

} // namespace edit
