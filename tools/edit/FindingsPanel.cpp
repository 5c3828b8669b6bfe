// SPDX-License-Identifier: MIT
#include "tools/edit/FindingsPanel.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/edit/Moments.h"
#include "tools/timeline/Words.h"

#include <imgui.h>

#include <algorithm>

namespace edit
{

using namespace showcolours;
using platform::ToolColour;

static const float rowHeight = 38; // pixels of the design

std::vector<size_t> BySeverity(const std::vector<lint::Finding>& findings)
{
    std::vector<size_t> order(findings.size());
    for (size_t i = 0; i < order.size(); i++)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t a, size_t b) { return findings[a].severity > findings[b].severity; });
    return order;
}

static uint32_t ColourOf(lint::Severity severity)
{
    // The rust of the palette is made for paper; on ink it needs more light.
    return severity == lint::Error ? Mix(Rust, Amber, 0.35f) : severity == lint::Warning ? Amber : Mist;
}

void FindingsPanel::TakeAnalysis(std::shared_ptr<const AnalysisResult> result)
{
    if (result == analysis)
        return;
    analysis = result;
    chosen = nullptr;
    order = result ? BySeverity(result->report.findings) : std::vector<size_t>();
}

void FindingsPanel::DrawHead(const Session& session) const
{
    ImGui::PushFont(platform::FontOf(platform::HeadingFont));
    ImGui::TextUnformatted("Findings");
    ImGui::PopFont();
    if (!analysis)
        return;
    const lint::Report& report = analysis->report;
    const int errors = report.Count(lint::Error), warnings = report.Count(lint::Warning);
    std::string words;
    if (errors > 0)
        words = timeline::Count(size_t(errors), "error", "errors");
    if (warnings > 0)
        words += (words.empty() ? "" : ", ") + timeline::Count(size_t(warnings), "warning", "warnings");
    if (words.empty())
        words = session.Remarks().empty() ? "nothing wrong" : "";
    ImGui::SameLine(0, 10 * session.state.scale);
    ImGui::PushFont(platform::FontOf(platform::NoteFont));
    ImGui::AlignTextToFramePadding();
    ImGui::SetCursorPosY(ImGui::GetCursorPosY() - ImGui::GetStyle().FramePadding.y + 2 * session.state.scale);
    ImGui::TextColored(platform::ToolTint(Mist), "%s", words.c_str());
    ImGui::PopFont();
}

void FindingsPanel::GoTo(Session* session, const lint::Finding& finding)
{
    EditorState& state = session->state;
    chosen = &finding;
    if (finding.hasSpan)
        state.goTo = finding.spanStart / 1000.0;
    ItemId item;
    if (finding.line > 0 &&
        session->GetDocument().GetOutline().FindItem(finding.line, finding.column, &item)) {
        state.selection = {item};
        state.revealSelection = true;
    }
}

// Two lines of text beside a mark, cut where the room ends; a pointer that rests there reads all of it.
static void DrawRow(ImVec2 from, float width, uint32_t colour, const std::string& upper,
                    const std::string& lower, float scale)
{
    ImDrawList* const list = ImGui::GetWindowDrawList();
    list->PushClipRect(from, ImVec2(from.x + width, from.y + rowHeight * scale), true);
    list->AddRectFilled(ImVec2(from.x, from.y + 5 * scale),
                        ImVec2(from.x + 3 * scale, from.y + (rowHeight - 5) * scale), ToolColour(colour),
                        1.5f * scale);
    ImFont* const small = platform::FontOf(platform::SmallFont);
    const float line = small->FontSize * ImGui::GetIO().FontGlobalScale;
    list->AddText(small, line, ImVec2(from.x + 11 * scale, from.y + 4 * scale), ToolColour(Bone),
                  upper.c_str());
    list->AddText(small, line, ImVec2(from.x + 11 * scale, from.y + 5 * scale + 1.15f * line),
                  ToolColour(Mist), lower.c_str());
    list->PopClipRect();
}

static void ShowInFull(const std::string& upper, const std::string& middle, const std::string& lower,
                       float scale)
{
    ImGui::BeginTooltip();
    ImGui::PushTextWrapPos(420 * scale);
    ImGui::TextUnformatted(upper.c_str());
    ImGui::PushStyleColor(ImGuiCol_Text, ToolColour(Parchment));
    if (!middle.empty())
        ImGui::TextUnformatted(middle.c_str());
    ImGui::PopStyleColor();
    if (!lower.empty())
        ImGui::TextColored(platform::ToolTint(Amber), "%s", lower.c_str());
    ImGui::PopTextWrapPos();
    ImGui::EndTooltip();
}

