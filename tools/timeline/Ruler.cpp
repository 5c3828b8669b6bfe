// SPDX-License-Identifier: MIT
// The ruler, with bars above, and minutes and seconds below. Figures stand to the right of their mark, so that the
// first one has room beside the gutter.
#include "tools/timeline/LayoutParts.h"

#include <cmath>
#include <functional>

namespace timeline
{

// clang-format off
static const double barBaseline    = 14;
static const double timeBaseline   = 31;
static const double rulerHeight    = 40;
static const double figureGap      = 4;  // between a mark and its figure
static const double minGap       = 14; // between figures
static const char*  widestBar      = "00000";
// clang-format on

static void AddFigure(const std::string& text, TextStyle style, ScreenColour colour, double x,
                      double baseline, Layout* layout)
{
    const PlacedText figure = PlaceText(text, style, colour, x + figureGap, baseline);
    if (figure.box.Right() <= layout->width - 2)
        layout->rulerTexts.push_back(figure);
}

// Calls place(i) for each multiple i of the step on the axis.
static void EachStep(const Scale& scale, double step, const std::function<void(double)>& place)
{
    const double last = std::floor(scale.end / step + 1e-6);
    for (double i = std::ceil(scale.start / step - 1e-6); i <= last; i++)
        place(i);
}

std::vector<RulerMark> PlaceMarks(const Scale& scale, const Tempo& tempo, const MarkRoom& room)
{
    std::vector<RulerMark> marks;
    const double bars = BarStep(room.bar / scale.perSecond, tempo);
    const double barWidth = tempo.BarSeconds() * scale.perSecond;
    const double marked = barWidth >= room.narrowestBar ? 1 : bars;
    if (tempo.BeatSeconds() * scale.perSecond >= room.narrowestBeat)
        EachStep(scale, tempo.BeatSeconds(), [&](double i) {
            if (std::fmod(i, tempo.beatsPerBar) != 0)
                marks.push_back({scale.X(i * tempo.BeatSeconds()), BeatMark, 0});
        });
    EachStep(scale, tempo.BarSeconds() * marked, [&](double i) {
        const double x = scale.X(i * marked * tempo.BarSeconds());
        const bool numbered = std::fmod(i * marked, bars) == 0;
        marks.push_back({x, numbered ? NumberedBarMark : BarMark, numbered ? i * marked : 0});
    });
    // Times with decimals take more room.
    double seconds = ClockStep(room.time / scale.perSecond);
    if (seconds < 1)
        seconds = ClockStep((room.time + room.decimals) / scale.perSecond);
    EachStep(scale, seconds, [&](double i) {
        marks.push_back({scale.X(i * seconds), ClockMark, i * seconds});
    });
    return marks;
}

double PlaceRuler(double y, Layout* layout)
{
    AddGutterText("bar", CaptionText, Slate, y + barBaseline, layout);
    AddGutterText("time", CaptionText, Slate, y + timeBaseline, layout);
    MarkRoom room = {};
    room.bar = TextWidth(widestBar, BarText) + figureGap + minGap;
    room.time = TextWidth(ClockText(layout->end), TimeText) + figureGap + minGap; // hours take more
    room.decimals = TextWidth(".00", TimeText);
    layout->marks = PlaceMarks(*layout, layout->tempo, room);
    for (const RulerMark& mark : layout->marks)
        if (mark.kind == NumberedBarMark)
            AddFigure(std::to_string(std::llround(mark.count)), BarText, Ink, mark.x, y + barBaseline,
                      layout);
        else if (mark.kind == ClockMark)
            AddFigure(ClockText(mark.count), TimeText, Slate, mark.x, y + timeBaseline, layout);
    return y + rulerHeight;
}

} // namespace timeline
