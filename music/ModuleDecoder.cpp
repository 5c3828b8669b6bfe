// SPDX-License-Identifier: MIT
#include "music/ModuleDecoder.h"

#include <cstdio>
#include <libopenmpt/libopenmpt.h>

static const size_t maxModuleBytes = 64 << 20; // bytes; the largest that musicians made are near 20 MB

static openmpt_module* CreateModule(const std::vector<char>& bytes)
{
    return openmpt_module_create_from_memory2(bytes.data(), bytes.size(), openmpt_log_func_silent, nullptr,
                                              openmpt_error_func_ignore, nullptr, nullptr, nullptr, nullptr);
}

std::unique_ptr<Decoder> ModuleDecoder::Open(const std::string& path, int mixRate)
{
    FILE* file = fopen(path.c_str(), "rb");
    if (!file)
        return nullptr;
    std::vector<char> bytes;
    char piece[65536];
    size_t got;
    while (bytes.size() <= maxModuleBytes && (got = fread(piece, 1, sizeof(piece), file)) > 0)
        bytes.insert(bytes.end(), piece, piece + got);
    fclose(file);
    if (bytes.size() > maxModuleBytes)
        return nullptr;
    openmpt_module* module = CreateModule(bytes);
    if (!module)
        return nullptr;
    return std::unique_ptr<Decoder>(new ModuleDecoder(bytes, module, mixRate));
}

ModuleDecoder::ModuleDecoder(const std::vector<char>& content, openmpt_module* openModule, int mixRate)
    : bytes(content), module(openModule), position(0)
{
    rate = mixRate;
    speakers = UsualSpeakers(2);
}

ModuleDecoder::~ModuleDecoder()
{
    openmpt_module_destroy(module);
}

int ModuleDecoder::Read(float* samples)
{
    if (!module)
        return 0;
    const int got = int(openmpt_module_read_interleaved_float_stereo(module, rate, BlockFrames, samples));
    position += got;
    return got;
}

int64_t ModuleDecoder::Seek(int64_t frame)
{
    if (frame < position) {
        // Opened anew, which takes less than a millisecond, it can't remember anything of what it played.
        openmpt_module_destroy(module);
        module = CreateModule(bytes);
        position = 0;
    }
    return module ? position : -1;
}
