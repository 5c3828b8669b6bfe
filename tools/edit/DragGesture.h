// SPDX-License-Identifier: MIT
// A drag of items from the press of the button to its release: how far it goes, where it comes to rest, and what
// becomes of the script. A drag is one step of undo.
//
//     gesture.Begin(MoveDrag, document, selection, anchors, {seconds, layer, x, y});
//     each frame: gesture.Update(&document, {...}, shift, alt ? nullptr : &grid, reach);
//     gesture.Drop(&document, &selection) or gesture.Cancel(&document)
#pragma once

#include "tools/edit/Document.h"
#include "tools/edit/Selection.h"
#include "tools/edit/SnapGrid.h"

#include <cstdint>
#include <vector>

namespace edit
{

enum DragKind {
    NoDrag,
    MoveDrag,
    CopyDrag,  // moves copies, which are made when it is dropped
    StartDrag, // the start of entries
    StopDrag   // the stop of entries
};

// Where the pointer is: in the show and, to tell in which direction it went, in the window.
struct DragPoint {
    double seconds;
    int64_t layer;
    double x, y; // pixels
};

// Numbers for Document's gestures, never the same twice.
uint64_t NewGesture();

class DragGesture
{
public:
    DragGesture();

    // anchors: the edges of what was grabbed, in seconds, which may snap to moments of the grid.
    void Begin(DragKind newKind, const Selection& newItems, const std::vector<double>& newAnchors,
               DragPoint at);

    bool IsActive() const { return kind != NoDrag; }
    DragKind Kind() const { return kind; }
    const Selection& Items() const { return items; }

    // constrain: only the time or only the layer changes, whichever way the pointer went farther. grid: null switches
    // snapping off. reach: how close in seconds an anchor must be to a moment of the grid to snap to it.
    void Update(Document* document, DragPoint now, bool constrain, const SnapGrid* grid, double reach);

    // Ends the drag. After a CopyDrag the copies are selected.
    void Drop(Document* document, Selection* selection);
    void Cancel(Document* document); // ends the drag; the script is again as it was

    int64_t Milliseconds() const { return milliseconds; } // that it has gone so far
    int64_t Layers() const { return layers; }
    bool HasSnapped() const { return snapped; }
    double SnappedAt() const { return snappedAt; } // seconds; what it has come to rest on

private:
    void Apply(Document* document, int64_t newMilliseconds, int64_t newLayers);

    DragKind kind;
    Selection items;
    std::vector<double> anchors;
    DragPoint from;
    uint64_t gesture;
    int64_t milliseconds, layers;
    bool changed; // the document has seen the gesture
    bool snapped;
    double snappedAt;
};

} // namespace edit
