// SPDX-License-Identifier: MIT
// Asks for a file: a folder's content, where one is chosen or a name is typed.
#pragma once

#include <string>
#include <vector>

namespace edit
{

class FileDialog
{
public:
    enum Purpose { ToOpen, ToSave };

    // Shows the folder of `path`, and its name to begin with; empty: the working directory.
    void Begin(Purpose newPurpose, const std::string& path);

    enum Answer { NoAnswer, Chosen, Cancelled };
    // Draws into the current window.
    Answer Draw(float scale);

    const std::string& Path() const { return chosen; } // after Chosen; absolute

private:
    struct Item {
        std::string name;
        bool isFolder;
    };

    void ReadFolder(const std::string& newFolder);
    Answer Take(const std::string& typed);
    void DrawList(float scale, std::string* taken);

    Purpose purpose = ToOpen;
    std::string folder; // absolute
    std::vector<Item> items;
    std::string name; // as it is typed
    std::string chosen;
    std::string trouble; // a sentence; empty: none
    std::string asked;   // the path that will be replaced if it is confirmed
    bool focusName = false;
};

} // namespace edit
