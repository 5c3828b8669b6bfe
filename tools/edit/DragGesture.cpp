// SPDX-License-Identifier: MIT
#include "tools/edit/DragGesture.h"

#include <cmath>
#include <cstdlib>

namespace edit
{

uint64_t NewGesture()
{
    static uint64_t last = 0;
    return ++last;
}

DragGesture::DragGesture()
    : kind(NoDrag), from(), gesture(0), milliseconds(0), layers(0), changed(false), snapped(false),
      snappedAt(0)
{
}

void DragGesture::Begin(DragKind newKind, const Selection& newItems, const std::vector<double>& newAnchors,
                        DragPoint at)
{
    kind = newKind;
    items = newItems;
    anchors = newAnchors;
    from = at;
    gesture = NewGesture();
    milliseconds = layers = 0;
    changed = snapped = false;
}

void DragGesture::Update(Document* document, DragPoint now, bool constrain, const SnapGrid* grid,
                         double reach)
{
    if (kind == NoDrag)
        return;
    double seconds = now.seconds - from.seconds;
    const bool edge = kind == StartDrag || kind == StopDrag;
    int64_t wantedLayers = edge ? 0 : now.layer - from.layer;
    const bool level = std::fabs(now.x - from.x) >= std::fabs(now.y - from.y);
    if (constrain && level)
        wantedLayers = 0;
    const bool timeHeld = constrain && !edge && !level;
    if (timeHeld)
        seconds = 0;

    // The anchor that is nearest to a moment of the grid decides.
    snapped = false;
    double best = reach, correction = 0;
    if (grid && !timeHeld)
        for (const double anchor : anchors) {
            double moment = 0;
            if (!grid->Nearest(anchor + seconds, best, &moment))
                continue;
            correction = moment - (anchor + seconds);
            best = std::fabs(correction);
            snapped = true;
            snappedAt = moment;
        }
    Apply(document, std::llround((seconds + correction) * 1000), wantedLayers);
}

void DragGesture::Apply(Document* document, int64_t newMilliseconds, int64_t newLayers)
{
    if (newMilliseconds == milliseconds && newLayers == layers)
        return;
    milliseconds = newMilliseconds;
    layers = newLayers;
    if (kind == MoveDrag)
        changed = document->Move(items, milliseconds, layers, gesture) || changed;
    else if (kind == StartDrag || kind == StopDrag)
        changed = document->Stretch(items, kind == StopDrag, milliseconds, gesture) || changed;
}

void DragGesture::Drop(Document* document, Selection* selection)
{
    if (kind == CopyDrag && (milliseconds != 0 || layers != 0)) {
        Selection copies = document->Duplicate(items, milliseconds, layers);
        if (!copies.empty()) {
            Sort(&copies);
            *selection = copies;
        }
    }
    kind = NoDrag;
}

void DragGesture::Cancel(Document* document)
{
    if (changed)
        Apply(document, 0, 0);
    kind = NoDrag;
}

} // namespace edit
