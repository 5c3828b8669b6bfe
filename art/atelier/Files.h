// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Finish.h"

#include <string>

// Picture files. JPEG: quality 92, colour at full resolution. PNG: 8 bits, RGB or RGBA. The end of the name
// decides.

namespace atelier
{

// The file's bytes in memory: the same raster gives the same bytes.
std::string EncodedJpeg(const Raster& raster);
std::string EncodedPng(const Raster& raster);
std::string Encoded(const Raster& raster, const std::string& name);

// False if the bytes are no picture of that kind or broken.
bool Decode(const std::string& bytes, Raster& raster);

bool ReadFile(const std::string& path, std::string& bytes);
// Makes the folder if it is missing. Writes beside the old file first and then takes its place.
bool WriteFile(const std::string& path, const std::string& bytes);

} // namespace atelier
