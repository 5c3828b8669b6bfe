// SPDX-License-Identifier: MIT
// The data directory of the show, and the paths of the files in it. All code that opens a data file uses it.
#pragma once

#include <string>

namespace platform
{

// The path of a data file, given its bare name ("stoned.jpg") or a name that already carries the
// directory in one of the spellings that scripts and effects use: "data\", "Data\", "data/", "Data/".
// All of them mean the one data directory. Nothing is opened.
std::string DataPath(std::string name);

// Resolves a path that the show's own files contain: into the data directory if it begins with one of those
// spellings; otherwise it is returned unchanged, absolute or relative. Nothing is opened.
std::string ResolvePath(std::string path);

// True if the name carries the directory in one of those spellings.
bool NamesDataDirectory(const std::string& name);

// The data directory without a trailing slash; "Data" until it is set.
void SetDataDirectory(std::string directory);
std::string GetDataDirectory();

// Looks for the data directory of a production: in the working directory, beside the executable (and one folder
// above, and at the root of the source tree when run from its build folder), in share/NAME of the folder that the
// program is installed in. The first that exists becomes the data directory; if none exists, "Data" stays.
void FindDataDirectory(const std::string& production);

} // namespace platform
