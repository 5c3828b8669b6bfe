// SPDX-License-Identifier: MIT
// One edit in the making: what is to change in a script, and what the show is to read afterwards. Nothing is
// written before Finish, which lets the show's reader say whether it is what was meant.
#pragma once

#include "tools/edit/Outline.h"
#include "tools/edit/ScriptText.h"
#include "tools/edit/TextChange.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace edit
{

class ScriptEdit
{
public:
    static const size_t NoBlock;

    // Both are borrowed; the outline is that of the text.
    ScriptEdit(const std::string& scriptText, const Outline& scriptOutline);

    const std::string& Text() const { return text; }
    const Outline& GetOutline() const { return outline; }
    const OutlineBlock& Block(size_t block) const { return outline.blocks[block]; }

    // All numbers are those of the outline at hand, however much has been changed. Whatever is false was refused, and
    // Refusal() says why.
    bool Refuse(const std::string& sentence);
    const std::string& Refusal() const { return refusal; }

    // The value as it is to stand there, not empty. The key is added if it is missing. Once for each key.
    bool SetValue(size_t block, const std::string& key, const std::string& value);
    bool RemoveKey(size_t block, const std::string& key);

    // Times of an ActivationTime by their number. Not all of them may be removed. The reader passes Steps over beside
    // several times; where a single time is left, it is removed as well, since it would count from then on.
    bool SetTime(size_t block, size_t index, uint32_t milliseconds);
    bool RemoveTimes(size_t block, std::vector<size_t> indices);

    // Further times; each goes where its time belongs if the list is in order, else to the end. Once for each block,
    // with no other change of its times. `indices` are their numbers afterwards.
    bool AddTimes(size_t block, std::vector<uint32_t> times, std::vector<size_t>* indices);

    bool RemoveBlock(size_t block);

    // The text of one block, whose layout is its own, goes after a block of the outline, or ahead of the first one,
    // NoBlock. Several at one place come in the order of the calls. Returns its handle for NumberOf.
    size_t InsertBlock(size_t behind, const std::string& blockText);
    size_t InsertBlock(size_t behind, const std::string& blockText,
                       Outline content); // which is that of the text

    // How blocks are written there. NoBlock, or the number of none: as elsewhere in the script.
    BlockStyle StyleAt(size_t block);

    // Numbers in the outline that Finish makes: of the blocks that were there, and of the inserted ones by their handles.
    // Where a block is removed, that of what follows it.
    struct Numbers {
        std::vector<size_t> ofOld, ofNew;
    };
    Numbers NumberBlocks() const;

    // Any change at all. Finish then no longer checks that the show reads what was meant: the caller has to.
    void ChangeFreely(const std::vector<TextChange>& freeChanges);

    // Applies all changes and reads the result.
    bool Finish(std::string* newText, Outline* newOutline);

private:
    struct Inserted {
        size_t behind;
        Outline content; // one block
    };
    // What a block is to say where it changes.
    struct Expected {
        std::vector<std::pair<std::string, std::string>> values; // by key; "": none
        std::vector<std::string> times;                          // where they changed one by one, else empty

        const std::string* Find(const std::string& key) const; // null: this key stays as it is
        void Set(const std::string& key, const std::string& value);
        bool Changes() const { return !values.empty() || !times.empty(); }
    };

    bool Merge();
    std::string ExpectedValue(size_t block, const std::string& key) const;
    std::vector<std::string>& ExpectedTimes(size_t block);
    bool IsAsExpected(size_t block, const OutlineBlock& read) const;
    bool IsAsExpected(const Outline& read) const;

    const std::string& text;
    const Outline& outline;
    std::string lineEnd; // of the text; empty: not yet looked for
    std::string refusal;
    std::vector<TextChange> changes;
    std::vector<Expected> expected; // by block
    bool isFree;                    // Finish expects nothing
    std::vector<bool> removed;      // blocks
    std::vector<Inserted> inserted;
};

// "line 12", for sentences.
std::string LineOf(const OutlineBlock& block);

} // namespace edit
