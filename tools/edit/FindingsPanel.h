// SPDX-License-Identifier: MIT
// What the linter finds, and what happened to the show's processes: the worst first. A click goes there.
#pragma once

#include "tools/edit/Session.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace edit
{

class FindingsPanel
{
public:
    // Draws into the current ImGui window. Once a frame; window's thread.
    void Draw(Session* session);

private:
    void TakeAnalysis(std::shared_ptr<const AnalysisResult> result);
    void DrawHead(const Session& session) const;
    void DrawRemark(Session* session, const ShowRemark& remark, size_t number);
    void DrawFinding(Session* session, const lint::Finding& finding, size_t number);
    void GoTo(Session* session, const lint::Finding& finding);

    std::shared_ptr<const AnalysisResult> analysis;
    std::vector<size_t> order;             // of its findings
    const lint::Finding* chosen = nullptr; // of `analysis`
};

// Errors first, then warnings, then notes; each in the order of the script.
std::vector<size_t> BySeverity(const std::vector<lint::Finding>& findings);

} // namespace edit
