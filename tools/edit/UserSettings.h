// SPDX-License-Identifier: MIT
// What the editor remembers for its user from one start to the next, in $XDG_CONFIG_HOME/marlinex/edit.json. Nothing
// of it belongs into a script.
#pragma once

#include "tools/edit/EditorState.h"

#include <string>
#include <vector>

namespace edit
{

// What is remembered of one script.
struct ScriptMemory {
    std::string path; // absolute
    double playhead = 0;
    timeline::Tempo tempo;
    std::vector<double> markers;
    double loopStart = 0, loopEnd = 0;
};

struct UserSettings {
    static constexpr size_t MaxScripts = 20;

    int width = 1280; // of the window, pixels of the design
    int height = 800;
    bool maximised = false;
    float stageShare = 0.52f;     // of the height, above the timeline
    float pictureShare = 0.66f;   // of the width, left of inspector and findings
    float inspectorShare = 0.55f; // of that column's height
    bool inspector = true;        // whether it is shown
    bool findings = true;
    bool follow = true;
    SnapSetting snap;
    std::vector<ScriptMemory> scripts; // the one that was open last comes first

    // What is remembered of the script; if that is nothing, the default values with the tempo used last.
    ScriptMemory MemoryOf(const std::string& path) const;
    // Puts the script first in the list, in place of what was remembered of it.
    void Remember(const ScriptMemory& memory);

    std::string ToJson() const;
    // Takes over the usable values that the text holds; all others stay as they are. False: it is not JSON.
    bool FromJson(const std::string& text);

    // $XDG_CONFIG_HOME/marlinex/edit.json, ~/.config if that is not set. Empty: there is no home.
    static std::string Path();
    void Load();                          // without a file everything stays as it is
    bool Save(std::string* reason) const; // the file is replaced when the new one is complete
};

} // namespace edit
