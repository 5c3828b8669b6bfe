// SPDX-License-Identifier: MIT
// What the fuzz targets share. A target is a file NameFuzz.cpp with one function,
//
//     extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
//
// that hands any bytes to one reader of the engine and returns 0. Whatever the bytes are, it must come back
// soon and leave nothing behind that the next call could stumble over: it is called thousands of times in one
// process.
//
// Beside it: corpus/Name, files to start from, crashes/Name, every input that ever broke something, and
// Name.dict, words that mutations may put in (one "..." a line, with \xHH and \\ and \"). A target becomes
// the program fuzz-Name. Where libFuzzer is there (clang and its runtime, the preset "fuzz") that drives it;
// elsewhere PlainDriver.cpp does, which knows the same options.
#pragma once

#include "platform/dialogs/MessageBox.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Writes the bytes to a file of that name in a folder of this process and returns its path. The folder goes
// when the process ends, and is the data directory from the first call on.
std::string WriteFuzzInput(const std::string& name, const void* data, size_t size);

// Collects the boxes that come up, so that none waits for a click, and forgets those of the last input. Takes
// all events off the queue. Call at the start of each input.
std::vector<platform::MessageBox>& StartFuzzInput();

// Takes a number off the end of the input, so that what is left of it stays a file from its first byte on. 0
// if nothing is left.
uint32_t TakeFuzzNumber(const uint8_t* data, size_t* size);
