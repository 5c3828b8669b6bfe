// SPDX-License-Identifier: MIT
// Tracker modules through libopenmpt, rendered in stereo. A module is a program for its player, so the only
// way to know the sound of a place is to play up to it: Seek goes on from where it is, or starts anew.
#pragma once

#include "music/Decoder.h"

struct openmpt_module;

class ModuleDecoder : public Decoder
{
public:
    static std::unique_ptr<Decoder> Open(const std::string& path, int mixRate); // null: not a module
    ~ModuleDecoder() override;

    int Read(float* samples) override;
    int64_t Seek(int64_t frame) override;

private:
    ModuleDecoder(const std::vector<char>& content, openmpt_module* openModule, int mixRate);

    std::vector<char> bytes;
    openmpt_module* module; // owned
    int64_t position;       // frames
};
