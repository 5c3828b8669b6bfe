// SPDX-License-Identifier: MIT
#include "tools/edit/ScriptEdit.h"

#include "script/ScriptParser.h"
#include "tools/edit/OutlineChange.h"
#include "tools/edit/ValueText.h"

#include <algorithm>
#include <numeric>

namespace edit
{

const size_t ScriptEdit::NoBlock = std::string::npos;

static const char* const unsafe =
    "The show would not read this as it is meant: something around it is written in an odd way.";

ScriptEdit::ScriptEdit(const std::string& scriptText, const Outline& scriptOutline)
    : text(scriptText), outline(scriptOutline), expected(scriptOutline.blocks.size()), isFree(false),
      removed(scriptOutline.blocks.size(), false)
{
}

bool ScriptEdit::Refuse(const std::string& sentence)
{
    if (refusal.empty())
        refusal = sentence;
    return false;
}

std::string LineOf(const OutlineBlock& block)
{
    return "line " + std::to_string(block.line);
}

const std::string* ScriptEdit::Expected::Find(const std::string& key) const
{
    for (const auto& [name, value] : values)
        if (name == key)
            return &value;
    return nullptr;
}

void ScriptEdit::Expected::Set(const std::string& key, const std::string& value)
{
    std::erase_if(values, [&](const auto& each) { return each.first == key; });
    values.emplace_back(key, value);
    if (key == key::ActivationTime)
        times.clear();
}

std::string ScriptEdit::ExpectedValue(size_t block, const std::string& key) const
{
    if (key == key::ActivationTime && !expected[block].times.empty())
        return JoinList(expected[block].times);
    if (const std::string* const changed = expected[block].Find(key))
        return *changed;
    const OutlineValue* const value = Block(block).FindValue(key);
    return value ? value->text : "";
}

std::vector<std::string>& ScriptEdit::ExpectedTimes(size_t block)
{
    std::vector<std::string>& times = expected[block].times;
    if (times.empty())
        times = SplitList(ExpectedValue(block, key::ActivationTime));
    return times;
}

// ---- Values

// True if the value stands after a =. The reader takes "Key;" for an entry without a value.
static bool FollowsEquals(const std::string& text, const OutlineValue& value)
{
    char last = 0;
    bool inComment = false;
    for (size_t i = value.entry.begin; i < value.place.begin; i++)
        if (text[i] == '#')
            inComment = !inComment;
        else if (!inComment && ScriptParser::Keeps(static_cast<unsigned char>(text[i])))
            last = text[i];
    return last == '=';
}

// Where a further entry can stand: after the last one that is ended, or after the header.
static size_t EndOfEntries(const OutlineBlock& block)
{
    size_t end = block.header.end;
    for (const std::vector<OutlineValue>* entries : {&block.values, &block.unused})
        for (const OutlineValue& entry : *entries)
            if (entry.ended)
                end = std::max(end, entry.entry.end);
    return end;
}

bool ScriptEdit::SetValue(size_t block, const std::string& key, const std::string& value)
{
    const OutlineBlock& target = Block(block);
    expected[block].Set(key, value);
    const OutlineValue* entry = target.FindValue(key);
    for (const OutlineValue& unused : target.unused)
        if (!entry && !unused.ended && unused.key == key)
            entry = &unused;
    if (!entry) {
        const BlockStyle style = StyleAt(block);
        const size_t end = EndOfEntries(target);
        const bool isFirst = end == target.header.end;
        // A comment after the entry, on its line, belongs to that entry.
        changes.push_back({BehindOnLine(text, end), "",
                           (isFirst ? style.behindHeader : style.betweenEntries) + key + "=" + value + ";"});
        return true;
    }
    if (entry->broken)
        return Refuse("A ; is missing behind " + key + " in the block of " + LineOf(target) + ".");
    Replace(text, entry->place, (FollowsEquals(text, *entry) ? "" : "=") + value, &changes);
    if (!entry->ended && target.type != BlockMusic)
        changes.push_back({entry->entry.end, "", ";"});
    return true;
}

bool ScriptEdit::RemoveKey(size_t block, const std::string& key)
{
    const OutlineBlock& target = Block(block);
    expected[block].Set(key, "");
    for (const std::vector<OutlineValue>* entries : {&target.values, &target.unused})
        for (const OutlineValue& entry : *entries) {
            if (entry.key != key)
                continue;
            if (entry.broken)
                return Refuse("A ; is missing behind " + key + " in the block of " + LineOf(target) + ".");
            Replace(text, WithItsLines(text, entry.entry, false), "", &changes);
        }
    return true;
}

// ---- Times

bool ScriptEdit::SetTime(size_t block, size_t index, uint32_t milliseconds)
{
    const OutlineValue* const list = Block(block).FindValue(key::ActivationTime);
    if (list->broken)
        return Refuse("A ; is missing behind ActivationTime in the block of " + LineOf(Block(block)) + ".");
    std::string& item = ExpectedTimes(block)[index];
    item = std::to_string(milliseconds);
    Replace(text, Block(block).times[index].place, item, &changes);
    return true;
}

bool ScriptEdit::RemoveTimes(size_t block, std::vector<size_t> indices)
{
    const OutlineBlock& target = Block(block);
    if (target.FindValue(key::ActivationTime)->broken)
        return Refuse("A ; is missing behind ActivationTime in the block of " + LineOf(target) + ".");
    std::vector<std::string>& items = ExpectedTimes(block);
    size_t lastKept = 0;
    for (size_t i = 0; i < target.times.size(); i++)
        if (std::find(indices.begin(), indices.end(), i) == indices.end())
            lastKept = i;
    // An empty item is read as 0, but at the end of a list only if a comma stands after it. That comma stays then.
    const Place last = target.times[lastKept].place;
    const bool keepsComma =
        last.begin == last.end && target.FindValue(key::ActivationTime)->text.back() != ',';
    if (keepsComma)
        items.emplace_back();
    for (size_t i = target.times.size(); i-- > 0;) {
        if (std::find(indices.begin(), indices.end(), i) == indices.end())
            continue;
        items.erase(items.begin() + std::ptrdiff_t(i));
        const Place place = target.times[i].place;
        // A time goes with the comma after it. Times at the end go with all that follows the last one that is left.
        if (i < lastKept)
            Replace(text, {place.begin, target.times[i + 1].place.begin}, "", &changes);
        else if (keepsComma && i == lastKept + 1)
            Replace(text, {last.end + 1, place.end}, "", &changes);
        else
            Replace(text, {target.times[i - 1].place.end, place.end}, "", &changes);
    }
    // With a list the reader passes Steps over; with the one time that is left it would not.
    if (target.times.size() - indices.size() == 1 && target.FindValue(key::Steps) &&
        target.FindValue(key::TimeDelta))
        return RemoveKey(block, key::Steps) && RemoveKey(block, key::TimeDelta);
    return true;
}

// The comma of a list and the blanks after it.
static std::string Separator(const std::string& text, const OutlineBlock& block)
{
    if (block.times.size() > 1) {
        const size_t begin = block.times[0].place.end, end = block.times[1].place.begin;
        const std::string between = text.substr(begin, end - begin);
        if (between[0] == ',' && IsBlank(between.substr(1)))
            return between;
    }
    return ",";
}

bool ScriptEdit::AddTimes(size_t block, std::vector<uint32_t> times, std::vector<size_t>* indices)
{
    const OutlineBlock& target = Block(block);
    const std::vector<OutlineTime>& old = target.times;
    if (old.empty() || target.FindValue(key::ActivationTime)->broken)
        return Refuse("The message of " + LineOf(target) + " has no list of times.");
    if (target.FindValue(key::Steps) && target.FindValue(key::TimeDelta))
        return Refuse("With Steps, the message of " + LineOf(target) + " can have a single time only.");
    const bool inOrder =
        std::is_sorted(old.begin(), old.end(), [](const OutlineTime& a, const OutlineTime& b) {
            return a.milliseconds < b.milliseconds;
        });
    const std::string separator = Separator(text, target);
    std::vector<std::string>& items = ExpectedTimes(block);
    std::stable_sort(times.begin(), times.end());
    indices->clear();
    for (const uint32_t time : times) {
        const std::string number = std::to_string(time);
        size_t before = old.size(); // how many of the old ones stay ahead of it
        while (inOrder && before > 0 && old[before - 1].milliseconds > time)
            before--;
        indices->push_back(before + indices->size());
        items.insert(items.begin() + std::ptrdiff_t(indices->back()), number);
        if (before == 0)
            changes.push_back({old[0].place.begin, "", number + separator});
        else
            changes.push_back({old[before - 1].place.end, "", separator + number});
    }
    return true;
}

// ---- Blocks

bool ScriptEdit::RemoveBlock(size_t block)
{
    removed[block] = true;
    const Place place = WithItsLines(text, Block(block).place, true);
    changes.push_back({place.begin, text.substr(place.begin, place.end - place.begin), ""});
    return true;
}

BlockStyle ScriptEdit::StyleAt(size_t block)
{
    if (lineEnd.empty())
        lineEnd = LineEndOf(text); // all of the text is gone through
    return StyleOf(text, outline, block, lineEnd);
}

size_t ScriptEdit::InsertBlock(size_t behind, const std::string& blockText)
{
    return InsertBlock(behind, blockText, ReadOutline(blockText));
}

size_t ScriptEdit::InsertBlock(size_t behind, const std::string& blockText, Outline content)
{
    const std::vector<OutlineBlock>& blocks = outline.blocks;
    const BlockStyle style = StyleAt(behind == NoBlock ? 0 : behind);
    inserted.push_back({behind, std::move(content)});
    if (behind != NoBlock) {
        changes.push_back(
            {BehindOnLine(text, blocks[behind].place.end), "", style.betweenBlocks + blockText});
    } else if (!blocks.empty()) {
        changes.push_back({blocks[0].place.begin, "", blockText + style.betweenBlocks});
    } else {
        const std::string gap = text.empty()          ? ""
                                : text.back() == '\n' ? style.lineEnd
                                                      : style.lineEnd + style.lineEnd;
        changes.push_back({text.size(), "", gap + blockText + style.lineEnd});
    }
    return inserted.size() - 1;
}

ScriptEdit::Numbers ScriptEdit::NumberBlocks() const
{
    std::vector<size_t> handles(inserted.size()); // in the order in which they will stand
    std::iota(handles.begin(), handles.end(), 0);
    std::stable_sort(handles.begin(), handles.end(), [&](size_t a, size_t b) {
        return inserted[a].behind + 1 < inserted[b].behind + 1; // NoBlock is the largest number
    });
    Numbers numbers = {{}, std::vector<size_t>(inserted.size())};
    numbers.ofOld.reserve(removed.size());
    size_t number = 0;
    auto next = handles.begin();
    for (; next != handles.end() && inserted[*next].behind == NoBlock; ++next)
        numbers.ofNew[*next] = number++;
    for (size_t block = 0; block < removed.size(); block++) {
        numbers.ofOld.push_back(number);
        number += removed[block] ? 0 : 1;
        for (; next != handles.end() && inserted[*next].behind == block; ++next)
            numbers.ofNew[*next] = number++;
    }
    return numbers;
}

// ---- Together

void ScriptEdit::ChangeFreely(const std::vector<TextChange>& freeChanges)
{
    isFree = true;
    changes.insert(changes.end(), freeChanges.begin(), freeChanges.end());
}

// True if each change begins after the end of the one before.
static bool StandApart(const std::vector<TextChange>& changes)
{
    for (size_t i = 1; i < changes.size(); i++)
        if (changes[i].at <= changes[i - 1].at + changes[i - 1].removed.size())
            return false;
    return true;
}

// Puts the changes in order. What is removed twice is removed once; any other overlap can't be done.
bool ScriptEdit::Merge()
{
    if (StandApart(changes)) // as they do when thousands of times are moved
        return true;
    std::stable_sort(changes.begin(), changes.end(),
                     [](const TextChange& a, const TextChange& b) { return a.at < b.at; });
    std::vector<TextChange> merged;
    for (const TextChange& change : changes) {
        const size_t end = merged.empty() ? 0 : merged.back().at + merged.back().removed.size();
        if (merged.empty() || change.at > end || (change.at == end && !merged.back().removed.empty()) ||
            (change.at == end && change.removed.empty())) {
            merged.push_back(change);
        } else if (change.at == end) { // follows an insertion at the same place
            merged.back().removed = change.removed;
            merged.back().inserted += change.inserted;
        } else if (merged.back().inserted.empty() && change.inserted.empty()) {
            const size_t farther = std::max(end, change.at + change.removed.size());
            merged.back().removed = text.substr(merged.back().at, farther - merged.back().at);
        } else if (change.removed.empty() && merged.back().inserted.empty()) {
            merged.back().inserted = change.inserted; // inside of what is removed
        } else {
            return false;
        }
    }
    changes = std::move(merged);
    return true;
}

static bool SayTheSame(const OutlineBlock& a, const OutlineBlock& b)
{
    return a.type == b.type && std::equal(a.values.begin(), a.values.end(), b.values.begin(), b.values.end(),
                                          [](const OutlineValue& x, const OutlineValue& y) {
                                              return x.key == y.key && x.text == y.text;
                                          });
}

bool ScriptEdit::IsAsExpected(size_t block, const OutlineBlock& read) const
{
    const OutlineBlock& before = Block(block);
    if (read.type != before.type)
        return false;
    if (!expected[block].Changes())
        return SayTheSame(before, read);
    for (const std::string& key : SyntaxOf(read.type).keys) {
        const OutlineValue* const value = read.FindValue(key);
        const std::string* const changed = expected[block].Find(key);
        const bool shallBe = changed ? !changed->empty() : before.FindValue(key) != nullptr;
        if ((value != nullptr) != shallBe || (value && value->text != ExpectedValue(block, key)))
            return false;
    }
    return true;
}

bool ScriptEdit::IsAsExpected(const Outline& read) const
{
    const size_t kept = size_t(std::count(removed.begin(), removed.end(), false));
    if (read.blocks.size() != kept + inserted.size())
        return false;
    const Numbers numbers = NumberBlocks();
    for (size_t i = 0; i < inserted.size(); i++) {
        const std::vector<OutlineBlock>& content = inserted[i].content.blocks;
        if (content.size() != 1 || !SayTheSame(content[0], read.blocks[numbers.ofNew[i]]))
            return false;
    }
    for (size_t i = 0; i < outline.blocks.size(); i++)
        if (!removed[i] && !IsAsExpected(i, read.blocks[numbers.ofOld[i]]))
            return false;
    return true;
}

bool ScriptEdit::Finish(std::string* newText, Outline* newOutline)
{
    if (!refusal.empty())
        return false;
    if (!Merge())
        return Refuse(unsafe);
    *newText = Apply(text, changes);
    if (newText->size() > lint::Reading::contentLimit)
        return Refuse("The script would be larger than any script can be (16 MiB).");
    *newOutline = ReadChanged(text, outline, changes, *newText);
    return isFree || IsAsExpected(*newOutline) || Refuse(unsafe);
}

} // namespace edit
