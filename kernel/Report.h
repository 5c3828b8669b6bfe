// SPDX-License-Identifier: MIT
// What the program tells its user, and the checked way to open a file. Nothing here ends the program: a
// caller that can't go on reports first and then posts a quit with PostQuit(0).
//
// This pair of files stands below all folders but platform/, because resources/ and display/ report through
// it.
#pragma once

#include <cstdio>
#include <string>

// A box with the error icon. Caption: "Marlinex 1.5 Error: " and the title. Body: "Bad: ", the text, and
// ErrorTail. Returns when the user has confirmed it.
void ReportError(std::string title, std::string text);

// A box with the information icon. Caption: "Marlinex 1.5 Information: " and the title. Body: "Info: " and
// the text.
void ReportInfo(std::string title, std::string text);

// The constant paragraph under every error, 449 characters, its two line ends in front included.
extern const char* const ErrorTail;

// Opens a regular file with a mode of fopen's; neither argument may be null. A path in the data directory, in whatever
// spelling (see platform/Paths.h), is opened and reported where the data really lies; other paths are relative to the
// working directory. On failure, whatever the cause: ReportError("File Not Found!", path), PostQuit(0), null.
// A folder, a FIFO or a device counts as a failure (see platform/RegularFile.h).
FILE* OpenFile(const char* path, const char* mode);

// The same for a path that never means the data directory: one that isn't absolute starts from the working
// directory, also if its first folder is called data.
FILE* OpenLocalFile(const char* path, const char* mode);

// Closes the handle unless it is null.
void CloseFile(FILE* file);
