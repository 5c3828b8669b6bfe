// SPDX-License-Identifier: MIT
#include "tools/edit/InspectorPanel.h"

#include "platform/toolwindow/ToolFonts.h"
#include "tools/edit/Document.h"
#include "tools/edit/EffectCatalogue.h"
#include "tools/edit/Moments.h"
#include "tools/edit/Selection.h"
#include "tools/timeline/Times.h"
#include "tools/timeline/Words.h"

#include <imgui.h>

#include <algorithm>
#include <cmath>

namespace edit
{

// An edit that was refused leaves its reason at the foot of the window.
static void Tell(bool done, EditorState* state)
{
    if (!done)
        state->notice = state->document->LastRefusal();
}

static void Heading(const std::string& text)
{
    ImGui::PushFont(platform::FontOf(platform::HeadingFont));
    ImGui::TextUnformatted(text.c_str());
    ImGui::PopFont();
}

static void Note(const std::string& text)
{
    ImGui::PushFont(platform::FontOf(platform::NoteFont));
    ImGui::PushStyleColor(ImGuiCol_Text, ImGui::GetStyleColorVec4(ImGuiCol_TextDisabled));
    ImGui::PushTextWrapPos(0);
    ImGui::TextUnformatted(text.c_str());
    ImGui::PopTextWrapPos();
    ImGui::PopStyleColor();
    ImGui::PopFont();
}

static void NoteRow(const std::string& text)
{
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    ImGui::TableNextColumn();
    Note(text);
}

static bool BeginRows(const EditorState& state)
{
    if (!ImGui::BeginTable("rows", 2, ImGuiTableFlags_SizingFixedFit))
        return false;
    ImGui::TableSetupColumn("label", ImGuiTableColumnFlags_WidthFixed, 84 * state.scale);
    ImGui::TableSetupColumn("value", ImGuiTableColumnFlags_WidthStretch);
    return true;
}

static std::string MomentWords(uint32_t milliseconds, const EditorState& state)
{
    const double seconds = milliseconds / 1000.0;
    return timeline::ClockText(seconds) + ", " + timeline::MusicalText(seconds, state.tempo);
}

void InspectorPanel::ValueField(EditorState* state, size_t block, const char* label, const char* key)
{
    std::string text;
    state->document->GetOutline().blocks[block].ValueOf(key, &text);
    if (fields.Text(label, &text))
        Tell(state->document->SetValue(block, key, text), state);
}

bool InspectorPanel::MomentField(EditorState* state, const char* label, uint32_t* milliseconds)
{
    std::string text = std::to_string(*milliseconds);
    if (!fields.Text(label, &text))
        return false;
    double seconds = 0;
    std::string reason;
    if (!ReadMoment(text, state->tempo, &seconds, &reason)) {
        state->notice = reason;
        return false;
    }
    *milliseconds = uint32_t(std::llround(std::clamp(seconds * 1000, 0.0, 4294967295.0)));
    return true;
}

bool InspectorPanel::Choice(const char* label, const std::vector<std::string>& names, std::string* chosen)
{
    Fields::Row(label);
    ImGui::PushID(label);
    bool made = false;
    if (ImGui::BeginCombo("##choice", chosen->c_str(), ImGuiComboFlags_HeightLarge)) {
        for (const std::string& name : names)
            if (ImGui::Selectable(name.c_str(), name == *chosen) && name != *chosen) {
                *chosen = name;
                made = true;
            }
        ImGui::EndCombo();
    }
    ImGui::PopID();
    return made;
}

static std::vector<std::string> EffectNames()
{
    std::vector<std::string> names;
    for (const CatalogueEffect& effect : EffectCatalogue::Production().effects)
        names.push_back(effect.key);
    return names;
}

void InspectorPanel::DrawEntry(EditorState* state, size_t index)
{
    Document* const document = state->document;
    const OutlineBlock block = document->GetOutline().blocks[index]; // a copy: edits make the outline anew
    const CatalogueEffect* const effect = EffectCatalogue::Production().FindEffect(block.effect);
    Heading("entry");
    Note("line " + std::to_string(block.line) +
         (effect && effect->overlay ? ". Shows nothing by itself, only on a message." : "."));
    if (!BeginRows(*state))
        return;
    std::string chosen = block.effect;
    if (Choice("effect", EffectNames(), &chosen))
        Tell(document->SetValue(index, key::EffectName, chosen), state);
    if (!effect)
        NoteRow("The show has no effect of this name.");
    ValueField(state, index, "layer", key::LayerID);
    uint32_t start = block.start;
    if (MomentField(state, "start", &start))
        Tell(document->SetValue(index, key::StartTime, std::to_string(start)), state);
    NoteRow(MomentWords(block.start, *state));
    uint32_t stop = block.stop;
    if (MomentField(state, "stop", &stop))
        Tell(document->SetValue(index, key::StopTime, std::to_string(stop)), state);
    NoteRow(MomentWords(block.stop, *state));
    if (block.stop >= block.start) {
        uint32_t length = block.stop - block.start;
        if (MomentField(state, "length", &length))
            Tell(document->SetValue(index, key::StopTime, std::to_string(uint64_t(block.start) + length)),
                 state);
        const double bars = (block.stop - block.start) / 1000.0 / state->tempo.BarSeconds();
        char words[64];
        snprintf(words, sizeof words, ", %.4g bars", std::round(bars * 100) / 100);
        NoteRow(timeline::LengthText((block.stop - block.start) / 1000.0) + words);
    } else {
        NoteRow("It stops before it starts: never on stage.");
    }
    ImGui::EndTable();
}

// The numbers of a parameter list as a user would type them, with empty items up to `least`.
static std::vector<std::string> ParameterItems(const OutlineBlock& block, size_t least)
{
    std::vector<std::string> items;
    for (const float value : block.parameters) {
        char figure[32];
        snprintf(figure, sizeof figure, "%g", double(value));
        items.push_back(figure);
    }
    items.resize(std::max(items.size(), least));
    return items;
}

void InspectorPanel::DrawParameters(EditorState* state, size_t index)
{
    const OutlineBlock block = state->document->GetOutline().blocks[index];
    const CatalogueMessage* const message =
        EffectCatalogue::Production().FindMessage(block.effect, block.message);
    const size_t declared = message ? message->parameters.size() : 0;
    std::vector<std::string> items = ParameterItems(block, declared);
    for (size_t i = 0; i < items.size(); i++) {
        const std::string name = i < declared && !message->parameters[i].empty()
                                     ? message->parameters[i]
                                     : "parameter " + std::to_string(i);
        if (fields.Text(name.c_str(), &items[i], "none")) {
            std::string list;
            while (!items.empty() && items.back().empty())
                items.pop_back();
            for (size_t k = 0; k < items.size(); k++)
                list += (k ? "," : "") + (items[k].empty() ? "0" : items[k]);
            Tell(state->document->SetValue(index, key::Parameter, list), state);
            break;
        }
        if (message && i >= declared)
            NoteRow("The effect does not read it.");
    }
}

void InspectorPanel::DrawGroup(EditorState* state, size_t index)
{
    const OutlineBlock& block = state->document->GetOutline().blocks[index];
    const uint32_t last = block.times[0].milliseconds + (block.steps - 1) * block.delta;
    const std::string words = "the last one at " + MomentWords(last, *state);
    ValueField(state, index, "steps", key::Steps);
    ValueField(state, index, "distance", key::TimeDelta);
    NoteRow(words);
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    ImGui::TableNextColumn();
    if (ImGui::Button("Take apart"))
        Tell(state->document->TakeApart(index), state);
}

void InspectorPanel::DrawMessage(EditorState* state, ItemId item)
{
    Document* const document = state->document;
    const OutlineBlock block = document->GetOutline().blocks[item.block];
    const EffectCatalogue& catalogue = EffectCatalogue::Production();
    const CatalogueMessage* const message = catalogue.FindMessage(block.effect, block.message);
    Heading(block.IsGroup() ? "group of " + std::to_string(block.steps) + " messages" : "message");
    std::string words = "line " + std::to_string(block.line);
    if (!block.IsGroup() && block.times.size() > 1)
        words +=
            ", " + std::to_string(item.time + 1) + " of " + std::to_string(block.times.size()) + " times";
    Note(words + ".");
    if (!BeginRows(*state))
        return;
    std::vector<std::string> names;
    if (const CatalogueEffect* const effect = catalogue.FindEffect(block.effect))
        for (const CatalogueMessage& each : effect->messages)
            names.push_back(each.name);
    std::string chosen = block.message;
    if (Choice("message", names, &chosen))
        Tell(document->SetValue(item.block, key::MessageText, chosen), state);
    if (!message)
        NoteRow("The effect knows no such message.");
    else if (message->idle)
        NoteRow("It changes nothing that is to be seen.");
    else if (!message->description.empty())
        NoteRow(message->description);
    chosen = block.effect;
    if (Choice("to", EffectNames(), &chosen))
        Tell(document->SetValue(item.block, key::TargetEffect, chosen), state);
    uint32_t time = block.times[size_t(item.time)].milliseconds;
    const uint32_t shown = time;
    if (MomentField(state, block.IsGroup() ? "from" : "at", &time))
        Tell(document->SetTime(item, time), state);
    NoteRow(MomentWords(shown, *state));
    if (block.IsGroup()) {
        DrawGroup(state, item.block);
    } else {
        if (block.times.size() > 1)
            ValueField(state, item.block, "all times", key::ActivationTime);
        // A group needs both keys, and a single time.
        std::string steps;
        if (block.times.size() == 1 && fields.Text("steps", &steps, "a single message") &&
            document->SetValue(item.block, key::TimeDelta,
                               std::to_string(std::llround(state->tempo.BeatSeconds() * 1000))))
            Tell(document->SetValue(item.block, key::Steps, steps), state);
    }
    if (item.block < document->GetOutline().blocks.size())
        DrawParameters(state, item.block);
    ImGui::EndTable();
}

void InspectorPanel::DrawSeveral(EditorState* state)
{
    const Outline& outline = state->document->GetOutline();
    size_t entries = 0, messages = 0;
    uint32_t first = UINT32_MAX, last = 0;
    for (const ItemId item : state->selection) {
        if (item.time < 0 && !IsEntry(outline, item))
            continue;
        (item.time < 0 ? entries : messages)++;
        first = std::min(first, StartOf(outline, item));
        last = std::max(last, StopOf(outline, item));
    }
    std::string words;
    if (entries)
        words = timeline::Count(entries, "entry", "entries");
    if (messages)
        words += (words.empty() ? "" : ", ") + timeline::Count(messages, "message", "messages");
    Heading(words);
    if (first > last || !BeginRows(*state))
        return;
    // The selected items all move as far as the first one.
    uint32_t start = first;
    if (MomentField(state, "from", &start))
        Tell(state->document->Move(state->selection, int64_t(start) - int64_t(first), 0), state);
    NoteRow(MomentWords(first, *state));
    Fields::Row("to");
    ImGui::TextUnformatted(std::to_string(last).c_str());
    NoteRow(MomentWords(last, *state));
    ImGui::EndTable();
}

void InspectorPanel::DrawColours(EditorState* state)
{
    // The colour as it is being changed, until the mouse lets go.
    static const struct {
        const char* label;
        const char* key;
    } rows[] = {{"global", key::GlobalColor}, {"support", key::SupportColor}, {"flow", key::FlowColor}};
    const Outline& outline = state->document->GetOutline();
    const auto found = std::find_if(outline.blocks.rbegin(), outline.blocks.rend(),
                                    [](const OutlineBlock& block) { return block.type == BlockColorScheme; });
    Heading("colour scheme");
    if (found == outline.blocks.rend()) {
        Note("The script has none.");
        if (ImGui::Button("Add one"))
            Tell(state->document->SetColorScheme({{1, 1, 1}, {1, 1, 1}, {1, 1, 1}}), state);
        return;
    }
    const size_t block = size_t(found.base() - outline.blocks.begin()) - 1;
    if (!BeginRows(*state))
        return;
    for (const auto& row : rows)
        ValueField(state, block, row.label, row.key);
    ImGui::EndTable();
    Note("Red, green and blue, 0 to 255.");
}

void InspectorPanel::DrawShow(EditorState* state)
{
    if (state->analysis) {
        Heading("the show");
        for (const std::string& phrase : timeline::Summary(state->analysis->model, state->tempo))
            Note(phrase);
        ImGui::Spacing();
    }
    Heading("music");
    std::string file;
    for (const OutlineBlock& block : state->document->GetOutline().blocks)
        if (block.type == BlockMusic)
            file = block.fileName; // the last one plays
    if (BeginRows(*state)) {
        if (fields.Text("file", &file, "none: silence"))
            Tell(state->document->SetMusic(file), state);
        ImGui::EndTable();
    }
    ImGui::Spacing();
    DrawColours(state);
}

void InspectorPanel::Draw(EditorState* state)
{
    DropStale(state->document->GetOutline(), &state->selection);
    ImGui::PushID(state->selection.empty() ? -1 : int(state->selection[0].block));
    if (state->selection.empty()) {
        DrawShow(state);
    } else if (state->selection.size() > 1) {
        DrawSeveral(state);
    } else {
        const ItemId item = state->selection[0];
        ImGui::PushID(item.time);
        const BlockType type = state->document->GetOutline().blocks[item.block].type;
        if (type == BlockEffect)
            DrawEntry(state, item.block);
        else if (type == BlockMessage && item.time >= 0)
            DrawMessage(state, item);
        else
            DrawShow(state);
        ImGui::PopID();
    }
    ImGui::PopID();
}

} // namespace edit
