// SPDX-License-Identifier: MIT
// What the show's own reader and the show's own player make of a script, each thing as a line of text, so that
// scripts can be held against each other.
#pragma once

#include <string>
#include <vector>

struct PlayedScript {
    std::vector<std::string> entries; // "FX_Clouds 0..10 on 1", seconds and layer, in the order of the script
    // "FX_Clouds hand at 1.5", with parameters " (2 0.5)", in the order of the script.
    std::vector<std::string> messages;
    std::vector<std::string> colours; // the three of the player, "1 0.5 0"
    int boxes;                        // that the show would bring up

    bool operator==(const PlayedScript&) const = default;
};

// Without music. Scripts that ask for messages by the million are not for this.
PlayedScript Play(const std::string& script);

// All lines as one text, for the message of a failing test.
std::string Told(const PlayedScript& played);
