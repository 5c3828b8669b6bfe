// SPDX-License-Identifier: MIT
#include "tools/lint/Print.h"

#include "tools/cli/JsonWriter.h"
#include "tools/cli/Terminal.h"

#include <algorithm>
#include <cstdio>

namespace lint
{

const char* NameOf(Severity severity)
{
    const char* const names[] = {"note", "warning", "error"};
    return names[severity];
}

static std::string Counted(long count, const char* noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

static std::string Minutes(uint32_t time)
{
    char text[32];
    snprintf(text, sizeof text, "%u:%02u.%03u", time / 60000, time / 1000 % 60, time % 1000);
    return text;
}

static long KeptEntries(const Show& show)
{
    return std::count_if(show.entries.begin(), show.entries.end(),
                         [](const ShownEntry& entry) { return entry.kept; });
}

static long KeptMessages(const Show& show)
{
    return std::count_if(show.messages.begin(), show.messages.end(),
                         [](const SentMessage& message) { return message.kept; });
}

// A short summary of the show: how many entries and messages, how long, how long to load.
static std::string Facts(const Show& show)
{
    const long entries = KeptEntries(show);
    return std::to_string(entries) + (entries == 1 ? " entry, " : " entries, ") +
           Counted(KeptMessages(show), "message") + ", ends at " + Minutes(show.end) +
           ", loads for at least " + Counted(show.loads, "second");
}

static std::string Where(const Finding& finding)
{
    std::string where = finding.file;
    if (finding.line > 0)
        where += ":" + std::to_string(finding.line);
    if (finding.column > 0)
        where += ":" + std::to_string(finding.column);
    return where;
}

std::string PrintText(const std::string& file, const Report& report, bool colours)
{
    const cli::TerminalColour shades[] = {cli::Blue, cli::Yellow, cli::Red};
    std::string text;
    for (const Finding& finding : report.findings) {
        text += cli::Paint(Where(finding) + ":", cli::Bold, colours) + " ";
        text +=
            cli::Paint(std::string(NameOf(finding.severity)) + ":", shades[finding.severity], colours) + " ";
        text += finding.text + " " + cli::Paint("[" + finding.code + "]", cli::Dim, colours) + "\n";
        text += "    " + finding.consequence + "\n";
        text += "    " + finding.cure + "\n";
    }
    const int errors = report.Count(Error), warnings = report.Count(Warning);
    const bool clean = errors == 0 && warnings == 0;
    std::string sum = clean ? "clean" : "";
    if (errors > 0)
        sum = Counted(errors, "error");
    if (warnings > 0)
        sum += (errors > 0 ? " and " : "") + Counted(warnings, "warning");
    text += file + ": " + cli::Paint(sum, clean ? cli::Green : cli::Bold, colours) + "; " +
            Facts(report.show) + "\n";
    if (report.findingsLeftOut > 0)
        text += "    " + Counted(long(report.findingsLeftOut), "further finding") +
                " of the same kinds left out\n";
    return text;
}

static void PrintFixes(const std::vector<Fix>& fixes, cli::JsonWriter* json)
{
    json->Key("fixes").StartArray();
    for (const Fix& fix : fixes) {
        json->StartObject();
        json->Member("begin", int64_t(fix.begin));
        json->Member("end", int64_t(fix.end));
        json->Member("text", fix.text);
        json->EndObject();
    }
    json->EndArray();
}

std::string PrintJson(const std::string& file, const Report& report, const CheckOptions& options)
{
    cli::JsonWriter json;
    json.StartObject();
    json.Member("file", file);
    json.Member("errors", report.Count(Error));
    json.Member("warnings", report.Count(Warning));
    json.Member("notes", report.Count(Note));
    json.Key("findings").StartArray();
    for (const Finding& finding : report.findings) {
        json.StartObject();
        json.Member("severity", NameOf(finding.severity));
        json.Member("code", finding.code);
        json.Member("line", finding.line);
        json.Member("column", finding.column);
        json.Key("span");
        if (finding.hasSpan) {
            json.StartObject();
            json.Member("start", finding.spanStart);
            json.Member("stop", finding.spanStop);
            json.EndObject();
        } else {
            json.Null();
        }
        json.Member("text", finding.text);
        json.Member("consequence", finding.consequence);
        json.Member("cure", finding.cure);
        PrintFixes(finding.fixes, &json);
        json.EndObject();
    }
    json.EndArray();
    json.Member("findingsLeftOut", int64_t(report.findingsLeftOut));
    json.Key("show").StartObject();
    json.Member("offset", options.startOffset);
    json.Member("entries", int64_t(KeptEntries(report.show)));
    json.Member("messages", int64_t(KeptMessages(report.show)));
    json.Member("music", report.show.music);
    json.Member("end", report.show.end);
    json.Member("loadingSeconds", report.show.loads);
    json.EndObject();
    json.EndObject();
    return json.Finish();
}

} // namespace lint
