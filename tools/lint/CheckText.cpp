// SPDX-License-Identifier: MIT
// Checks what the reader does before it has blocks: the bytes that it drops, comments, and headers.
#include "tools/lint/Checks.h"

#include <algorithm>
#include <cctype>

namespace lint
{

static bool IsBlank(char byte)
{
    return isspace(static_cast<unsigned char>(byte)) != 0;
}

// Editors write this mark at the beginning of UTF-8 files. The reader drops it, which does no harm.
static bool BeginsWithByteOrderMark(const std::string& bytes)
{
    return bytes.compare(0, 3, "\xEF\xBB\xBF") == 0;
}

// One finding for each line that loses something.
static void CheckVanished(const Reading& script, Findings* findings)
{
    const std::string& bytes = script.bytes;
    size_t lineStart = BeginsWithByteOrderMark(bytes) ? 3 : 0;
    while (lineStart < bytes.size()) {
        const size_t lineEnd = std::min(bytes.find('\n', lineStart), bytes.size());
        std::string lost, left;
        size_t first = lineEnd;
        for (size_t i = lineStart; i < lineEnd; i++) {
            if (script.fates[i] == ByteKept)
                left += bytes[i];
            if (script.fates[i] != ByteDropped || IsBlank(bytes[i]))
                continue;
            first = std::min(first, i);
            lost += bytes[i];
        }
        if (!lost.empty())
            findings->AddInFile(Warning, "vanished", first, "No script can hold " + Quote(lost) + ".",
                                left.empty()
                                    ? "It vanishes, and nothing is left of the line."
                                    : "It vanishes; what is left of the line is " + Quote(left) + ".",
                                "Use letters a to z and A to Z, digits, and _ - . only; write notes between "
                                "two #.");
        lineStart = lineEnd + 1;
    }
}

static bool HoldsHeader(const std::string& comment)
{
    for (const BlockType type : {BlockMusic, BlockEffect, BlockMessage, BlockColorScheme})
        if (comment.find(std::string("[") + SyntaxOf(type).name + "]") != std::string::npos)
            return true;
    return false;
}

// Comments run from one # to the next. A missing # therefore swaps comments and script from there on, and only
// the last # of the file is seen to have no partner. The first comment that contains a block header is the
// likely place of the missing one.
static void CheckComments(const Reading& script, Findings* findings)
{
    std::vector<size_t> marks;
    for (size_t i = 0; i < script.fates.size(); i++)
        if (script.fates[i] == ByteMark)
            marks.push_back(i);
    if (marks.size() % 2 == 0)
        return;
    std::string cure = "Close the comment with another #.";
    bool swallows = false;
    for (size_t i = 0; i + 1 < marks.size(); i += 2)
        if (HoldsHeader(script.bytes.substr(marks[i], marks[i + 1] - marks[i]))) {
            cure +=
                " Or look at line " + std::to_string(script.PositionInFile(marks[i]).line) +
                ": the comment that begins there swallows a block, so that the missing # may belong to it.";
            swallows = true;
            break;
        }
    const std::string rest = script.bytes.substr(marks.back() + 1);
    const auto lines =
        std::count(rest.begin(), rest.end(), '\n') + (rest.empty() || rest.back() == '\n' ? 0 : 1);
    const bool hurts = rest.find('[') != std::string::npos;
    Finding& finding = findings->AddInFile(
        hurts ? Error : Warning, "open-comment", marks.back(), "This # has no partner.",
        "The rest of the file is a comment: " + std::to_string(lines) + (lines == 1 ? " line." : " lines."),
        cure);
    size_t end = script.bytes.size(); // of what is no blank
    while (IsBlank(script.bytes[end - 1]))
        end--;
    if (!hurts && !swallows && end == marks.back() + 1)
        finding.fixes.push_back({marks.back(), end, ""});
    else if (!hurts && !swallows)
        finding.fixes.push_back({end, end, "#"});
}

static void CheckEaten(const Reading& script, const Block& block, Findings* findings)
{
    const std::string rest = script.stream.substr(block.header);
    const auto headers = std::count(rest.begin(), rest.end(), '[');
    const std::string consequence =
        "The reader never gets over it: the rest of the file is eaten up in silence" +
        (headers == 0 ? "."
                      : ", with " + std::to_string(headers) + (headers == 1 ? " header." : " headers."));
    const size_t close = rest.find(']');
    if (rest[0] != '[') {
        const std::string junk = rest.substr(0, rest.find('['));
        Finding& finding =
            findings->Add(Error, "junk", block.header, Quote(junk) + " stands before the first header.",
                          consequence, "Delete it, or put it between two #.");
        // Unless it may be a block that has lost its beginning.
        const size_t first = script.offsets[block.header];
        const size_t last = script.offsets[block.header + junk.size() - 1];
        const std::string bytes = script.bytes.substr(first, last + 1 - first);
        if (bytes.find_first_of("=;]#") == std::string::npos)
            findings->AddFix(&finding, block.header, block.header + junk.size(), "#" + bytes + "#");
    } else if (close == std::string::npos) {
        findings->Add(Error, "unknown-block", block.header, "This [ has no ].", consequence,
                      "Write [MUSIC], [EFFECT], [MESSAGE] or [COLORSCHEME]; a value can hold no [.");
    } else {
        const std::string name = rest.substr(1, close - 1);
        std::vector<std::string> names;
        for (const BlockSyntax& syntax : AllBlockSyntax())
            names.push_back(syntax.name);
        const std::string meant = Nearest(name, names);
        Finding& finding = findings->Add(
            Error, "unknown-block", block.header, "There is no block of the name " + Quote(name) + ".",
            consequence,
            meant.empty() ? "Write [MUSIC], [EFFECT], [MESSAGE] or [COLORSCHEME]; a value can hold no [."
                          : "Write [" + meant + "], in capitals.");
        if (!meant.empty() && !name.empty())
            findings->AddFix(&finding, block.header + 1, block.header + close, meant);
    }
}

static void CheckHeaders(const Reading& script, Findings* findings)
{
    for (const Block& block : script.blocks) {
        if (block.type == BlockNone) {
            CheckEaten(script, block, findings);
            continue;
        }
        const std::string written = script.stream.substr(block.header, block.body - block.header);
        const std::string proper = std::string("[") + SyntaxOf(block.type).name + "]";
        if (written != proper) {
            Finding& finding = findings->Add(
                Warning, "odd-header", block.header, Quote(written) + " is an odd way to begin a block.",
                "The reader takes it for " + proper + ".", "Write " + proper + ".");
            findings->AddFix(&finding, block.header, block.body, proper);
        }
    }
}

void CheckText(const Reading& script, Findings* findings)
{
    CheckVanished(script, findings);
    CheckComments(script, findings);
    CheckHeaders(script, findings);
}

} // namespace lint
