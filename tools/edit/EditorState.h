// SPDX-License-Identifier: MIT
// What the panels of the editor share. Editor fills it before the panels are drawn, and does afterwards what
// they asked for. Everything here belongs to the window's thread.
//
// CONVENTIONS
//   Times are seconds of the show as double; the script's own are whole milliseconds.
//   A panel reads what it likes. It changes the script through `document` only, and the play head, the
//   transport and what is shown only through the requests below.
#pragma once

#include "tools/capture/FrameRate.h"
#include "tools/edit/ItemId.h"
#include "tools/lint/Lint.h"
#include "tools/timeline/TimelineModel.h"
#include "tools/timeline/Times.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace edit
{

class Document;
class MusicTransport;
class ShowPool;

// What the linter and the timeline make of one revision of the script.
struct AnalysisResult {
    uint64_t revision = 0; // Document::Revision of the text that was read
    lint::Report report;
    timeline::TimelineModel model; // with the music's waveform, empty while that is still being decoded
    bool musicIsKnown = false;     // it has been decoded, or can't be
};

// Where dragged items, tapped messages and the play head come to rest.
struct SnapSetting {
    bool on = true;
    bool toBeats = true;
    bool toBars = true;
    bool toMessages = true;
    bool toEdges = true; // of entries
};

// What the timeline panel does for keys and menus.
enum TimelineAction {
    ZoomIn, // about the play head, if it is in sight
    ZoomOut,
    ZoomToShow,
    NudgeEarlierMillisecond,
    NudgeLaterMillisecond,
    NudgeEarlierFrame,
    NudgeLaterFrame,
    NudgeEarlierBeat,
    NudgeLaterBeat,
    NudgeEarlierBar,
    NudgeLaterBar,
    LayerUp, // to the front
    LayerDown,
    SelectNext, // the item that follows in time
    SelectPrevious,
    StartToPlayHead, // stretches the selected entries
    StopToPlayHead,
    NewItem, // opens the menu of new entries and messages, at the play head
    Tap      // sets the chosen message at the moment that is heard
};

struct EditorState {
    // Never null while panels are drawn; owned by Editor.
    Document* document = nullptr;
    ShowPool* show = nullptr;
    MusicTransport* music = nullptr;

    // Null until the first one is there. May be of an older revision than the document while the worker thread
    // reads.
    std::shared_ptr<const AnalysisResult> analysis;

    capture::FrameRate rate;
    timeline::Tempo tempo;
    float scale = 1; // pixels of the window per pixel of the design: every size in pixels is multiplied by it

    double playhead = 0; // where the picture is; while it plays, what is heard
    bool playing = false;
    double speed = 1; // 1, 0.5 or 0.25
    bool looping = false;
    double loopStart = 0, loopEnd = 0; // no region while both are equal
    std::vector<double> markers;       // in order
    bool follow = true;                // the timeline keeps the play head in sight while it plays
    SnapSetting snap;

    std::vector<ItemId> selection; // of the document's current outline

    // Requests.
    std::optional<double> goTo;    // moves the play head there; also while playing
    std::optional<double> scrubTo; // the same for each step of a drag of the play head
    bool revealSelection = false;  // the timeline scrolls so that the selection is in sight, and clears it
    std::vector<TimelineAction> timelineActions; // taken by the timeline panel, in order
    std::string notice; // a line for the user at the foot of the window: a refusal, what was done
};

} // namespace edit
