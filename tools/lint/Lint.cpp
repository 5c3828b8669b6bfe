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

namespace lint
{

// The effects of the show live to the end of the process; so they are made only once.
static EffectRegistry* Production()
{
    static EffectRegistry* registry = nullptr;
    if (!registry) {
        registry = new EffectRegistry;
        RegisterEffects(registry);
    }
    return registry;
}

int Report::Count(Severity severity) const
{
    return int(std::count_if(findings.begin(), findings.end(),
                             [=](const Finding& finding) { return finding.severity == severity; }));
}

Report CheckText(const std::string& bytes, const std::string& name, const Options& options)
{
    const Reading whole(bytes, Production(), 0);
    const Reading kept(bytes, Production(), options.startOffset);
    Report report = {true, "", {}, BuildShow(whole, kept, *Production(), options)};
    Findings findings(whole, name, &report.findings);
    CheckText(whole, &findings);
    CheckBlocks(whole, *Production(), &findings);
    CheckShow(whole, report.show, options, &findings);
    CheckScenes(report.show, &findings);
    if (options.checkFiles)
        CheckFiles(whole, report.show, options, &findings);
    std::stable_sort(report.findings.begin(), report.findings.end(), [](const Finding& a, const Finding& b) {
        return a.line != b.line ? a.line < b.line : a.column < b.column;
    });
    return report;
}

static bool ReadWhole(const std::string& path, std::string* bytes)
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
    } while (got > 0);
    const int cause = ferror(file) ? errno : 0;
    if (!standard)
        fclose(file);
    errno = cause;
    return cause == 0;
}

Report CheckFile(const std::string& path, const Options& options)
{
    std::string bytes;
    if (!ReadWhole(path, &bytes))
        return {false, strerror(errno), {}, {{}, {}, "", {}, 0, 0}};
    return CheckText(bytes, path, options);
}

} // namespace lint
