// SPDX-License-Identifier: MIT
// The production's script as the real reader understands it, with the effects' names in place of their
// objects. Needs no window: effects are built and declare their messages, and nothing more.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class NightScript
{
public:
    struct Entry {
        std::string effect;
        uint32_t start, stop; // milliseconds
        uint32_t layer;
    };
    struct Message {
        uint32_t time; // milliseconds
        std::string effect, name;
        std::vector<float> params;
    };

    // Reads Data/script.txt of the source tree. A box that the reader shows fails the test.
    NightScript();

    uint32_t StartOf(const std::string& effect) const; // of its first entry; ~0 if it has none
    uint32_t StopOf(const std::string& effect) const;  // of its first entry; ~0 if it has none

    std::vector<Entry> entries;    // in the script's order
    std::vector<Message> messages; // by time, as the sequencer sorts them
    uint32_t end = 0;              // milliseconds, the largest stop

    // Everything that the effects of the production declare.
    std::vector<std::string> effects;
    std::vector<std::pair<std::string, std::string>> declared; // effect, message
};
