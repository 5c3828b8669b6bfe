// SPDX-License-Identifier: MIT
// What the effects ask for when they are initialised. They can't be asked without GL; a test lets each of
// them load and holds the table against what they did.
#pragma once

#include <string>
#include <vector>

namespace lint
{

struct EffectRequests {
    const char* effect;
    bool loadsOnce;                 // one initialisation for the whole show, otherwise one for every entry
    bool overlay;                   // shows nothing by itself, only on a message
    std::vector<std::string> files; // of the data directory, in the order of loading
};

const std::vector<EffectRequests>& RequestsOfProduction();     // in the order of registration
const EffectRequests* FindRequests(const std::string& effect); // null: no such effect

// What becomes of a show that lacks a file.
enum Loss {
    LossEndsShow, // a box, and the end when everything is loaded: pictures, and shaders of one kind
    LossIsTold,   // a box, and the show goes on without: shaders of the other kind
    LossIsSilent  // nothing is said, and nothing drawn: models
};
Loss LossOf(const std::string& file);

extern const char* const loadingPicture; // what the loading screen shows, whatever is scheduled

} // namespace lint
