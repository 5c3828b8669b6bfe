// SPDX-License-Identifier: MIT
#include "tools/edit/StatusPanel.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/cli/MonotonicSeconds.h"
#include "tools/edit/PanelFrame.h"

#include <imgui.h>

#include <algorithm>

namespace edit
{

using namespace showcolours;

static const double noticeTime = 8; // seconds that a notice stands

bool StatusPanel::NoticeEnds(double now) const
{
    return !notice.empty() && now - noticeSince > noticeTime;
}

static std::string MemoryText(uint64_t bytes)
{
    return std::to_string(bytes >> 20) + " MB";
}

void StatusPanel::Draw(Session* session, Rect place)
{
    EditorState& state = session->state;
    const double now = cli::MonotonicSeconds();
    if (!state.notice.empty()) {
        notice = state.notice;
        state.notice.clear();
        noticeSince = now;
    }
    if (NoticeEnds(now))
        notice.clear();
    BeginPanel("Status", place, 12 * state.scale, 3 * state.scale, NoScrolling);
    ImGui::PushFont(platform::FontOf(platform::NoteFont));
    ImGui::TextColored(platform::ToolTint(Parchment), "%s", notice.c_str());
    const ShowPool::Status status = session->ShowStatus();
    std::string words = state.document->IsModified() ? "not saved" : "saved";
    if (status.processes > 0)
        words += "   \xc2\xb7   " + std::to_string(status.processes) +
                 (status.processes == 1 ? " process, " : " processes, ") + MemoryText(status.memory);
    const float width = ImGui::CalcTextSize(words.c_str()).x;
    ImGui::SameLine(std::max(place.width - width - 12 * state.scale, 0.0f));
    ImGui::TextColored(platform::ToolTint(Mist), "%s", words.c_str());
    ImGui::PopFont();
    ImGui::End();
}

} // namespace edit
