// SPDX-License-Identifier: MIT
// Three colours that a script can set: red, green, blue, 1 for a script's 255, never clamped.
#pragma once

struct ColorScheme {
    float global[3];
    float support[3];
    float flow[3];
};
