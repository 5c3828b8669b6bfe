// SPDX-License-Identifier: MIT
// The effects that a script can name, with the messages that each declares and the parameters that it reads.
#pragma once

#include "kernel/EffectRecord.h"

#include <string>
#include <vector>

class EffectRegistry;

namespace edit
{

struct CatalogueMessage {
    std::string name;
    std::string description;             // empty if the effect says nothing of it
    std::vector<std::string> parameters; // a name for each that is read; may be empty
    bool idle;                           // declared for the sake of scripts: nothing is to be seen
};

struct CatalogueEffect {
    std::string key;
    EffectWash wash;
    bool overlay; // shows nothing by itself, only on a message
    std::vector<CatalogueMessage> messages;
};

class EffectCatalogue
{
public:
    explicit EffectCatalogue(const EffectRegistry& registry);

    // That of the production, made at the first call. Window's thread only.
    static const EffectCatalogue& Production();

    const CatalogueEffect* FindEffect(const std::string& key) const; // null: there is none
    const CatalogueMessage* FindMessage(const std::string& effect, const std::string& message) const;

    std::vector<CatalogueEffect> effects; // in the order of the list
};

// What a new message is sent with: 2.00 for each parameter that is read.
std::string UsualParameters(const CatalogueMessage& message);

} // namespace edit
