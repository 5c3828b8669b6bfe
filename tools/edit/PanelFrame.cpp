// SPDX-License-Identifier: MIT
#include "tools/edit/PanelFrame.h"

#include "platform/toolwindow/ToolStyle.h"

#include <algorithm>
#include <cmath>

namespace edit
{

using namespace showcolours;
using platform::ToolColour;

// A background would be drawn in the colour that the window was cleared with.
static const ImGuiWindowFlags panelFlags =
    ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoCollapse |
    ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_NoBringToFrontOnFocus |
    ImGuiWindowFlags_NoBackground;

void BeginPanel(const char* name, Rect place, float padX, float padY, ImGuiWindowFlags further)
{
    ImGui::SetNextWindowPos(ImVec2(place.x, place.y));
    ImGui::SetNextWindowSize(ImVec2(place.width, place.height));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(padX, padY));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowBorderSize, 0);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowRounding, 0);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowMinSize, ImVec2(1, 1));
    ImGui::Begin(name, nullptr, panelFlags | further);
    ImGui::PopStyleVar(4);
}

void DragSplit(const char* name, Rect place, bool upright, Rect room, float* share)
{
    if (place.Empty())
        return;
    BeginPanel(name, place, 0, 0, NoScrolling);
    ImGui::SetCursorScreenPos(ImVec2(place.x, place.y));
    ImGui::InvisibleButton("split", ImVec2(place.width, place.height));
    const bool active = ImGui::IsItemActive();
    const float x = std::floor(place.x + place.width / 2), y = std::floor(place.y + place.height / 2);
    if (!active && !ImGui::IsItemHovered()) {
        const ImU32 line = ToolColour(Slate, 0.45f);
        if (upright)
            ImGui::GetWindowDrawList()->AddRectFilled(ImVec2(x, place.y), ImVec2(x + 1, place.Bottom()),
                                                      line);
        else
            ImGui::GetWindowDrawList()->AddRectFilled(ImVec2(place.x, y), ImVec2(place.Right(), y + 1), line);
    } else {
        ImGui::SetMouseCursor(upright ? ImGuiMouseCursor_ResizeEW : ImGuiMouseCursor_ResizeNS);
        ImGui::GetWindowDrawList()->AddRectFilled(ImVec2(place.x, place.y),
                                                  ImVec2(place.Right(), place.Bottom()),
                                                  ToolColour(active ? Amber : Ochre, 0.8f));
    }
    if (active) {
        const ImVec2 mouse = ImGui::GetIO().MousePos;
        const float wanted = upright ? (mouse.x - room.x) / room.width : (mouse.y - room.y) / room.height;
        *share = std::clamp(wanted, 0.1f, 0.9f);
    }
    ImGui::End();
}

} // namespace edit
