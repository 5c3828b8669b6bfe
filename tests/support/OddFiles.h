// SPDX-License-Identifier: MIT
// What can stand in a file's place and is no file that could be read to its end: a folder, a FIFO that nobody
// writes into, a device without an end, a link to itself or to nothing.
//
//     for (const OddFile& odd : OddFiles()) {
//         odd.make(path);
//         EXPECT_FALSE(Load(path)) << odd.name;
//         remove(path.c_str());
//     }
#pragma once

#include <string>
#include <vector>

struct OddFile {
    const char* name;
    void (*make)(const std::string& path); // of a file that isn't there; remove() takes it away again
};

const std::vector<OddFile>& OddFiles();
