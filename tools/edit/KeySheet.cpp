// SPDX-License-Identifier: MIT
#include "tools/edit/KeySheet.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/edit/Commands.h"

#include <imgui.h>

#include <algorithm>
#include <array>
#include <vector>

namespace edit
{

using namespace showcolours;
using platform::ToolColour;

static const int columns = 3;

// Of a menu, with its heading counted as two.
static int Lines(Menu menu)
{
    return 2 + int(std::count_if(Commands().begin(), Commands().end(),
                                 [menu](const Command& command) { return command.menu == menu; }));
}

// A menu stays in one column. The longest are placed first, each into the shortest column, so that the sheet is low.
static std::array<std::vector<Menu>, columns> MenusInColumns()
{
    std::vector<Menu> menus;
    for (int menu = 0; menu < MenuCount; menu++)
        menus.push_back(Menu(menu));
    std::stable_sort(menus.begin(), menus.end(), [](Menu a, Menu b) { return Lines(a) > Lines(b); });
    std::array<std::vector<Menu>, columns> placed;
    std::array<int, columns> heights = {};
    for (const Menu menu : menus) {
        const size_t lowest = size_t(std::min_element(heights.begin(), heights.end()) - heights.begin());
        placed[lowest].push_back(menu);
        heights[lowest] += Lines(menu);
    }
    for (std::vector<Menu>& column : placed)
        std::sort(column.begin(), column.end());
    std::sort(placed.begin(), placed.end());
    return placed;
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
    const float width = std::min(960 * scale, room.x * 0.96f);
    ImGui::SetNextWindowSize(ImVec2(width, 0)); // as high as what stands on it
    ImGui::SetNextWindowSizeConstraints(ImVec2(width, 0), ImVec2(width, room.y * 0.96f));
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

    if (ImGui::BeginTable("columns", columns)) {
        for (const std::vector<Menu>& column : MenusInColumns()) {
            ImGui::TableNextColumn();
            for (const Menu menu : column)
                DrawMenu(menu, scale);
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
