// SPDX-License-Identifier: MIT
// The fields of the inspector: a text that is edited in place and taken when Enter or Tab is pressed or the field is left.
// Escape leaves it as it was.
#pragma once

#include <imgui.h>

#include <cstddef>
#include <string>

namespace edit
{

class Fields
{
public:
    // A field under its label, as wide as the column that is left. True in the frame in which *text was changed by the
    // user; text is what the document says until then.
    bool Text(const char* label, std::string* text, const char* hint = "");

    // Starts a row of the two columns: label, then the widget that follows, as wide as its column.
    static void Row(const char* label);

private:
    ImGuiID edited = 0; // the field that is being typed into, and what stands in it
    std::string typed;
};

} // namespace edit
