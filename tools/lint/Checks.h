// SPDX-License-Identifier: MIT
// The checks, each over one side of a script. They add to the findings and change nothing else.
#pragma once

#include "tools/lint/Entries.h"
#include "tools/lint/Lint.h"

#include <map>

namespace lint
{

// Gathers findings and knows where they stand.
class Findings
{
public:
    static const size_t limit; // findings of one kind that are kept: a script can have as many as characters

    Findings(const Reading& script, const std::string& fileName, std::vector<Finding>* sink);

    // A finding at a place in the stream. The three texts are sentences. The reference holds until the next
    // finding is added, and is of no account if this one is beyond the limit.
    Finding& Add(Severity severity, const char* code, size_t streamPlace, const std::string& text,
                 const std::string& consequence, const std::string& cure);
    Finding& AddInFile(Severity severity, const char* code, size_t byte, const std::string& text,
                       const std::string& consequence, const std::string& cure);
    Finding& AddAt(Severity severity, const char* code, int line, int column, const std::string& text,
                   const std::string& consequence, const std::string& cure);

    size_t LeftOut() const; // those beyond the limit

private:
    const Reading& reading;
    const std::string file;
    std::vector<Finding>* const findings;
    std::map<std::string, size_t> counts; // by code
    size_t leftOut;
    Finding spare; // for what is left out
};

void SetSpan(Finding* finding, uint32_t start, uint32_t stop); // in any order

// What the reader drops before it looks for blocks, and the headers.
void CheckText(const Reading& script, Findings* findings);

// Keys and values of each block by itself.
void CheckBlocks(const Reading& script, const EffectRegistry& registry, Findings* findings);

// What the blocks come to: entries against each other, messages against entries.
void CheckShow(const Reading& script, const Show& show, const Options& options, Findings* findings);

// What single effects make of the order and number of their messages.
void CheckScenes(const Show& show, Findings* findings);

// Whether the files are there that the show will ask for.
void CheckFiles(const Reading& script, const Show& show, const Options& options, Findings* findings);

// ---- Words that the checks share

// "text" in quotation marks, cut where it is long, and with escapes for what a terminal must not get.
std::string Quote(const std::string& text);
std::string Milliseconds(uint32_t time); // "86400", or "86400 (1:26.4)" from a second on

// The candidate that a misspelt word most likely stands for, or empty.
std::string Nearest(const std::string& word, const std::vector<std::string>& candidates);
std::string Listed(const std::vector<std::string>& words); // "a, b and c"

std::vector<std::string> EffectNames(const EffectRegistry& registry);
std::vector<std::string> MessageNames(const EffectRegistry& registry, const std::string& effect);

} // namespace lint
