// SPDX-License-Identifier: MIT
// Things at a file's path that can't be read to an end: a folder, a FIFO without a writer, an endless device,
// a symbolic link to itself or to nothing.
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
    void (*make)(const std::string& path); // nothing may exist at the path; remove() deletes it
};

const std::vector<OddFile>& OddFiles();
