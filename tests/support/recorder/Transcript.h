// SPDX-License-Identifier: MIT
// What an effect sends, whole: the calls of a frame as a text to read, kept beside the golden images. The
// tests of an effect say what each pass has to be; the transcript holds the rest, every call in its place, so
// that nothing changes in silence. To accept new ones, read what changed, then
//
//     MARLINEX_UPDATE_GOLDEN=1 ctest --preset release -R Transcripts
//
// Blocks between push and pop, begin and end are indented, what belongs to a vertex stands on its line. Of
// many alike the first are shown; a line behind them has the number of the others and two sums over all their
// numbers, the second with weights, so that a number that changes changes them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace gl
{

std::vector<std::string> Transcript(const std::vector<std::string>& calls);

// Calls() of the recorder, in which each draw of arrays, also one in a display list that was called, is
// followed by a line for each of its vertices.
std::vector<std::string> CallsWithVertices();

// Compares with tests/golden/calls/NAME.txt. Numbers may differ by 0.00002 and 0.00001 of themselves: sines
// come from the C library, and another version of it may round the last bit in another way. The sums over
// many may differ by ten times that.
testing::AssertionResult MatchesTranscript(const std::vector<std::string>& lines, std::string name);

// The same with the folder named.
testing::AssertionResult MatchesTranscriptIn(std::string folder, bool update,
                                             const std::vector<std::string>& lines, std::string name);

} // namespace gl
