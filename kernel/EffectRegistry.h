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

    // Appends a row and lets the effect declare its messages at once. A name that is taken already gives
    // false: nothing happens then, and no error is shown.
    bool Register(std::string name, Effect* effect, std::string description);

    // The effect of exactly that name, or null.
    Effect* FindEffect(std::string name) const;

    SynchMessageTable* GetMessageTable() const;

    // Forgets the rows. The effects stay as they are, and so does the message table.
    void Clear();

    // Writes the listing for script writers: every effect with its messages, in order of registration. An
    // existing file is replaced; one that can't be opened is left alone in silence.
    void WriteDemoInfo(std::string fileName) const;
    std::string DemoInfo() const; // the same text

    std::vector<RegisteredEffect> effects; // in order of registration

private:
    SynchMessageTable* messageTable; // lives to the end of the process
};
