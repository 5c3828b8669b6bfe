// SPDX-License-Identifier: MIT
#include "tools/edit/WindowLayout.h"

#include <algorithm>
#include <cmath>

namespace edit
{

// Pixels of the design.
static const float splitWidth = 5;
static const float transportHeight = 46;
static const float statusHeight = 24;
static const float minStage = 180;
static const float minTimeline = 140;
static const float minPicture = 240;
static const float minColumn = 220;
static const float minPanel = 60;

// The part of a length that a share asks for, on whole pixels; each side keeps its minimum where there is room.
static float Share(float length, float share, float least, float minOfOther)
{
    const float most = std::max(length - minOfOther, 0.0f);
    return std::round(std::clamp(length * share, std::min(least, most), most));
}

WindowLayout LayOutWindow(Rect room, float scale, const LayoutWishes& wishes)
{
    WindowLayout layout;
    const float split = std::round(splitWidth * scale);
    const float foot = std::min(std::round(statusHeight * scale), room.height);
    layout.status = {room.x, room.Bottom() - foot, room.width, foot};

    const float height = std::max(room.height - foot - split, 0.0f);
    const float stage = Share(height, wishes.stageShare, minStage * scale, minTimeline * scale);
    layout.stageSplit = {room.x, room.y + stage, room.width, split};
    layout.timeline = {room.x, room.y + stage + split, room.width, height - stage};

    const bool column = wishes.inspector || wishes.findings;
    float left = room.width;
    if (column) {
        const float width = std::max(room.width - split, 0.0f);
        left = Share(width, wishes.pictureShare, minPicture * scale, minColumn * scale);
        layout.pictureSplit = {room.x + left, room.y, split, stage};
        const Rect beside = {room.x + left + split, room.y, width - left, stage};
        layout.inspector = wishes.inspector ? beside : Rect{};
        layout.findings = wishes.findings ? beside : Rect{};
        if (wishes.inspector && wishes.findings) {
            const float both = std::max(stage - split, 0.0f);
            const float upper = Share(both, wishes.inspectorShare, minPanel * scale, minPanel * scale);
            layout.inspector.height = upper;
            layout.inspectorSplit = {beside.x, beside.y + upper, beside.width, split};
            layout.findings.y = beside.y + upper + split;
            layout.findings.height = both - upper;
        }
    }
    const float strip = std::min(std::round(transportHeight * scale), stage);
    layout.picture = {room.x, room.y, left, stage - strip};
    layout.transport = {room.x, room.y + stage - strip, left, strip};
    return layout;
}

Rect FitPicture(Rect room, int width, int height)
{
    if (width <= 0 || height <= 0 || room.Empty())
        return {room.x, room.y, 0, 0};
    const float factor = std::min(room.width / float(width), room.height / float(height));
    const float fitWidth = std::max(std::round(float(width) * factor), 1.0f);
    const float fitHeight = std::max(std::round(float(height) * factor), 1.0f);
    return {room.x + std::floor((room.width - fitWidth) / 2),
            room.y + std::floor((room.height - fitHeight) / 2), fitWidth, fitHeight};
}

} // namespace edit
