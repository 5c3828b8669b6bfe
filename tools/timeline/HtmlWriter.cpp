// SPDX-License-Identifier: MIT
#include "tools/timeline/HtmlWriter.h"

#include "tools/timeline/HtmlPage.h"
#include "tools/timeline/SvgWriter.h"

#include <cstdio>

namespace timeline
{

static const double closestBeats = 60; // pixels from beat to beat that are close enough
static const int fewestSteps = 4;
static const int maxSteps = 8;

static std::string Percent(double part, double whole)
{
    char text[32];
    snprintf(text, sizeof text, "%.4f%%", part / whole * 100);
    return text;
}

// One picture for each step of the zoom, each twice as wide as the one before. Items that are grouped in one for want
// of room stand apart in a wider one, and all are laid out by the same rules.
static std::string Sheets(const TimelineModel& model, LayoutOptions options, const Layout& whole)
{
    std::string sheets;
    double beatWidth = 0;
    for (int step = 0; step < maxSteps && (step < fewestSteps || beatWidth < closestBeats); step++) {
        options.zoom = double(1 << step);
        const Layout layout = LayOut(model, options);
        beatWidth = layout.tempo.BeatSeconds() * layout.perSecond;
        // The heads of the steps may differ in height, and a part shows what lies below its head.
        const std::string attributes = std::string(" class=\"sheet") + (step ? " away" : "") +
                                       "\" style=\"width:" + Percent(layout.plot.width, whole.plot.width) +
                                       "\"";
        sheets += SvgPart(model, layout, PlotPart, layout.plot, "s" + std::to_string(step), attributes);
    }
    return sheets;
}

std::string HtmlPicture(const TimelineModel& model, const LayoutOptions& options)
{
    LayoutOptions plain = options;
    plain.zoom = 1;
    const Layout layout = LayOut(model, plain);
    const std::string title = Escape(options.title.empty() ? model.title : options.title);
    char tempo[96];
    snprintf(tempo, sizeof tempo, " data-beat=\"%.9g\" data-beats=\"%d\"", layout.tempo.BeatSeconds(),
             layout.tempo.beatsPerBar);

    std::string page = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>";
    page += title + "</title>\n<style>" + PageStyle() + TypeStyle() + "</style>\n</head>\n<body>\n<main" +
            tempo + ">\n";
    page += "<div class=\"head\">" + SvgPart(model, layout, HeadPart, layout.head, "h", "") + "</div>\n";
    page += "<div class=\"body\">\n<div class=\"gutter\" style=\"width:" +
            Percent(layout.gutter.width, layout.width) + "\">" +
            SvgPart(model, layout, GutterPart, layout.gutter, "g", "") + "</div>\n";
    page += "<div class=\"plot\">" + Sheets(model, plain, layout) + "</div>\n</div>\n";
    page +=
        "<div class=\"foot\">" + SvgPart(model, layout, FootPart, layout.foot, "f", "") + "</div>\n</main>\n";
    page += "<script>" + PageScript() + "</script>\n</body>\n</html>\n";
    return page;
}

} // namespace timeline
