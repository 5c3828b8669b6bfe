// SPDX-License-Identifier: MIT
// The three colours that a script can set. Each is red, green and blue; 255 in a script is 1.0 here. Values
// are not clamped. No effect of this production reads them.
#pragma once

struct ColorScheme {
    float global[3];
    float support[3];
    float flow[3];
};
