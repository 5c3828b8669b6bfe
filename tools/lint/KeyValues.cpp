// SPDX-License-Identifier: MIT
#include "tools/lint/KeyValues.h"

#include "script/ScriptParser.h"

#include <algorithm>

namespace lint
{

// Stores where in the stream each character of the value stands, and last the character that ends it. As in
// ScriptParser::GetValue, the value begins after the = up to which the text without = signs is the key, and
// leaves out any further =.
static void FindValuePlaces(KeyValue* entry)
{
    const std::string& text = entry->text;
    const size_t end = entry->ended ? text.size() - 1 : text.size();
    std::string word;
    size_t i = entry->key.empty() ? end : 0; // without a key there is no value
    while (i < end && !(text[i] == '=' && word == entry->key)) {
        if (text[i] != '=')
            word += text[i];
        i++;
    }
    entry->valuePlaces.reserve(end - i + 1);
    for (; i < end; i++)
        if (text[i] != '=')
            entry->valuePlaces.push_back(uint32_t(entry->begin + i));
    entry->valuePlaces.push_back(uint32_t(entry->begin + end));
}

// An entry whose ; is missing contains the next key as well. Returns where that key begins in the text of the
// entry, or npos.
static size_t FindSwallowedKey(const KeyValue& entry, const BlockSyntax& keys)
{
    const size_t first = entry.text.find('=');
    if (first == std::string::npos)
        return std::string::npos;
    for (size_t next = entry.text.find('=', first + 1); next != std::string::npos;
         next = entry.text.find('=', next + 1))
        for (const std::string& key : keys.keys)
            if (next >= first + 1 + key.size() && entry.text.compare(next - key.size(), key.size(), key) == 0)
                return next - key.size();
    return std::string::npos;
}

// False if the reader can't find the entry under the key: what it compares begins with the entry's first characters, =
// signs left out.
static bool MayHaveKey(const std::string& entry, const std::string& key)
{
    size_t same = 0;
    for (size_t i = 0; i < entry.size() && same < key.size(); i++) {
        if (entry[i] == '=')
            continue;
        if (entry[i] != key[same])
            return false;
        same++;
    }
    return same == key.size();
}

std::vector<KeyValue> SplitKeyValues(const Block& block)
{
    // At a ; ScriptParser::GetValue forgets all but the value that it has found, so that it gives the same
    // result for single entries as for the whole block.
    ScriptParser reader;
    std::vector<KeyValue> entries;
    for (size_t begin = 0; begin < block.text.size();) {
        const size_t semicolon = block.text.find(';', begin);
        const bool ended = semicolon != std::string::npos;
        const size_t end = ended ? semicolon + 1 : block.text.size();
        KeyValue entry = {block.text.substr(begin, end - begin),
                          block.body + begin,
                          ended,
                          "",
                          "",
                          "",
                          {},
                          false,
                          std::string::npos};
        entry.word = entry.text.substr(0, entry.text.find_first_of("=;"));
        for (const std::string& key : SyntaxOf(block.type).keys) {
            std::string value;
            if (MayHaveKey(entry.text, key) &&
                reader.GetValue(ended ? entry.text : entry.text + ";", key, &value)) {
                entry.key = key;
                entry.value = value;
                break;
            }
        }
        entry.counts = ended && !entry.key.empty() && !FindKeyValue(entries, entry.key);
        FindValuePlaces(&entry);
        entry.swallowed = FindSwallowedKey(entry, SyntaxOf(block.type));
        entries.push_back(std::move(entry));
        begin = end;
    }
    return entries;
}

const KeyValue* FindKeyValue(const std::vector<KeyValue>& entries, const std::string& key)
{
    for (const KeyValue& entry : entries)
        if (entry.counts && entry.key == key)
            return &entry;
    return nullptr;
}

const KeyValue* FindIntact(const std::vector<KeyValue>& entries, const std::string& key)
{
    const KeyValue* const found = FindKeyValue(entries, key);
    return found && !found->IsBroken() ? found : nullptr;
}

std::vector<ListItem> SplitItems(const KeyValue& entry)
{
    std::vector<ListItem> items;
    for (size_t begin = 0; begin <= entry.value.size();) {
        const size_t end = std::min(entry.value.find(',', begin), entry.value.size());
        const size_t last = end > begin ? end - 1 : begin;
        items.push_back(
            {entry.value.substr(begin, end - begin), entry.valuePlaces[begin], entry.valuePlaces[last]});
        begin = end + 1;
    }
    return items;
}

} // namespace lint
