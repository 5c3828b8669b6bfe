// SPDX-License-Identifier: MIT
#include "tools/lint/Lint.h"

#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "tools/lint/Checks.h"
#include "tools/lint/Schedule.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>

namespace lint
{

static EffectRegistry* MakeRegistry()
{
    EffectRegistry* const registry = new EffectRegistry;
    RegisterEffects(registry);
    return registry;
}

// Effects are never deleted, so that they are made only once.
EffectRegistry* ProductionRegistry()
{
    static EffectRegistry* const registry = MakeRegistry();
    return registry;
}

int Report::Count(Severity severity) const
{
    return int(std::count_if(findings.begin(), findings.end(),
                             [=](const Finding& finding) { return finding.severity == severity; }));
}

static const char* const tooLarge = "larger than any script (16 MiB)";

static Report Unreadable(const std::string& reason)
{
    return {false, reason, {}, 0, {{}, {}, "", {}, 0, 0, {}}};
}

Report CheckText(const std::string& bytes, const std::string& name, const CheckOptions& options)
{
    if (bytes.size() > Reading::contentLimit)
        return Unreadable(tooLarge);
    const Reading whole(bytes, ProductionRegistry(), 0);
    std::optional<Reading> late;
    if (options.startOffset > 0)
        late.emplace(bytes, ProductionRegistry(), options.startOffset);
    Report report = {true, "", {}, 0, BuildShow(whole, late ? *late : whole, *ProductionRegistry(), options)};
    Findings findings(whole, name, &report.findings);
    CheckText(whole, &findings);
    CheckBlocks(whole, *ProductionRegistry(), &findings);
    CheckShow(whole, report.show, options, &findings);
    CheckScenes(report.show, &findings);
    if (options.checkFiles)
        CheckFiles(whole, report.show, options, &findings);
    report.findingsLeftOut = findings.LeftOut();
    std::stable_sort(report.findings.begin(), report.findings.end(), [](const Finding& a, const Finding& b) {
        return a.line != b.line ? a.line < b.line : a.column < b.column;
    });
    return report;
}

// Stops soon after the size that a script can have: the file may be a device without an end.
static bool ReadBytes(const std::string& path, std::string* bytes)
{
    const bool standard = path == "-";
    FILE* const file = standard ? stdin : fopen(path.c_str(), "rb");
    if (!file)
        return false;
    char piece[65536];
    size_t got = 0;
    do {
        got = fread(piece, 1, sizeof piece, file);
        bytes->append(piece, got);
    } while (got > 0 && bytes->size() <= Reading::contentLimit);
    const int cause = ferror(file) ? errno : 0;
    if (!standard)
        fclose(file);
    errno = cause;
    return cause == 0;
}

Report CheckFile(const std::string& path, const CheckOptions& options)
{
    std::string bytes;
    if (!ReadBytes(path, &bytes))
        return Unreadable(strerror(errno));
    return CheckText(bytes, path, options);
}

} // namespace lint
