// SPDX-License-Identifier: MIT
// Asks for a file: a folder's content, where one is chosen or a name is typed.
//
// Folders are read on a thread, so that a slow disk shows as a list that is still empty.
#pragma once

#include "tools/edit/DiskThread.h"

#include <string>
#include <vector>

namespace edit
{

class FileDialog
{
public:
    FileDialog();

    enum Purpose { ToOpen, ToSave };

    // Shows the folder of `path`, and its name to begin with; empty: the working directory.
    void Begin(Purpose newPurpose, const std::string& path);

    enum Answer { NoAnswer, Chosen, Cancelled };
    // Draws into the current window.
    Answer Draw(float scale);

    const std::string& Path() const { return chosen; } // after Chosen; absolute

private:
    struct FolderItem {
        std::string name;
        bool isFolder;
    };

    // What stands at a path: a folder with its content, or a file.
    struct PathContent {
        bool exists = false;
        bool isFolder = false;
        std::string folder, name;      // of a file the folder that it is in, and its name
        std::vector<FolderItem> items; // of the folder
        std::string trouble;           // a sentence, if it can't be read
    };

    static PathContent LookAt(const std::string& path, bool lists);
    static void ListFolder(PathContent* content);
    void Show(const PathContent& content);
    void Take(const std::string& typed);
    void TakeFile(const PathContent& content);
    void DrawList(float scale, std::string* taken);

    Purpose purpose = ToOpen;
    std::string folder; // absolute
    std::vector<FolderItem> items;
    std::string name; // as it is typed
    std::string chosen;
    std::string trouble; // a sentence; empty: none
    std::string asked;   // the path that will be replaced if it is confirmed
    bool focusName = false;
    Answer answer = NoAnswer; // that has been found
    DiskThread disk;
};

} // namespace edit
