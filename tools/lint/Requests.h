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

extern const char* const loadingPicture; // what the loading screen shows, whatever is scheduled

} // namespace lint
