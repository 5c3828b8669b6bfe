// SPDX-License-Identifier: MIT
// The places of the window's panels as ImGui windows, and the lines between them.
#pragma once

#include "tools/edit/WindowLayout.h"

#include <imgui.h>

namespace edit
{

const ImGuiWindowFlags NoScrolling = ImGuiWindowFlags_NoScrollbar | ImGuiWindowFlags_NoScrollWithMouse;

// Begins a panel that fills the place, without title, frame or background; end it with ImGui::End. The padding is in
// pixels.
void BeginPanel(const char* name, Rect place, float padX, float padY, ImGuiWindowFlags further = 0);

// Draws a line between panels, which can be dragged. While it is dragged, *share becomes the part of the room that the
// pointer asks for, from 0.1 to 0.9: of its width if the line is upright, else of its height.
void DragSplit(const char* name, Rect place, bool upright, Rect room, float* share);

} // namespace edit
