// SPDX-License-Identifier: MIT
// What tests watch of TextureLoader.
#pragma once

#include <string>

// Told the path of each picture file ahead of its decoding. Null takes it off.
typedef void (*PictureObserver)(const std::string& path);
void ObservePictures(PictureObserver observer);
