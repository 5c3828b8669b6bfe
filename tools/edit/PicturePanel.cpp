// SPDX-License-Identifier: MIT
#include "tools/edit/PicturePanel.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/edit/Moments.h"
#include "tools/edit/WindowLayout.h"

#include <imgui.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace edit
{

using namespace showcolours;
using platform::ToolColour;

// Pixels of the design.
static const float barHeight = 3;
static const float wordsInset = 10;

bool PicturePanel::TakeFrame(Session* session)
{
    ShownFrame frame;
    if (!session->TakeFrame(&frame))
        return false;
    texture.Upload(frame.width, frame.height, frame.rgba.data());
    number = frame.number;
    return true;
}

// A word over the picture, on a shade of ink so that it can be read over any picture.
static void DrawWords(const std::string& words, ImVec2 place, bool fromRight, uint32_t colour, float scale)
{
    ImDrawList* const list = ImGui::GetWindowDrawList();
    ImGui::PushFont(platform::FontOf(platform::SmallFont));
    const ImVec2 size = ImGui::CalcTextSize(words.c_str());
    const float pad = 6 * scale;
    if (fromRight)
        place.x -= size.x;
    list->AddRectFilled(ImVec2(place.x - pad, place.y - pad / 2),
                        ImVec2(place.x + size.x + pad, place.y + size.y + pad / 2), ToolColour(Ink, 0.72f),
                        4 * scale);
    list->AddText(place, ToolColour(colour), words.c_str());
    ImGui::PopFont();
}

void PicturePanel::DrawLoading(const ShowPool::Status& status, float scale) const
{
    ImDrawList* const list = ImGui::GetWindowDrawList();
    const ImVec2 from = ImGui::GetWindowPos(), size = ImGui::GetWindowSize();
    const float y = from.y + size.y - barHeight * scale;
    const float progress = float(std::clamp(status.loadProgress, 0.0, 1.0));
    list->AddRectFilled(ImVec2(from.x, y), ImVec2(from.x + size.x, from.y + size.y), ToolColour(Slate, 0.5f));
    list->AddRectFilled(ImVec2(from.x, y), ImVec2(from.x + size.x * progress, from.y + size.y),
                        ToolColour(Amber));
    if (!texture.Empty())
        return;
    const std::string words = "loading the show, " + std::to_string(std::lround(progress * 100)) + " %";
    ImGui::PushFont(platform::FontOf(platform::NoteFont));
    const ImVec2 extent = ImGui::CalcTextSize(words.c_str());
    list->AddText(ImVec2(from.x + (size.x - extent.x) / 2, from.y + (size.y - extent.y) / 2),
                  ToolColour(Mist), words.c_str());
    ImGui::PopFont();
}

void PicturePanel::DrawFailure(const ShowPool::Status& status, float scale) const
{
    ImDrawList* const list = ImGui::GetWindowDrawList();
    const ImVec2 from = ImGui::GetWindowPos(), size = ImGui::GetWindowSize();
    const std::string words = status.failure.empty() ? "This frame can't be made." : status.failure;
    ImGui::PushFont(platform::FontOf(platform::NoteFont));
    const float width = std::min(size.x - 2 * wordsInset * scale, 420 * scale);
    const ImVec2 extent = ImGui::CalcTextSize(words.c_str(), nullptr, false, width);
    const ImVec2 place(from.x + (size.x - extent.x) / 2, from.y + (size.y - extent.y) / 2);
    const float pad = 12 * scale;
    list->AddRectFilled(ImVec2(place.x - pad, place.y - pad),
                        ImVec2(place.x + extent.x + pad, place.y + extent.y + pad), ToolColour(Ink, 0.85f),
                        5 * scale);
    list->AddText(ImGui::GetFont(), ImGui::GetFontSize(), place, ToolColour(Parchment), words.c_str(),
                  nullptr, width);
    ImGui::PopFont();
}

// The room that the picture leaves. Nothing of it is drawn below the picture: without a graphics card each pixel counts.
static void DrawSurround(ImDrawList* list, Rect room, Rect picture, uint32_t rgb)
{
    const ImU32 colour = ToolColour(rgb);
    const auto fill = [list, colour](float left, float top, float right, float bottom) {
        if (left < right && top < bottom)
            list->AddRectFilled(ImVec2(left, top), ImVec2(right, bottom), colour);
    };
    if (picture.Empty())
        return fill(room.x, room.y, room.Right(), room.Bottom());
    fill(room.x, room.y, room.Right(), picture.y);
    fill(room.x, picture.Bottom(), room.Right(), room.Bottom());
    fill(room.x, picture.y, picture.x, picture.Bottom());
    fill(picture.Right(), picture.y, room.Right(), picture.Bottom());
}

void PicturePanel::Draw(const Session& session, bool alone)
{
    const float scale = session.state.scale;
    const ImVec2 from = ImGui::GetWindowPos(), size = ImGui::GetWindowSize();
    ImDrawList* const list = ImGui::GetWindowDrawList();
    const Rect fit = FitPicture({from.x, from.y, size.x, size.y}, texture.Width(), texture.Height());
    DrawSurround(list, {from.x, from.y, size.x, size.y}, fit, Mix(Ink, 0, alone ? 1 : 0.35f));
    texture.Draw(list, ImVec2(fit.x, fit.y), ImVec2(fit.Right(), fit.Bottom()));

    const ShowPool::Status status = session.ShowStatus();
    if (status.failed)
        DrawFailure(status, scale);
    else if (status.loading)
        DrawLoading(status, scale);
    const float inset = wordsInset * scale;
    if (session.state.playing && status.skipped > 0)
        DrawWords("machine too slow: " + std::to_string(status.skipped) +
                      (status.skipped == 1 ? " frame skipped" : " frames skipped"),
                  ImVec2(from.x + size.x - inset, from.y + inset), true, Amber, scale);
    const int64_t wanted = FrameAt(session.state.playhead, session.state.rate);
    if (!texture.Empty() && !status.failed && !session.state.playing && number != wanted)
        list->AddCircleFilled(ImVec2(from.x + inset, from.y + inset), 3.5f * scale, ToolColour(Amber, 0.9f));
    if (alone && !session.state.playing)
        DrawWords(ClockFace(session.state.playhead), ImVec2(from.x + inset, from.y + size.y - 3 * inset),
                  false, Parchment, scale);
}

} // namespace edit
