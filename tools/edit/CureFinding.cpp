// SPDX-License-Identifier: MIT
#include "tools/edit/CureFinding.h"

#include <algorithm>
#include <cstdlib>

namespace edit
{

static bool IsSame(const lint::Finding& a, const lint::Finding& b)
{
    return a.code == b.code && a.text == b.text;
}

// The finding in the text as it is now; of several alike the nearest. Null: it is not there.
static const lint::Finding* FindAgain(const lint::Report& report, const lint::Finding& wanted)
{
    const auto distance = [&](const lint::Finding& finding) {
        return std::make_pair(abs(finding.line - wanted.line), abs(finding.column - wanted.column));
    };
    const lint::Finding* nearest = nullptr;
    for (const lint::Finding& finding : report.findings)
        if (IsSame(finding, wanted) && (!nearest || distance(finding) < distance(*nearest)))
            nearest = &finding;
    return nearest;
}

static std::vector<TextChange> ChangesOf(const std::string& text, const std::vector<lint::Fix>& fixes)
{
    std::vector<TextChange> changes;
    for (const lint::Fix& fix : fixes) {
        const Place place = {fix.begin, fix.end};
        // A block that is removed takes its comments along, and a lone # is no comment to be kept.
        const bool isWhole = fix.begin < text.size() && (text[fix.begin] == '[' || text[fix.begin] == '#');
        if (fix.text.empty() && isWhole) {
            const Place lines = WithItsLines(text, place, true);
            changes.push_back({lines.begin, text.substr(lines.begin, lines.end - lines.begin), ""});
            continue;
        }
        Replace(text, fix.text.empty() ? WithItsLines(text, place, false) : place, fix.text, &changes);
    }
    return changes;
}

bool CureFinding(ScriptEdit* script, const lint::Finding& finding, const lint::CheckOptions& options)
{
    lint::CheckOptions asked = options;
    asked.checkFiles = finding.code == "missing-music"; // the others can be told without looking
    const lint::Report before = lint::CheckText(script->Text(), finding.file, asked);
    const lint::Finding* const found = FindAgain(before, finding);
    if (!found)
        return script->Refuse("The script has changed: this is no longer in it.");
    if (found->fixes.empty())
        return script->Refuse("Only a person can tell what is meant here.");
    script->ChangeFreely(ChangesOf(script->Text(), found->fixes));
    std::string after;
    Outline read;
    if (!script->Finish(&after, &read))
        return false;
    const lint::Report then = lint::CheckText(after, finding.file, asked);
    const auto count = [&](const lint::Report& report) {
        return std::count_if(report.findings.begin(), report.findings.end(),
                             [&](const lint::Finding& other) { return IsSame(other, finding); });
    };
    // Where not all findings are kept, others take the place of the one that is gone.
    return then.findingsLeftOut > 0 || count(then) < count(before) ||
           script->Refuse("This would not go by it: look at what stands around.");
}

} // namespace edit