void FindingsPanel::DrawFinding(Session* session, const lint::Finding& finding, size_t number)
{
    const float scale = session->state.scale;
    const bool curable = Document::CanCure(finding);
    const float width = ImGui::GetContentRegionAvail().x;
    const float buttonWidth = curable ? 58 * scale : 0;
    ImGui::PushID(int(number));
    const ImVec2 from = ImGui::GetCursorScreenPos();
    if (ImGui::Selectable("##finding", chosen == &finding, ImGuiSelectableFlags_AllowItemOverlap,
                          ImVec2(0, rowHeight * scale)))
        GoTo(session, finding);
    const bool hovered = ImGui::IsItemHovered();
    const ImVec2 after = ImGui::GetCursorScreenPos();
    std::string lower = finding.line > 0 ? "line " + std::to_string(finding.line) : "";
    if (finding.hasSpan)
        lower += (lower.empty() ? "" : ", ") + ClockFace(finding.spanStart / 1000.0);
    if (!finding.consequence.empty())
        lower += (lower.empty() ? "" : ":  ") + finding.consequence;
    DrawRow(from, width - buttonWidth, ColourOf(finding.severity), finding.text, lower, scale);
    bool overButton = false;
    if (curable) {
        ImGui::SetCursorScreenPos(ImVec2(from.x + width - buttonWidth + 4 * scale, from.y + 7 * scale));
        ImGui::BeginDisabled(session->IsCuring());
        if (ImGui::Button("Mend", ImVec2(buttonWidth - 6 * scale, (rowHeight - 14) * scale)))
            session->BeginCure(finding);
        ImGui::EndDisabled();
        overButton = ImGui::IsItemHovered(ImGuiHoveredFlags_AllowWhenDisabled);
        ImGui::SetCursorScreenPos(after);
    }
    if (hovered || overButton)
        ShowInFull(finding.text, finding.consequence, finding.cure, scale);
    ImGui::PopID();
}

void FindingsPanel::DrawRemark(Session* session, const ShowRemark& remark, size_t number)
{
    const float scale = session->state.scale;
    ImGui::PushID(int(number));
    const ImVec2 from = ImGui::GetCursorScreenPos();
    if (ImGui::Selectable("##remark", false, 0, ImVec2(0, rowHeight * scale)) && remark.seconds >= 0)
        session->state.goTo = remark.seconds;
    const bool hovered = ImGui::IsItemHovered();
    std::string lower = remark.seconds < 0 ? "while loading" : "at " + ClockFace(remark.seconds);
    if (remark.count > 1)
        lower += ", " + std::to_string(remark.count) + " times";
    DrawRow(from, ImGui::GetContentRegionAvail().x,
            ColourOf(remark.kind == ShowEvent::Restarted ? lint::Note : lint::Error), remark.text, lower,
            scale);
    if (hovered)
        ShowInFull(remark.text, lower, "", scale);
    ImGui::PopID();
}

void FindingsPanel::Draw(Session* session)
{
    TakeAnalysis(session->state.analysis);
    DrawHead(*session);
    ImGui::BeginChild("list");
    ImGui::PushStyleVar(ImGuiStyleVar_ItemSpacing, ImVec2(0, 0));
    if (analysis && !analysis->report.readable)
        ImGui::TextWrapped("The linter can't read this: %s", analysis->report.reason.c_str());
    const std::vector<ShowRemark>& remarks = session->Remarks();
    const size_t rows = remarks.size() + order.size();
    ImGuiListClipper clipper;
    clipper.Begin(int(rows), rowHeight * session->state.scale);
    while (clipper.Step())
        for (size_t i = size_t(clipper.DisplayStart); i < size_t(clipper.DisplayEnd); i++)
            if (i < remarks.size())
                DrawRemark(session, remarks[remarks.size() - 1 - i], i); // the newest on top
            else
                DrawFinding(session, analysis->report.findings[order[i - remarks.size()]], i);
    if (analysis && analysis->report.findingsLeftOut > 0)
        ImGui::TextDisabled("and %zu more", analysis->report.findingsLeftOut);
    ImGui::PopStyleVar();
    ImGui::EndChild();
}

} // namespace edit
