// SPDX-License-Identifier: MIT
// The ruler: bars above, minutes and seconds below. Figures stand right of their mark, so that the first one
// has room beside the gutter.
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
static const double minBarWidth  = 7;  // narrower bars have no mark of their own
static const double minBeatWidth = 9;
static const char*  widestBar      = "00000";
// clang-format on

static void AddFigure(const std::string& text, TextStyle style, Colour colour, double x, double baseline,
                      Layout* layout)
{
    const PlacedText figure = PlaceText(text, style, colour, x + figureGap, baseline);
    if (figure.box.Right() <= layout->width - 2)
        layout->rulerTexts.push_back(figure);
}

// Calls place(i) for each multiple i of the step on the axis.
static void EachStep(const Layout& layout, double step, const std::function<void(double)>& place)
{
    const double last = std::floor(layout.end / step + 1e-6);
    for (double i = std::ceil(layout.start / step - 1e-6); i <= last; i++)
        place(i);
}

double PlaceRuler(double y, Layout* layout)
{
    const Tempo& tempo = layout->tempo;
    AddGutterText("bar", CaptionText, Slate, y + barBaseline, layout);
    AddGutterText("time", CaptionText, Slate, y + timeBaseline, layout);

    const double figureWidth = TextWidth(widestBar, BarText) + figureGap + minGap;
    const double bars = BarStep(figureWidth / layout->perSecond, tempo);
    const double barWidth = tempo.BarSeconds() * layout->perSecond;
    const double marked = barWidth >= minBarWidth ? 1 : bars;
    if (tempo.BeatSeconds() * layout->perSecond >= minBeatWidth)
        EachStep(*layout, tempo.BeatSeconds(), [&](double i) {
            if (std::fmod(i, tempo.beatsPerBar) != 0)
                layout->marks.push_back({layout->X(i * tempo.BeatSeconds()), BeatMark});
        });
    EachStep(*layout, tempo.BarSeconds() * marked, [&](double i) {
        const double x = layout->X(i * marked * tempo.BarSeconds());
        const bool numbered = std::fmod(i * marked, bars) == 0;
        layout->marks.push_back({x, numbered ? NumberedBarMark : BarMark});
        if (numbered)
            AddFigure(std::to_string(std::llround(i * marked)), BarText, Ink, x, y + barBaseline, layout);
    });

    // Hours, and hundredths of a second, take more room.
    const double timeWidth = TextWidth(ClockText(layout->end), TimeText) + figureGap + minGap;
    double seconds = ClockStep(timeWidth / layout->perSecond);
    if (seconds < 1)
        seconds = ClockStep((timeWidth + TextWidth(".00", TimeText)) / layout->perSecond);
    EachStep(*layout, seconds, [&](double i) {
        const double x = layout->X(i * seconds);
        layout->marks.push_back({x, ClockMark});
        AddFigure(ClockText(i * seconds), TimeText, Slate, x, y + timeBaseline, layout);
    });
    return y + rulerHeight;
}

} // namespace timeline
