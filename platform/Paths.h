// SPDX-License-Identifier: MIT
// Where the show's data lies. Everything that opens a data file asks here.
#pragma once

#include <string>

namespace platform
{

// The path of a data file, given its bare name ("stoned.jpg") or a name that already carries the
// directory in one of the spellings that scripts and effects use: "data\", "Data\", "data/", "Data/".
// All of them mean the one data directory. Nothing is opened.
std::string DataPath(std::string name);

// A path as the show's own files have it: in the data directory if it begins with one of those spellings,
// otherwise as it stands, from the working directory or absolute. Nothing is opened.
std::string ResolvePath(std::string path);

// True if the name carries the directory in one of those spellings.
bool NamesDataDirectory(const std::string& name);

// The directory, "Data" until it is set. Without a slash at the end.
void SetDataDirectory(std::string directory);
std::string GetDataDirectory();

// Looks for the data directory: in the working directory, beside the executable (and one folder above,
// and at the root of the source tree when run from its build folder), in the installed share folder.
// The first that is there is set and kept as it was found; if none is there, "Data" stays.
void FindDataDirectory();

} // namespace platform
