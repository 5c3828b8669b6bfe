// SPDX-License-Identifier: MIT
// A script through the timeline: its model, its layout and its SVG.
#include "tests/fuzz/FuzzInput.h"
#include "tools/timeline/SvgWriter.h"

#include <cmath>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StartFuzzInput();
    timeline::ReadOptions options;
    options.startOffset = TakeFuzzNumber(data, &size) % 3 * 20000;
    const std::string path = WriteFuzzInput("script.txt", data, size);
    timeline::TimelineModel model;
    std::string reason;
    if (!timeline::ReadTimeline(path, options, &model, &reason))
        return 0;
    const timeline::Layout layout = timeline::LayOut(model, {});
    if (!std::isfinite(layout.width) || !std::isfinite(layout.height) ||
        layout.bars.size() != model.entries.size())
        abort();
    if (timeline::SvgPicture(model, layout).find("</svg>") == std::string::npos)
        abort();
    return 0;
}
