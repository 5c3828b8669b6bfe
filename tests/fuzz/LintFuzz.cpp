// SPDX-License-Identifier: MIT
// A script through the linter, and its report as text and as JSON.
#include "tests/fuzz/FuzzInput.h"
#include "tools/lint/Lint.h"
#include "tools/lint/Print.h"

#include <cstdlib>

// What a terminal could take for an order. Line ends are the report's own.
static bool HasControlCharacters(const std::string& text)
{
    for (const char c : text)
        if ((static_cast<unsigned char>(c) < 0x20 && c != '\n') || c == 0x7F)
            return true;
    return false;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StartFuzzInput();
    lint::CheckOptions options;
    options.startOffset = TakeFuzzNumber(data, &size) % 3 * 20000;
    options.checkFiles = false;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const lint::Report report = lint::CheckText(bytes, "script.txt", options);
    int line = 0, column = 0;
    for (const lint::Finding& finding : report.findings) {
        const bool isInOrder = finding.line > line || (finding.line == line && finding.column >= column);
        if (!isInOrder || finding.spanStart > finding.spanStop || finding.text.empty())
            abort();
        line = finding.line;
        column = finding.column;
    }
    if (HasControlCharacters(lint::PrintText("script.txt", report, false)))
        abort();
    lint::PrintJson("script.txt", report, options);
    return 0;
}
