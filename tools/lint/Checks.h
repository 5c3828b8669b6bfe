// SPDX-License-Identifier: MIT
// The checks, each over one side of a script. They add to the findings and change nothing else.
#pragma once

#include "tools/lint/Entries.h"
#include "tools/lint/Lint.h"

namespace lint
{

// Gathers findings and knows where they stand.
class Findings
{
public:
    Findings(const Reading& script, const std::string& fileName, std::vector<Finding>* sink);

    // A finding at a place in the stream. The three texts are sentences.
    Finding& Add(Severity severity, const char* code, size_t streamPlace, const std::string& text,
                 const std::string& consequence, const std::string& cure);
    Finding& AddInFile(Severity severity, const char* code, size_t byte, const std::string& text,
                       const std::string& consequence, const std::string& cure);
    Finding& AddAt(Severity severity, const char* code, int line, int column, const std::string& text,
                   const std::string& consequence, const std::string& cure);

private:
    const Reading& reading;
    const std::string file;
    std::vector<Finding>* const findings;
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

std::string Quote(const std::string& text); // "text", cut where it is long
std::string Milliseconds(uint32_t time);    // "86400", or "86400 (1:26.4)" from a second on

// The candidate that a misspelt word most likely stands for, or empty.
std::string Nearest(const std::string& word, const std::vector<std::string>& candidates);
std::string Listed(const std::vector<std::string>& words); // "a, b and c"

std::vector<std::string> EffectNames(const EffectRegistry& registry);
std::vector<std::string> MessageNames(const EffectRegistry& registry, const std::string& effect);

} // namespace lint
