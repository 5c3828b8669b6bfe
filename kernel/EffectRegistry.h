// SPDX-License-Identifier: MIT
// The name table through which a script reaches the effects.
#pragma once

#include <string>
#include <vector>

class Effect;
class SynchMessageTable;

struct RegisteredEffect {
    std::string name;
    std::string description;
    Effect* effect; // borrowed
};

class EffectRegistry
{
public:
    EffectRegistry();

    // Appends a row and calls the effect's DeclareMessages; the effect must not be null. Returns false, changes
    // nothing and shows no error if the name is taken already.
    bool Register(std::string name, Effect* effect, std::string description);

    // The effect of exactly that name, or null.
    Effect* FindEffect(std::string name) const;

    SynchMessageTable* GetMessageTable() const;

    // Removes all rows. The effects and the message table are not touched.
    void Clear();

    // Writes the listing for script writers: every effect with its messages, in order of registration. An
    // existing file is replaced. Nothing is reported if the file can't be opened.
    void WriteDemoInfo(std::string fileName) const;
    std::string DemoInfo() const; // the same text

    std::vector<RegisteredEffect> effects; // in order of registration

private:
    SynchMessageTable* messageTable; // lives to the end of the process
};
