// SPDX-License-Identifier: MIT
// The timeline: what marlinex-timeline draws, alive. Lanes with entries and messages, ruler, findings, music;
// selecting, moving, stretching and copying with the mouse.
//
//     press on an item    selects it; with Ctrl in addition
//     drag it             moves what is selected; with Ctrl a copy; Alt holds snapping off, Shift
//                         constrains to time or layer
//     drag an edge        stretches the selected entries
//     drag elsewhere      selects what lies in the rubber band; Ctrl+Shift+drag does so on an entry too
//     double click        goes there
//     right button        the menu of the item or of the place
//     wheel               zooms to the pointer; with Shift scrolls; with Ctrl, or over the names, scrolls the lanes
//     middle button drag  scrolls
//     ruler               drag moves the play head
//     strip above it      drag sets the loop
#pragma once

#include "tools/edit/DragGesture.h"
#include "tools/edit/EditorState.h"
#include "tools/edit/LanePlaces.h"
#include "tools/edit/NewItemMenu.h"
#include "tools/edit/Tapping.h"
#include "tools/edit/TimelineContents.h"
#include "tools/edit/TimelinePaint.h"
#include "tools/edit/TimelineView.h"

#include <cstdint>
#include <string>

namespace edit
{

class TimelinePanel
{
public:
    // Draws into the current ImGui window, from its cursor on in the room that is left there, and takes the
    // timelineActions of the state. Once a frame; window's thread.
    void Draw(EditorState* state);

    // True while it moves by itself: a drag that scrolls, a tooltip that is about to show. Draw frames meanwhile.
    bool WantsFrame() const { return wantsFrame; }

private:
    friend class TimelinePanelHooks;

    enum MouseMode {
        NoMouse,
        PressMode, // on an item, not yet a drag
        DragMode,
        BandMode,
        ScrubMode,
        LoopMode,
        PanMode,
        OverviewMode
    };

    static bool IsMusicKnown(const EditorState& state); // whether it plays, and its waveform
    void Refresh(EditorState* state);
    void RunActions(EditorState* state);
    void DrawBar(EditorState* state);
    void DrawTapChoice(EditorState* state);
    void PlaceAreas(const EditorState& state, float x, float y, float width, float height);
    void Paint(const EditorState& state, const ItemHit& hovered);
    void PaintBand(TimelinePaint* paint) const;
    void PaintCopies(TimelinePaint* paint) const;
    void PaintDrag(TimelinePaint* paint) const;
    void ShowDragTooltip(const EditorState& state) const;

    // TimelineMouse.cpp
    ItemHit HandleMouse(EditorState* state); // what lies under the pointer, of the places as they are
    void HandleWheel(const EditorState& state);
    void Press(EditorState* state, const ItemHit& hit);
    void PressLanes(EditorState* state, const ItemHit& hit);
    void DragOn(EditorState* state);
    void BeginDrag(EditorState* state);
    void Release(EditorState* state);
    void DoubleClick(EditorState* state, const ItemHit& hit);
    void OpenMenu(EditorState* state, const ItemHit& hit);
    void SelectBand(EditorState* state);
    void ShowTooltip(const EditorState& state, const ItemHit& hit);
    SnapGrid GridFor(const EditorState& state, const Selection& moved) const;
    double Snapped(const EditorState& state, double seconds) const;
    DragPoint PointAt(double x, double y) const;

    TimelineView view;
    TimelineContents contents;
    uint64_t contentsRevision = UINT64_MAX;
    TimelineAreas areas;
    LaneSizes sizes = {};
    LanePlaces places;
    double lanesScroll = 0; // pixels

    MouseMode mode = NoMouse;
    DragGesture drag;
    SnapGrid dragGrid;
    LanePlaces pressLanes;           // the lanes as they were at the press
    std::vector<double> dragAnchors; // seconds: what may come to rest on something
    ItemHit pressed;
    double pressX = 0, pressY = 0, pressSeconds = 0;
    bool pressControl = false;
    bool wasSelected = false; // what was pressed
    double loopAnchor = 0;    // seconds: the end of the loop that stays
    double panStart = 0;      // seconds at the left edge when the overview was pressed
    Selection bandBase;       // what was selected when the band began and stays so
    std::string restingOn;    // what the pointer rests on, and since when
    double restingSince = 0;
    bool wantsFrame = false;

    NewItemMenu menu;
    Tapping tapping;
};

} // namespace edit
