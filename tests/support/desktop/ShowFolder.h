// SPDX-License-Identifier: MIT
// A working directory for a show of a test's own: an empty folder with an empty Data folder in it, which goes
// away with this object.
#pragma once

#include <string>

class ShowFolder
{
public:
    ShowFolder();
    ~ShowFolder();
    ShowFolder(const ShowFolder&) = delete;
    ShowFolder& operator=(const ShowFolder&) = delete;

    // Writes a file, such as "Data/script.txt". Its folder must be there.
    void Write(const std::string& name, const std::string& text);

    // Copies a file of the project's own Data folder into this one, by its bare name. False if there is none.
    bool CopyData(const std::string& name);

    std::string path; // empty if the folder couldn't be made
};
