// SPDX-License-Identifier: MIT
#include "tools/edit/KeySheet.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/edit/Commands.h"

#include <imgui.h>

#include <algorithm>

namespace edit
{

using namespace showcolours;
using platform::ToolColour;

static const int columns = 3;

// How many lines the sheet has before a command, headings counted as two.
static int Lines(Menu before)
{
    int lines = 0;
    for (const Command& command : Commands())
        if (command.menu < before)
            lines += 1;
    return lines + 2 * int(before);
}

static void DrawMenu(Menu menu, float scale)
{
    ImGui::PushFont(platform::FontOf(platform::HeadingFont));
    ImGui::PushStyleColor(ImGuiCol_Text, ToolColour(Rust));
    ImGui::TextUnformatted(NameOf(menu));
    ImGui::PopStyleColor();
    ImGui::PopFont();
    ImGui::PushFont(platform::FontOf(platform::SmallFont));
    const float keysAt = 150 * scale;
    for (const Command& command : Commands()) {
        if (command.menu != menu)
            continue;
        ImGui::TextUnformatted(command.name);
        if (ImGui::IsItemHovered()) {
            ImGui::PushStyleColor(ImGuiCol_Text, ToolColour(Bone));
            ImGui::SetTooltip("%s", command.help);
            ImGui::PopStyleColor();
        }
        ImGui::SameLine(keysAt);
        ImGui::PushStyleColor(ImGuiCol_Text, ToolColour(Slate));
        ImGui::TextUnformatted(KeysText(command).c_str());
        ImGui::PopStyleColor();
    }
    ImGui::PopFont();
    ImGui::Dummy(ImVec2(0, 4 * scale));
}

void DrawKeySheet(bool* shown, float scale)
{
    if (!*shown)
        return;
    const ImVec2 room = ImGui::GetIO().DisplaySize;
    ImGui::SetNextWindowPos(ImVec2(room.x / 2, room.y / 2), ImGuiCond_Always, ImVec2(0.5f, 0.5f));
    ImGui::SetNextWindowSize(
        ImVec2(std::min(960 * scale, room.x * 0.96f), std::min(560 * scale, room.y * 0.96f)));
    ImGui::PushStyleColor(ImGuiCol_WindowBg, ToolColour(Bone));
    ImGui::PushStyleColor(ImGuiCol_Text, ToolColour(Ink));
    ImGui::PushStyleColor(ImGuiCol_ScrollbarBg, ToolColour(Bone));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(28 * scale, 20 * scale));
    ImGui::PushStyleVar(ImGuiStyleVar_ItemSpacing, ImVec2(8 * scale, 2.5f * scale));
    ImGui::SetNextWindowFocus();
    ImGui::Begin("Keys", nullptr,
                 ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoSavedSettings);
    const bool hovered = ImGui::IsWindowHovered(ImGuiHoveredFlags_ChildWindows);
    ImGui::PushFont(platform::FontOf(platform::TitleFont));
    ImGui::TextUnformatted("All keys");
    ImGui::PopFont();
    const ImVec2 line = ImGui::GetCursorScreenPos();
    ImGui::GetWindowDrawList()->AddLine(line, ImVec2(line.x + ImGui::GetContentRegionAvail().x, line.y),
                                        ToolColour(Ink), 1.2f * scale);
    ImGui::Dummy(ImVec2(0, 6 * scale));

    // A menu stays in one column; the next column begins when its share of the lines is full.
    const int share = (Lines(MenuCount) + columns - 1) / columns;
    if (ImGui::BeginTable("columns", columns)) {
        int column = -1;
        for (int menu = 0; menu < MenuCount; menu++) {
            const int wanted = std::min(Lines(Menu(menu)) / share, columns - 1);
            if (wanted > column)
                ImGui::TableNextColumn();
            column = std::max(column, wanted);
            DrawMenu(Menu(menu), scale);
        }
        ImGui::EndTable();
    }
    ImGui::End();
    ImGui::PopStyleVar(2);
    ImGui::PopStyleColor(3);
    if (ImGui::IsMouseClicked(0) && !hovered)
        *shown = false;
}

} // namespace edit
