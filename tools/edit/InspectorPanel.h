// SPDX-License-Identifier: MIT
// Exact numbers: what is selected, field by field. With nothing selected the music and the colour scheme.
#pragma once

#include "tools/edit/EditorState.h"
#include "tools/edit/Fields.h"
#include "tools/edit/Outline.h"

#include <string>

namespace edit
{

class InspectorPanel
{
public:
    // Draws into the current ImGui window. Once a frame; window's thread.
    void Draw(EditorState* state);

private:
    void DrawShow(EditorState* state);
    void DrawColours(EditorState* state);
    void DrawEntry(EditorState* state, size_t block);
    void DrawMessage(EditorState* state, ItemId item);
    void DrawGroup(EditorState* state, size_t block);
    void DrawParameters(EditorState* state, size_t block);
    void DrawSeveral(EditorState* state);

    // A field for one value of a block.
    void ValueField(EditorState* state, size_t block, const char* label, const char* key);
    // A field for a moment in milliseconds, which may be typed in each form that ReadMoment takes. True when it changed.
    bool MomentField(EditorState* state, const char* label, uint32_t* milliseconds);
    // A choice out of a list. True when one was made.
    static bool Choice(const char* label, const std::vector<std::string>& names, std::string* chosen);

    Fields fields;
};

} // namespace edit
