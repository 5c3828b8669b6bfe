// SPDX-License-Identifier: MIT
#include "music/Decoder.h"

#include "music/FileDecoder.h"
#include "music/ModuleDecoder.h"
#include "music/Mp3Decoder.h"

#include <filesystem>

Decoder::~Decoder() {}

std::unique_ptr<Decoder> OpenDecoder(const std::string& path, int mixRate)
{
    // A pipe or a device would keep the main thread waiting for its other end.
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return nullptr;
    std::unique_ptr<Decoder> decoder =
        Mp3Decoder::Recognises(path) ? Mp3Decoder::Open(path) : FileDecoder::Open(path);
    if (!decoder)
        decoder = ModuleDecoder::Open(path, mixRate);
    if (!decoder && Mp3Decoder::HasExtension(path)) // its start may be damaged
        decoder = Mp3Decoder::Open(path);
    if (decoder && (decoder->rate < MinRate || decoder->rate > MaxRate))
        return nullptr;
    return decoder;
}
