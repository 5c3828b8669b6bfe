// SPDX-License-Identifier: MIT
// marlinex-timeline: a script as a picture. Needs no display.
#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/cli/CommandLine.h"
#include "tools/cli/Output.h"
#include "tools/timeline/HtmlWriter.h"
#include "tools/timeline/PngWriter.h"
#include "tools/timeline/SvgWriter.h"

#include <filesystem>

static const std::vector<cli::Option> options = {
    {"output", 'o', "FILE",
     "Write to FILE, as SVG, PNG or a page with zoom, by its ending .svg, .png or .html. \"-\" is SVG on "
     "standard "
     "output."},
    {"width", 'w', "PIXELS",
     "Width of the picture; its height follows from what there is to show. 1600 without it."},
    {"scale", 0, "FACTOR", "Draw a PNG that many times as fine. 1 without it."},
    {"tempo", 't', "BPM", "Beats a minute of the music. 100 without it."},
    {"beats", 'b', "NUMBER", "Beats of a bar. 3 without it."},
    {"title", 0, "TEXT", "Head the picture with TEXT instead of the script's name."},
    {"offset", 0, "MS", "Draw a show that starts at this millisecond, as from a start-offset file."},
    {"data", 0, "DIR", "Look for the music in DIR instead of where the show looks."},
};

int main(int argc, char** argv)
{
    cli::CommandLine line(MARLINEX_PROGRAM, "Draws the show that a script makes: what is on stage when.",
                          "FILE", options);
    if (!line.Read(argc, argv))
        return line.exitStatus;

    timeline::LayoutOptions layout;
    double scale = 1;
    int64_t beats = layout.tempo.beatsPerBar, offset = 0;
    if (!line.Number("width", timeline::NarrowestCanvas, timeline::WidestCanvas, &layout.width) ||
        !line.Number("scale", 0.1, 10, &scale) ||
        !line.Number("tempo", 1, 1000, &layout.tempo.beatsPerMinute) ||
        !line.WholeNumber("beats", 1, 64, &beats) || !line.WholeNumber("offset", 0, UINT32_MAX, &offset))
        return line.exitStatus;
    layout.tempo.beatsPerBar = int(beats);
    layout.title = line.Value("title");

    const std::string output = line.Value("output");
    const std::string ending = output == "-" ? ".svg" : std::filesystem::path(output).extension().string();
    if (output.empty())
        return line.Fail("tell where to write: -o FILE.svg, .png or .html");
    if (ending != ".svg" && ending != ".png" && ending != ".html")
        return line.Fail(output + ": the ending must be .svg, .png or .html");

    const std::string script = line.operands[0];
    platform::FindDataDirectory(ProductionName);
    timeline::ReadOptions wanted;
    wanted.startOffset = uint32_t(offset);
    wanted.data = line.Value("data");
    timeline::TimelineModel model;
    std::string reason;
    if (!timeline::ReadTimeline(script, wanted, &model, &reason))
        return line.Fail(script + ": " + reason);

    std::string picture;
    if (ending == ".html")
        picture = timeline::HtmlPicture(model, layout);
    else if (ending == ".svg")
        picture = timeline::SvgPicture(model, timeline::LayOut(model, layout));
    else if (!timeline::PngPicture(model, timeline::LayOut(model, layout), scale, &picture, &reason))
        return line.Fail(output + ": " + reason);
    if (!cli::WriteOutput(output, picture, &reason))
        return line.Fail(output + ": " + reason);
    return cli::ExitClean;
}
