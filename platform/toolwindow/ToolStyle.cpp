// SPDX-License-Identifier: MIT
#include "platform/toolwindow/ToolStyle.h"

namespace platform
{

using namespace showcolours;

// Between the tones of the palette, so that fields and menus stand out from each other.
static const uint32_t Field = Mix(Night, Slate, 0.45f);
static const uint32_t Sheet = Mix(Ink, Night, 0.7f);

struct StyleRow {
    ImGuiCol_ what;
    uint32_t rgb;
    float alpha;
};

// clang-format off
static const StyleRow rows[] = {
    {ImGuiCol_Text,                  Bone,      1.00f},
    {ImGuiCol_TextDisabled,          Mist,      0.90f},
    {ImGuiCol_TextSelectedBg,        Ochre,     0.55f},
    {ImGuiCol_WindowBg,              Ink,       1.00f},
    {ImGuiCol_ChildBg,               Ink,       0.00f},
    {ImGuiCol_PopupBg,               Sheet,     0.99f},
    {ImGuiCol_Border,                Slate,     0.60f},
    {ImGuiCol_BorderShadow,          Ink,       0.00f},
    {ImGuiCol_FrameBg,               Field,     0.75f},
    {ImGuiCol_FrameBgHovered,        Slate,     0.70f},
    {ImGuiCol_FrameBgActive,         Slate,     1.00f},
    {ImGuiCol_TitleBg,               Night,     1.00f},
    {ImGuiCol_TitleBgActive,         Night,     1.00f},
    {ImGuiCol_TitleBgCollapsed,      Night,     1.00f},
    {ImGuiCol_MenuBarBg,             Ink,       1.00f},
    {ImGuiCol_ScrollbarBg,           Ink,       0.00f},
    {ImGuiCol_ScrollbarGrab,         Slate,     0.80f},
    {ImGuiCol_ScrollbarGrabHovered,  Mist,      0.70f},
    {ImGuiCol_ScrollbarGrabActive,   Amber,     0.90f},
    {ImGuiCol_CheckMark,             Amber,     1.00f},
    {ImGuiCol_SliderGrab,            Ochre,     1.00f},
    {ImGuiCol_SliderGrabActive,      Amber,     1.00f},
    {ImGuiCol_Button,                Field,     0.75f},
    {ImGuiCol_ButtonHovered,         Slate,     0.90f},
    {ImGuiCol_ButtonActive,          Ochre,     0.90f},
    {ImGuiCol_Header,                Slate,     0.55f},
    {ImGuiCol_HeaderHovered,         Slate,     0.85f},
    {ImGuiCol_HeaderActive,          Ochre,     0.80f},
    {ImGuiCol_Separator,             Slate,     0.60f},
    {ImGuiCol_SeparatorHovered,      Ochre,     0.90f},
    {ImGuiCol_SeparatorActive,       Amber,     1.00f},
    {ImGuiCol_ResizeGrip,            Slate,     0.50f},
    {ImGuiCol_ResizeGripHovered,     Ochre,     0.80f},
    {ImGuiCol_ResizeGripActive,      Amber,     1.00f},
    {ImGuiCol_Tab,                   Ink,       1.00f},
    {ImGuiCol_TabHovered,            Slate,     0.90f},
    {ImGuiCol_TabActive,             Night,     1.00f},
    {ImGuiCol_TabUnfocused,          Ink,       1.00f},
    {ImGuiCol_TabUnfocusedActive,    Night,     1.00f},
    {ImGuiCol_PlotLines,             Amber,     1.00f},
    {ImGuiCol_PlotLinesHovered,      Bone,      1.00f},
    {ImGuiCol_PlotHistogram,         Ochre,     1.00f},
    {ImGuiCol_PlotHistogramHovered,  Amber,     1.00f},
    {ImGuiCol_TableHeaderBg,         Night,     1.00f},
    {ImGuiCol_TableBorderStrong,     Slate,     0.70f},
    {ImGuiCol_TableBorderLight,      Slate,     0.35f},
    {ImGuiCol_TableRowBg,            Ink,       0.00f},
    {ImGuiCol_TableRowBgAlt,         Night,     0.40f},
    {ImGuiCol_DragDropTarget,        Amber,     1.00f},
    {ImGuiCol_NavHighlight,          Amber,     1.00f},
    {ImGuiCol_NavWindowingHighlight, Amber,     0.70f},
    {ImGuiCol_NavWindowingDimBg,     Ink,       0.40f},
    {ImGuiCol_ModalWindowDimBg,      Ink,       0.65f},
};
// clang-format on
static_assert(sizeof rows / sizeof rows[0] == ImGuiCol_COUNT);

ImVec4 ToolTint(uint32_t rgb, float alpha)
{
    return ImVec4(float(rgb >> 16 & 255) / 255, float(rgb >> 8 & 255) / 255, float(rgb & 255) / 255, alpha);
}

ImU32 ToolColour(uint32_t rgb, float alpha)
{
    return ImGui::ColorConvertFloat4ToU32(ToolTint(rgb, alpha));
}

void PushMainButton()
{
    ImGui::PushStyleColor(ImGuiCol_Button, ToolTint(Ochre));
    ImGui::PushStyleColor(ImGuiCol_ButtonHovered, ToolTint(Amber));
    ImGui::PushStyleColor(ImGuiCol_Text, ToolTint(Ink));
}

void PopMainButton()
{
    ImGui::PopStyleColor(3);
}

void SetToolStyle(float scale)
{
    ImGuiStyle style;
    for (const StyleRow& row : rows)
        style.Colors[row.what] = ToolTint(row.rgb, row.alpha);
    style.WindowPadding = ImVec2(12, 10);
    style.WindowRounding = 5;
    style.WindowBorderSize = 1;
    style.ChildRounding = 4;
    style.ChildBorderSize = 0;
    style.PopupRounding = 4;
    style.FramePadding = ImVec2(9, 5);
    style.FrameRounding = 4;
    style.FrameBorderSize = 0;
    style.ItemSpacing = ImVec2(8, 6);
    style.ItemInnerSpacing = ImVec2(6, 4);
    style.CellPadding = ImVec2(6, 3);
    style.ScrollbarSize = 12;
    style.ScrollbarRounding = 6;
    style.GrabMinSize = 12;
    style.GrabRounding = 4;
    style.TabRounding = 4;
    style.WindowTitleAlign = ImVec2(0.02f, 0.5f);
    style.ScaleAllSizes(scale);
    ImGui::GetStyle() = style;
}

} // namespace platform
