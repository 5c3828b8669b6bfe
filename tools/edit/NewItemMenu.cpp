// SPDX-License-Identifier: MIT
#include "tools/edit/NewItemMenu.h"

#include "platform/toolwindow/ToolFonts.h"
#include "tools/edit/Document.h"
#include "tools/edit/EffectCatalogue.h"
#include "tools/edit/Selection.h"
#include "tools/timeline/Times.h"

#include <imgui.h>

#include <cmath>

namespace edit
{

static const char* const popup = "new item";

void NewItemMenu::Open(uint32_t milliseconds, uint32_t newLayer, const std::string& ofEffect)
{
    opens = true;
    time = milliseconds;
    layer = newLayer;
    effect = ofEffect;
}

static Selection InList(const std::optional<ItemId>& item)
{
    return item ? Selection{*item} : Selection();
}

// The new items are what is selected then.
static void TakeNew(Selection items, EditorState* state)
{
    if (items.empty()) {
        state->notice = state->document->LastRefusal();
        return;
    }
    Sort(&items);
    state->selection = items;
}

void NewItemMenu::DrawItemCommands(EditorState* state)
{
    Document* const document = state->document;
    const Outline& outline = document->GetOutline();
    const Selection& selection = state->selection;
    const auto told = [&](bool done) {
        if (!done)
            state->notice = document->LastRefusal();
        return done;
    };
    const bool any = !selection.empty();
    if (any) {
        if (ImGui::MenuItem("Go there"))
            state->goTo = StartOf(outline, selection[0]) / 1000.0;
        if (ImGui::MenuItem("Duplicate")) {
            TakeNew(document->Duplicate(selection, CopyShift(outline, selection, state->tempo)), state);
            ImGui::CloseCurrentPopup();
            return;
        }
        if (ImGui::MenuItem("Cut")) {
            ImGui::SetClipboardText(document->Copy(selection).c_str());
            if (told(document->Delete(selection)))
                state->selection.clear();
            return;
        }
        if (ImGui::MenuItem("Copy"))
            ImGui::SetClipboardText(document->Copy(selection).c_str());
    }
    const char* const copied = ImGui::GetClipboardText();
    const std::string clipboard = copied ? copied : "";
    if (ImGui::MenuItem("Paste here", nullptr, false, !clipboard.empty())) {
        TakeNew(document->Paste(clipboard, time), state);
        return;
    }
    if (any) {
        if (ImGui::MenuItem("Delete")) {
            if (told(document->Delete(selection)))
                state->selection.clear();
            return;
        }
        const OutlineBlock& block = outline.blocks[selection[0].block];
        if (selection.size() == 1 && block.type == BlockMessage && block.IsGroup() &&
            ImGui::MenuItem("Take the group apart")) {
            told(document->TakeApart(selection[0].block));
            return;
        }
    }
    ImGui::Separator();
}

void NewItemMenu::DrawMessages(EditorState* state, Tapping* tapping, const std::string& ofEffect)
{
    const CatalogueEffect* const owner = EffectCatalogue::Production().FindEffect(ofEffect);
    if (!owner)
        return;
    for (const CatalogueMessage& message : owner->messages) {
        std::string hint;
        for (const std::string& parameter : message.parameters)
            hint += (hint.empty() ? "" : ", ") + (parameter.empty() ? "a number" : parameter);
        if (message.idle)
            hint = "changes nothing";
        if (ImGui::MenuItem(message.name.c_str(), hint.c_str())) {
            TakeNew(InList(state->document->InsertMessage(ofEffect, message.name, time,
                                                          UsualParameters(message))),
                    state);
            tapping->Choose(ofEffect, message.name, UsualParameters(message));
        }
    }
}

void NewItemMenu::Draw(EditorState* state, Tapping* tapping)
{
    if (opens)
        ImGui::OpenPopup(popup);
    opens = false;
    if (!ImGui::BeginPopup(popup))
        return;
    if (ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape)))
        ImGui::CloseCurrentPopup(); // with the menus that hang on it
    const double seconds = time / 1000.0;
    ImGui::PushFont(platform::FontOf(platform::NoteFont));
    ImGui::TextDisabled("at %s, %s", timeline::ClockText(seconds).c_str(),
                        timeline::MusicalText(seconds, state->tempo).c_str());
    ImGui::PopFont();
    DrawItemCommands(state);
    if (!effect.empty())
        if (ImGui::BeginMenu(("New message to " + effect).c_str())) {
            DrawMessages(state, tapping, effect);
            ImGui::EndMenu();
        }
    if (ImGui::BeginMenu("New message")) {
        for (const CatalogueEffect& each : EffectCatalogue::Production().effects)
            if (ImGui::BeginMenu(each.key.c_str(), !each.messages.empty())) {
                DrawMessages(state, tapping, each.key);
                ImGui::EndMenu();
            }
        ImGui::EndMenu();
    }
    if (ImGui::BeginMenu("New entry")) {
        const uint32_t length = uint32_t(std::llround(UsualBars * state->tempo.BarSeconds() * 1000));
        ImGui::PushFont(platform::FontOf(platform::NoteFont));
        ImGui::TextDisabled("on layer %u, %d bars long", layer, UsualBars);
        ImGui::PopFont();
        for (const CatalogueEffect& each : EffectCatalogue::Production().effects)
            if (ImGui::MenuItem(each.key.c_str(), each.overlay ? "overlay" : nullptr))
                TakeNew(InList(state->document->InsertEntry(each.key, time, time + length, layer)), state);
        ImGui::EndMenu();
    }
    ImGui::EndPopup();
}

} // namespace edit
