// SPDX-License-Identifier: MIT
// The program: its window and what is drawn in it, a script and its show.
#pragma once

#include "platform/toolwindow/ToolWindow.h"
#include "tools/edit/AnswerTimes.h"
#include "tools/edit/CommandRunner.h"
#include "tools/edit/Dialogs.h"
#include "tools/edit/FindingsPanel.h"
#include "tools/edit/InspectorPanel.h"
#include "tools/edit/PicturePanel.h"
#include "tools/edit/Session.h"
#include "tools/edit/StatusPanel.h"
#include "tools/edit/TimelinePanel.h"
#include "tools/edit/TransportPanel.h"
#include "tools/edit/UserSettings.h"

#include <string>

namespace edit
{

class Editor
{
public:
    explicit Editor(const Options& wanted);

    // Opens the script and the window. `program` is the path of this program. False: *reason says why not.
    bool Open(const std::string& program, std::string* reason);

    // Until the user leaves. Returns the exit status. After SIGINT or SIGTERM unsaved work is left for recovery, and
    // the process is to end at once, without destructors.
    int Run(bool* interrupted);

    const AnswerTimes& Answers() const { return answers; } // so far, for measurements

private:
    bool OpenFirst(std::string* reason);
    bool OpenScript(const std::string& path, std::string* reason);
    void BeginOpen(const std::string& path);
    void RestoreScriptState();
    void NewScript();
    void StoreSettings();
    void OfferRecovery();
    void DoDecision();

    void Frame();
    void TakeKeys();
    void DrawMenus();
    void DrawRecent();
    void DrawPanels(Rect room);
    void DrawSplits(const WindowLayout& layout, Rect room);
    void DrawAlone();
    double WaitTimeout() const; // seconds until the next look at what runs beside the window

    Options options;
    UserSettings settings;
    platform::ToolWindow window;
    Session session;
    ViewState view;
    Dialogs dialogs;
    CommandRunner runner;

    PicturePanel picture;
    TransportPanel transportPanel;
    FindingsPanel findings;
    InspectorPanel inspector;
    TimelinePanel timeline;
    StatusPanel status;

    bool quits;
    AnswerTimes answers;
    int framesOwed;  // ImGui needs some to come to rest after an event
    double drawTime; // that the last frame took, seconds
};

} // namespace edit
