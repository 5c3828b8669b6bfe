// SPDX-License-Identifier: MIT
#include "tools/edit/TimelineMusic.h"

#include "platform/toolwindow/ToolFonts.h"
#include "tools/timeline/Type.h"
#include "tools/timeline/Words.h"

#include <algorithm>
#include <cmath>

namespace edit
{

using namespace timeline;

static void PaintWave(const Waveform& wave, const TimelineView& view, const TimelineAreas& areas,
                      TimelinePaint* paint)
{
    const Area& lane = areas.music;
    const double s = double(paint->scale), left = double(lane.left);
    const double middle = std::round(double(lane.top + lane.bottom) / 2);
    const double half = double(lane.Height()) / 2 - 3 * s;
    const double from = std::max(left, left + view.X(0));
    const double to = std::min(double(lane.right), left + view.X(wave.Length()));
    // A column for each pixel that the eye can tell apart.
    const double step = std::max(1.0, std::floor(s));
    for (double x = std::floor(from); x < to; x += step) {
        const Swing swing =
            wave.Between(std::max(0.0, view.Seconds(x - left)), view.Seconds(x + step - left));
        const double peak = std::max(0.5, half * double(std::min(swing.peak, 1.0f)));
        const double loud = half * double(std::min(swing.loudness, 1.0f));
        paint->Fill(x, middle - peak, x + step, middle + peak, peakColour);
        if (loud >= 0.5)
            paint->Fill(x, middle - loud, x + step, middle + loud, loudColour);
    }
}

void PaintMusic(const Music* music, bool isKnown, const TimelineView& view, const TimelineAreas& areas,
                TimelinePaint* paint)
{
    const Area& lane = areas.music;
    const double s = double(paint->scale);
    paint->Fill(double(lane.left), double(lane.top), double(lane.right), double(lane.bottom), laneWash);
    ImFont* const heading = platform::FontOf(platform::HeadingFont);
    ImFont* const note = platform::FontOf(platform::NoteFont);
    const double line = double(TimelinePaint::TextHeight(heading));
    const double noteLine = double(TimelinePaint::TextHeight(note));
    const double x = double(areas.gutter.left) + 12 * s;
    const float room = areas.gutter.Width() - float(16 * s);
    const double y = double(lane.top) + (double(lane.Height()) - line - noteLine) / 2;
    paint->Text(heading, x, y, Ink, "music");
    if (!music)
        return;
    if (!music->file.empty())
        paint->Text(note, x, y + line - s, Slate, TimelinePaint::Elide(note, Clean(music->file), room));
    if (!isKnown)
        return;
    paint->list->PushClipRect({lane.left, lane.top}, {lane.right, lane.bottom}, true);
    if (music->plays && !music->wave.Empty()) {
        PaintWave(music->wave, view, areas, paint);
    } else if (!music->plays) {
        const double start = std::max(double(lane.left), double(lane.left) + view.X(0)); // after the loading
        paint->Text(note, start + 12 * s, double(lane.top) + (double(lane.Height()) - noteLine) / 2,
                    music->file.empty() ? Slate : Rust, MusicNote(*music));
    }
    paint->list->PopClipRect();
}

} // namespace edit
