// SPDX-License-Identifier: MIT
// All that an outline says, as text to be compared: places, lines, columns, values and what they mean.
#pragma once

#include "tools/edit/Outline.h"

#include <sstream>
#include <string>

inline std::string OutlineText(const edit::Outline& outline)
{
    std::ostringstream text;
    const auto place = [&](const edit::Place& p) { text << " " << p.begin << "-" << p.end; };
    for (const edit::OutlineBlock& block : outline.blocks) {
        text << block.type << " line " << block.line << ":" << block.column << " message "
             << block.messageBlock << (block.complete ? " complete " : " ") << block.effect << " "
             << block.start << " " << block.stop << " " << block.layer << " " << block.message << " steps "
             << block.steps << "x" << block.delta << " " << block.fileName;
        place(block.place);
        place(block.header);
        for (const edit::OutlineTime& time : block.times) {
            text << "\n  at " << time.milliseconds << " " << time.position.line << ":"
                 << time.position.column;
            place(time.place);
        }
        for (const float parameter : block.parameters)
            text << "\n  parameter " << parameter;
        for (const auto* values : {&block.values, &block.unused})
            for (const edit::OutlineValue& value : *values) {
                text << "\n  " << (values == &block.values ? "" : "unused ") << value.key << "=" << value.text
                     << (value.ended ? " ended" : "") << (value.broken ? " broken" : "");
                place(value.place);
                place(value.entry);
            }
        text << "\n";
    }
    return text.str();
}
