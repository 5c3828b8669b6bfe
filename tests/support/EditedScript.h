// SPDX-License-Identifier: MIT
// A script in a document of the editor, for tests of its panels.
#pragma once

#include "tools/edit/Document.h"
#include "tools/edit/EditorState.h"

#include <string>

class EditedScript
{
public:
    explicit EditedScript(const std::string& text); // in a file of its own
    ~EditedScript();

    // The number of the first block that has this text as a value; aborts the test if there is none.
    size_t Block(const std::string& value) const;
    const edit::OutlineBlock& At(size_t block) const { return document.GetOutline().blocks[block]; }

    edit::Document document;
    edit::EditorState state; // of the document; a beat is 600 ms, a bar 1800

    static std::string Entry(const std::string& effect, int start, int stop, int layer);
    static std::string Message(const std::string& effect, const std::string& message,
                               const std::string& times, const std::string& more = "");

    // Layer 9: WhiteFlashOverlay from 0 to 60 s. Layer 1: FX_Clouds from 0 to 20 s, FX_Towers from 20 to 40 s.
    // FX_Clouds hears "hand" at 6 and 9 s, WhiteFlashOverlay a group of "flash" at 1200, 1800 and 2400 ms; nobody hears
    // "flash_line" at 50 s.
    static std::string Night();

private:
    std::string path;
};
