// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Finish.h"
#include "art/atelier/Pictures.h"

#include <string>
#include <vector>

// What the program does with the list of pictures. Each command returns the process's exit status and writes
// what it did to stdout, what went wrong to stderr. Pictures are painted side by side on two threads; each is
// painted by one of them from start to end, so that the number of threads cannot be seen in the result.

namespace atelier
{

// How far a repainted picture may be from the file. Machines differ in their JPEG and PNG libraries, not in
// the painting; what differs then is a level here and there.
constexpr double LargestMeanDifference = 0.25; // of 255, over all values of a picture
constexpr int LargestDifference = 12; // of 255, a single value; so much in fewer than one in a thousand
constexpr double LargestPartAbove = 0.001;

struct Difference {
    double mean = 0;
    int largest = 0;
    double partAbove = 0; // of the values that differ by more than LargestDifference
};
// The rasters have equal sizes and channels.
Difference Compare(const Raster& a, const Raster& b);
bool WithinTolerance(const Difference& difference);

// Paints pictures and writes them: to `folder` under their bare names, or, if it is empty, to their places in
// the project, whose root is the working directory.
int PaintFiles(const std::vector<const Picture*>& pictures, const std::string& folder);
// Repaints pictures and compares them with the files in their places. A picture that was replaced by hand
// fails.
int VerifyFiles(const std::vector<const Picture*>& pictures);
// The files in their places as one PNG, with names and sizes in the pen alphabet, alpha over a checker. A
// picture without a file is left out.
int DrawSheet(const std::vector<const Picture*>& pictures, const std::string& path);
// Frames of the show on one sheet, each with its file's name without folder and ending below it. The path's
// end decides between JPEG and PNG.
int DrawScenes(const std::vector<std::string>& frames, const std::string& path);

} // namespace atelier
