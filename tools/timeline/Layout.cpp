// SPDX-License-Identifier: MIT
#include "tools/timeline/Layout.h"

#include "tools/timeline/LayoutParts.h"
#include "tools/timeline/Words.h"

#include <algorithm>
#include <cmath>

namespace timeline
{

// clang-format off
static const double titleBaseline    = 50;
static const double summaryBaseline  = 74;
static const double summaryStep      = 19;
static const double moonRoom         = 96;   // kept free at the right of the head
static const double headBottomGap    = 16;
static const double maxLoading      = 0.06; // of the plot: a longer loading is drawn narrower
static const double behindTheEnd     = 0.08; // of the show: as much is drawn of what comes after it
static const double emptyAxis        = 10;   // seconds, where there is nothing to draw
static const double musicGap         = 10;
static const double musicHeight      = 84;
static const double maxWaveColumns  = 6000;
static const char*  separator        = "  \xc2\xb7  ";
// clang-format on

void AddGutterText(const std::string& text, TextStyle style, ScreenColour colour, double baseline,
                   Layout* layout)
{
    const std::string shown = Elide(text, style, gutterWidth - margin - 8);
    if (!shown.empty())
        layout->gutterTexts.push_back(PlaceText(shown, style, colour, margin, baseline));
}

// Sets the axis: the whole show, and a little of what lies after its end.
static void ChooseAxis(const TimelineModel& model, Layout* layout)
{
    const double limit = model.start + LongestAxis;
    double last = 0;  // of music and messages
    double reach = 0; // the last moment of all that lies within the limit
    const auto reaches = [&](double time) {
        if (time <= limit)
            reach = std::max(reach, time);
    };
    for (const Entry& entry : model.entries) {
        reaches(entry.start);
        reaches(entry.stop);
    }
    for (const Message& message : model.messages) {
        reaches(message.time);
        last = std::max(last, message.time);
    }
    reaches(model.music.wave.Length());
    last = std::max(last, model.music.wave.Length());

    layout->start = model.start;
    if (model.end > limit)
        layout->end = reach + behindTheEnd * (reach - model.start);
    else if (model.end > model.start)
        layout->end =
            std::max(model.end, std::min(last, model.end + behindTheEnd * (model.end - model.start)));
    else
        layout->end = std::min(last, limit);
    if (layout->end <= layout->start)
        layout->end = layout->start + emptyAxis;
}

static void PlaceScale(const TimelineModel& model, const LayoutOptions& options, Layout* layout)
{
    const double room = (options.width - gutterWidth - margin) * options.zoom;
    layout->width = gutterWidth + room + margin;
    const double length = layout->end - layout->start;
    const double seconds = double(model.loads.size());
    double loading = room * seconds / (seconds + length);
    layout->loadingCut = loading > maxLoading * room;
    if (layout->loadingCut)
        loading = maxLoading * room;
    layout->zero = gutterWidth + loading;
    layout->perSecond = (room - loading) / length;
    layout->plotEnd = layout->X(layout->end);
    layout->showEnd = layout->X(std::clamp(model.end, layout->start, layout->end));
    for (size_t i = 1; i <= model.loads.size(); i++)
        layout->loads.push_back(gutterWidth + loading * double(i) / seconds);
}

static double PlaceHead(const TimelineModel& model, const LayoutOptions& options, Layout* layout)
{
    const std::string title = Clean(options.title.empty() ? model.title : options.title);
    const double right = layout->width - margin - moonRoom;
    const std::string shown = Elide(title, TitleText, right - margin);
    if (!shown.empty())
        layout->headTexts.push_back(PlaceText(shown, TitleText, Ink, margin, titleBaseline));

    double baseline = summaryBaseline;
    std::string line;
    const auto endLine = [&] {
        if (!line.empty())
            layout->headTexts.push_back(PlaceText(line, SummaryText, Slate, margin, baseline));
        baseline += summaryStep;
        line.clear();
    };
    for (const std::string& phrase : Summary(model, layout->tempo)) {
        const std::string longer = line.empty() ? phrase : line + separator + phrase;
        if (TextWidth(longer, SummaryText) <= right - margin) {
            line = longer;
            continue;
        }
        if (!line.empty())
            endLine();
        line = Elide(phrase, SummaryText, right - margin);
    }
    endLine();
    return baseline - summaryStep + headBottomGap;
}

static void PlaceLoading(const TimelineModel& model, double top, double bottom, Layout* layout)
{
    layout->loading = {gutterWidth, top, layout->zero - gutterWidth, bottom - top};
    if (model.loads.empty())
        return;
    layout->loadingTitle = LoadingTitle(model);
    // The topmost words must fit beside the figures of the ruler, which begin at the show's start.
    const std::string length = LengthText(double(model.loads.size()));
    double baseline = top + 14;
    for (const std::string& text : {std::string("loading"), length}) {
        if (TextWidth(text, CaptionText) + 6 <= layout->loading.width)
            layout->loadingTexts.push_back(PlaceText(text, CaptionText, Slate, gutterWidth + 3, baseline));
        baseline += 17;
    }
}

static double PlaceMusic(const TimelineModel& model, double y, Layout* layout)
{
    const Music& music = model.music;
    y += musicGap;
    layout->musicLane = {gutterWidth, y, layout->plotEnd - gutterWidth, musicHeight};
    layout->musicTitle = MusicTitle(model);
    layout->musicStart = layout->musicEnd = layout->zero;
    const double middle = y + musicHeight / 2;
    AddGutterText("music", GutterText, Ink, middle - 1, layout);
    if (!music.file.empty())
        AddGutterText(Clean(music.file), CaptionText, Slate, middle + 13, layout);
    if (!music.plays) {
        const std::string words = MusicNote(music);
        const std::string shown = Elide(words, NoteText, layout->plotEnd - layout->zero - 12);
        if (!shown.empty())
            layout->musicTexts.push_back(
                PlaceText(shown, NoteText, music.file.empty() ? Slate : Rust, layout->zero + 6, middle + 4));
        return y + musicHeight;
    }
    const double end = std::clamp(music.wave.Length(), layout->start, layout->end);
    layout->musicEnd = layout->X(end);
    const double columns = std::min(maxWaveColumns, std::ceil(layout->musicEnd - layout->musicStart));
    const double step = (end - layout->start) / columns; // seconds
    for (int i = 0; i < int(columns); i++) {
        const double from = layout->start + i * step;
        const Swing swing = music.wave.Between(from, from + step);
        layout->wave.push_back(
            {layout->X(from + step / 2), std::min(swing.peak, 1.0f), std::min(swing.loudness, 1.0f)});
    }
    return y + musicHeight;
}

Layout LayOut(const TimelineModel& model, const LayoutOptions& options)
{
    Layout layout = {};
    layout.tempo = options.tempo;
    ChooseAxis(model, &layout);
    PlaceScale(model, options, &layout);
    const double bodyTop = PlaceHead(model, options, &layout);
    layout.rulerBottom = PlaceRuler(bodyTop, &layout);
    double y = PlaceFlags(model, layout.rulerBottom, &layout);
    y = PlaceLanes(model, y, &layout);
    y = PlaceLost(model, y, &layout);
    y = PlaceMusic(model, y, &layout);
    PlaceLoading(model, bodyTop, y, &layout);
    const double bodyBottom = y + 12;
    layout.head = {0, 0, layout.width, bodyTop};
    layout.gutter = {0, bodyTop, gutterWidth, bodyBottom - bodyTop};
    layout.plot = {gutterWidth, bodyTop, layout.width - gutterWidth, bodyBottom - bodyTop};
    PlaceFoot(model, bodyBottom, &layout);
    return layout;
}

} // namespace timeline
