// SPDX-License-Identifier: MIT
// The checks of the linter. They add findings and change nothing else.
#pragma once

#include "tools/lint/KeyValues.h"
#include "tools/lint/Lint.h"

#include <map>

namespace lint
{

// Collects findings, and turns places in the stream or in the file into line and column.
class Findings
{
public:
    static const size_t limit; // findings of one kind that are kept; a script can have millions

    Findings(const Reading& script, const std::string& fileName, std::vector<Finding>* sink);

    // Adds a finding at a place in the stream. The three texts are sentences. The reference is valid until the
    // next finding is added. A finding beyond the limit is not kept.
    Finding& Add(Severity severity, const char* code, size_t streamPlace, const std::string& text,
                 const std::string& consequence, const std::string& cure);
    Finding& AddInFile(Severity severity, const char* code, size_t byte, const std::string& text,
                       const std::string& consequence, const std::string& cure);
    Finding& AddAt(Severity severity, const char* code, int line, int column, const std::string& text,
                   const std::string& consequence, const std::string& cure);

    // Adds to the fixes of a finding that the characters of the stream from `first` to before `end`, at least one,
    // with what the file has between them, become the text; and that the text goes after a character.
    void AddFix(Finding* finding, size_t first, size_t end, const std::string& text) const;
    void AddFixBehind(Finding* finding, size_t character, const std::string& text) const;

    size_t LeftOut() const; // the number of findings beyond the limit

private:
    const Reading& reading;
    const std::string file;
    std::vector<Finding>* const findings;
    std::map<std::string, size_t> counts; // by code
    size_t leftOut;
    Finding spare; // the last one beyond the limit, for its caller to write to
};

void SetSpan(Finding* finding, uint32_t start, uint32_t stop); // in any order

// Checks what the reader drops before it looks for blocks, and the headers.
void CheckText(const Reading& script, Findings* findings);

// Checks keys and values of each block by itself.
void CheckBlocks(const Reading& script, const EffectRegistry& registry, Findings* findings);

// Checks entries against each other, and messages against entries.
void CheckShow(const Reading& script, const Show& show, const CheckOptions& options, Findings* findings);

// Checks the messages of those effects for which their order or their number matters.
void CheckScenes(const Show& show, Findings* findings);

// Checks that the files are there that the show will ask for.
void CheckFiles(const Reading& script, const Show& show, const CheckOptions& options, Findings* findings);

// ---- Texts that the checks share

// "text" in quotation marks, cut where it is long, and with escapes for what a terminal must not get.
std::string Quote(const std::string& text);
std::string Milliseconds(uint32_t time); // "86400", or "86400 (1:26.4)" from a second on

// The candidate that a misspelt word most likely stands for; empty: none is near.
std::string Nearest(const std::string& word, const std::vector<std::string>& candidates);
std::string Listed(const std::vector<std::string>& words); // "a, b and c"

std::vector<std::string> EffectNames(const EffectRegistry& registry);
std::vector<std::string> MessageNames(const EffectRegistry& registry, const std::string& effect);

} // namespace lint
