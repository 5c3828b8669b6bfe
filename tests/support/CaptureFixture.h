// SPDX-License-Identifier: MIT
// A folder with a show of a few seconds, for tests that start marlinex-capture and look at what it wrote.
#pragma once

#include "tests/support/PictureFiles.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class CaptureFixture : public testing::Test
{
protected:
    CaptureFixture();
    ~CaptureFixture() override;

    // A show of nothing but the white flash, so that it loads at once: each frame is a little darker than the
    // one before. With music, a tune as long as the show.
    void WriteFlashShow(int milliseconds, bool withMusic = true);

    void WriteFile(const std::string& name, const std::string& text);
    std::string PathOf(const std::string& name) const; // in the folder
    bool Exists(const std::string& name) const;
    std::vector<std::string> Names(const std::string& folder) const; // sorted
    std::string Bytes(const std::string& name) const;

    // marlinex-capture on the software rasteriser, working in the folder, with a small picture unless the
    // words say otherwise and the data of the folder unless they name another.
    ProgramRun Run(std::vector<std::string> words, std::vector<std::string> environment = {});
    static std::vector<std::string> Environment();

    // What ffprobe says of a file of the folder, "stream=codec_name" and the like, one value a line.
    std::string Probe(const std::string& name, const std::string& what, const std::string& streams = "");
    int FrameCount(const std::string& name);                    // decoded ones
    std::vector<unsigned char> Pixels(const std::string& name); // all frames, RGB, top row first
    std::vector<float> Samples(const std::string& name);        // left and right in turns

private:
    std::string Decoded(const std::string& name, const std::vector<std::string>& words);

    std::string folder;
};
