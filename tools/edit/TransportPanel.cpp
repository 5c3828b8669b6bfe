// SPDX-License-Identifier: MIT
#include "tools/edit/TransportPanel.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/edit/Moments.h"

#include <imgui.h>

#include <cmath>
#include <string>

namespace edit
{

using namespace showcolours;
using platform::ToolColour;

enum Sign { PlaySign, StopSign, BackSign, OnSign, HomeSign, EndSign, LoopSign };

// Pixels of the design.
static const float buttonSide = 32;
static const float signSide = 6; // from the middle of a button

static void Triangle(ImVec2 middle, float side, bool toRight, ImU32 colour)
{
    const float way = toRight ? side : -side;
    ImGui::GetWindowDrawList()->AddTriangleFilled(ImVec2(middle.x - way * 0.8f, middle.y - side),
                                                  ImVec2(middle.x + way, middle.y),
                                                  ImVec2(middle.x - way * 0.8f, middle.y + side), colour);
}

static void Bar(float x, float y, float width, float side, ImU32 colour)
{
    ImGui::GetWindowDrawList()->AddRectFilled(ImVec2(x, y - side), ImVec2(x + width, y + side), colour);
}

// Drawn and not typeset: the typefaces of most machines have no such signs.
static void DrawSign(Sign sign, ImVec2 middle, float scale, ImU32 colour)
{
    ImDrawList* const list = ImGui::GetWindowDrawList();
    const float side = signSide * scale, thin = 2 * scale;
    switch (sign) {
    case PlaySign:
        Triangle(middle, side * 1.25f, true, colour);
        break;
    case StopSign:
        list->AddRectFilled(ImVec2(middle.x - side, middle.y - side),
                            ImVec2(middle.x + side, middle.y + side), colour, scale);
        break;
    case BackSign:
        Triangle(ImVec2(middle.x - thin, middle.y), side * 0.8f, false, colour);
        Bar(middle.x + side * 0.7f, middle.y, thin, side * 0.8f, colour);
        break;
    case OnSign:
        Triangle(ImVec2(middle.x + thin, middle.y), side * 0.8f, true, colour);
        Bar(middle.x - side * 0.7f - thin, middle.y, thin, side * 0.8f, colour);
        break;
    case HomeSign:
        Bar(middle.x - side, middle.y, thin, side, colour);
        Triangle(ImVec2(middle.x + thin, middle.y), side, false, colour);
        break;
    case EndSign:
        Triangle(ImVec2(middle.x - thin, middle.y), side, true, colour);
        Bar(middle.x + side - thin, middle.y, thin, side, colour);
        break;
    case LoopSign: {
        const float radius = side * 1.05f, gap = 0.55f;
        list->PathArcTo(middle, radius, gap, 6.2832f - gap, 24);
        list->PathStroke(colour, 0, 1.8f * scale);
        const ImVec2 tip(middle.x + radius * std::cos(gap), middle.y - radius * std::sin(gap));
        list->AddTriangleFilled(ImVec2(tip.x - 4.5f * scale, tip.y + scale),
                                ImVec2(tip.x + 2.5f * scale, tip.y + 2.5f * scale),
                                ImVec2(tip.x + 1.5f * scale, tip.y - 4.5f * scale), colour);
        break;
    }
    }
}

// The command's help and key, for a pointer that rests on its button.
static void ExplainCommand(CommandId id)
{
    if (!ImGui::IsItemHovered(ImGuiHoveredFlags_AllowWhenDisabled))
        return;
    const Command& command = CommandOf(id);
    ImGui::SetTooltip("%s  (%s)", command.help, KeysText(command).c_str());
}

static ImU32 SignColour(bool lit)
{
    return ToolColour(lit ? Amber : ImGui::IsItemHovered() ? Bone : Parchment);
}

static void SignButton(const char* name, Sign sign, CommandId id, bool lit, float scale,
                       CommandRunner* runner)
{
    const float side = buttonSide * scale;
    if (ImGui::Button(name, ImVec2(side, side)))
        runner->Run(id);
    const ImVec2 from = ImGui::GetItemRectMin();
    DrawSign(sign, ImVec2(from.x + side / 2, from.y + side / 2), scale, SignColour(lit));
    ExplainCommand(id);
    ImGui::SameLine(0, 2 * scale);
}

static void WordButton(const char* word, CommandId id, bool lit, float width, float scale,
                       CommandRunner* runner)
{
    ImGui::PushStyleColor(ImGuiCol_Text, lit ? ToolColour(Amber) : ToolColour(Mist));
    if (ImGui::Button(word, ImVec2(width * scale, buttonSide * scale)))
        runner->Run(id);
    ImGui::PopStyleColor();
    ExplainCommand(id);
    ImGui::SameLine(0, 0);
}

static bool HasRoom(float width)
{
    return ImGui::GetContentRegionAvail().x >= width;
}

// A click on the time asks for another one.
void TransportPanel::DrawTime(Session* session, CommandRunner* runner) const
{
    const EditorState& state = session->state;
    const float scale = state.scale;
    const ImVec2 from = ImGui::GetCursorScreenPos();
    const float width = 132 * scale, side = buttonSide * scale;
    if (ImGui::InvisibleButton("time", ImVec2(width, side)))
        runner->Run(CommandGoTo);
    ExplainCommand(CommandGoTo);
    const bool hovered = ImGui::IsItemHovered();
    ImDrawList* const list = ImGui::GetWindowDrawList();
    ImFont* const large = platform::FontOf(platform::TitleFont);
    const std::string time = ClockFace(state.playhead);
    const ImVec2 size =
        large->CalcTextSizeA(large->FontSize * ImGui::GetIO().FontGlobalScale, 1e6f, 0, time.c_str());
    list->AddText(large, large->FontSize * ImGui::GetIO().FontGlobalScale,
                  ImVec2(from.x + width - size.x - 8 * scale, from.y + (side - size.y) / 2),
                  ToolColour(hovered ? Amber : Bone), time.c_str());
    ImGui::SameLine(0, 4 * scale);

    const ImVec2 beside = ImGui::GetCursorScreenPos();
    ImGui::Dummy(ImVec2(86 * scale, side));
    ImFont* const small = platform::FontOf(platform::SmallFont);
    const float line = small->FontSize * ImGui::GetIO().FontGlobalScale;
    const std::string bar = "bar " + BarFace(state.playhead, state.tempo);
    const std::string frame = "frame " + std::to_string(FrameAt(state.playhead, state.rate));
    const float top = beside.y + (side - 2.2f * line) / 2;
    list->AddText(small, line, ImVec2(beside.x, top), ToolColour(Parchment), bar.c_str());
    list->AddText(small, line, ImVec2(beside.x, top + 1.2f * line), ToolColour(Mist), frame.c_str());
    ImGui::SameLine(0, 6 * scale);
}

void TransportPanel::DrawTempo(Session* session) const
{
    EditorState& state = session->state;
    const float scale = state.scale;
    ImGui::SetCursorPosY(ImGui::GetCursorPosY() + 3 * scale);
    ImGui::SetNextItemWidth(78 * scale);
    float beats = float(state.tempo.beatsPerMinute);
    if (ImGui::DragFloat("##tempo", &beats, 0.1f, 1, 1000, "%.1f bpm", ImGuiSliderFlags_AlwaysClamp))
        state.tempo.beatsPerMinute = std::round(double(beats) * 1000) / 1000;
    if (ImGui::IsItemHovered())
        ImGui::SetTooltip("Beats a minute of the music: drag, or type after a double click");
    ImGui::SameLine(0, 4 * scale);
    ImGui::SetNextItemWidth(58 * scale);
    ImGui::DragInt("##bar", &state.tempo.beatsPerBar, 0.05f, 1, 64, "%d / bar", ImGuiSliderFlags_AlwaysClamp);
    if (ImGui::IsItemHovered())
        ImGui::SetTooltip("Beats of a bar");
}

void TransportPanel::Draw(Session* session, CommandRunner* runner)
{
    EditorState& state = session->state;
    const float scale = state.scale;
    ImGui::PushStyleColor(ImGuiCol_Button, ImVec4(0, 0, 0, 0));
    SignButton("##home", HomeSign, CommandHome, false, scale, runner);
    SignButton("##back", BackSign, CommandBackFrame, false, scale, runner);
    SignButton("##play", state.playing ? StopSign : PlaySign, CommandPlay, state.playing, scale, runner);
    SignButton("##on", OnSign, CommandOnFrame, false, scale, runner);
    SignButton("##end", EndSign, CommandEnd, false, scale, runner);
    DrawTime(session, runner);
    if (HasRoom(buttonSide * scale))
        SignButton("##loop", LoopSign, CommandLoop, state.looping, scale, runner);
    if (HasRoom(110 * scale)) {
        ImGui::SameLine(0, 8 * scale);
        WordButton("1", CommandFullSpeed, state.speed == 1, 28, scale, runner);
        WordButton("1/2", CommandHalfSpeed, state.speed == 0.5, 34, scale, runner);
        WordButton("1/4", CommandQuarterSpeed, state.speed == 0.25, 34, scale, runner);
    }
    ImGui::PopStyleColor();
    if (HasRoom(160 * scale)) {
        ImGui::SameLine(0, 12 * scale);
        DrawTempo(session);
    }
}

} // namespace edit
