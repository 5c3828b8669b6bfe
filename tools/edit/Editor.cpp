// SPDX-License-Identifier: MIT
#include "tools/edit/Editor.h"

#include "platform/Paths.h"
#include "tools/cli/CommandLine.h"
#include "tools/cli/MonotonicSeconds.h"
#include "tools/edit/KeySheet.h"
#include "tools/edit/PanelFrame.h"

#include <imgui.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <filesystem>

namespace edit
{

// Seconds.
static const double frameTime = 1 / 60.0; // while something moves
static const double waitingTime = 0.008;  // while a frame is on its way
static const double waitingLongest = 0.1; // between two frames of what moves
static const double cursorTime = 0.1;     // while a text is typed, for its cursor
static const double idleTime = 0.1;       // otherwise
static const double settleTime = 0.6;     // until what waits for a resting pointer shows
static const int framesAfterEvent = 3;

static std::string GetClipboard()
{
    const char* const text = ImGui::GetClipboardText();
    return text ? text : "";
}

static void SetClipboard(const std::string& text)
{
    ImGui::SetClipboardText(text.c_str());
}

Editor::Editor(const Options& wanted)
    : options(wanted), session(wanted, platform::ToolWindow::Wake),
      runner(&session, &view, &dialogs, {GetClipboard, SetClipboard}), quits(false),
      framesOwed(framesAfterEvent), drawTime(0)
{
}

// Opening

bool Editor::Open(const std::string& program, std::string* reason)
{
    settings.Load();
    view.wishes = {settings.stageShare, settings.pictureShare, settings.inspectorShare, settings.inspector,
                   settings.findings};
    session.state.follow = settings.follow;
    session.state.snap = settings.snap;

    platform::ToolWindowSettings wanted;
    wanted.program = "marlinex-edit";
    wanted.title = "marlinex-edit";
    wanted.width = settings.width;
    wanted.height = settings.height;
    wanted.maximised = settings.maximised;
    if (!OpenFirst(reason) || !window.Open(wanted, reason))
        return false;
    session.state.scale = window.Scale();
    std::string trouble;
    if (!session.Start(program, &trouble))
        dialogs.Tell("No picture", "The show can't be played: " + trouble);
    OfferRecovery();
    return true;
}

// Opens the script of the command line, or the one that was open last, or the show's own.
bool Editor::OpenFirst(std::string* reason)
{
    if (!options.script.empty()) {
        if (OpenScript(options.script, reason))
            return true;
        *reason = options.script + ": " + *reason;
        return false;
    }
    if (!settings.scripts.empty() && OpenScript(settings.scripts.front().path, reason))
        return true;
    if (!OpenScript(platform::DataPath("script.txt"), reason))
        NewScript();
    return true;
}

bool Editor::OpenScript(const std::string& path, std::string* reason)
{
    if (!session.Open(path, reason))
        return false;
    RestoreScriptState();
    return true;
}

// A script that is open already stays until the other one has been read.
void Editor::BeginOpen(const std::string& path)
{
    StoreSettings();
    session.BeginOpen(path, [this, path](const Session::Opening& opening) {
        if (opening.editedMeanwhile)
            return dialogs.Leave(session, {Dialogs::Decision::Open, path});
        if (!opening.opened)
            return dialogs.Tell("Not opened", path + ": " + opening.reason);
        RestoreScriptState();
        if (opening.lost)
            dialogs.OfferRecovery(*opening.lost);
    });
}

// Takes over where the script was left.
void Editor::RestoreScriptState()
{
    const ScriptMemory memory = settings.MemoryOf(session.AbsolutePath());
    EditorState& state = session.state;
    state.tempo = memory.tempo;
    state.markers = memory.markers;
    state.loopStart = memory.loopStart;
    state.loopEnd = memory.loopEnd;
    session.transport.GoTo(memory.playhead);
}

void Editor::NewScript()
{
    const timeline::Tempo tempo = session.state.tempo;
    session.New();
    session.state.tempo = tempo;
}

void Editor::OfferRecovery()
{
    Recovery found;
    if (Document::FindRecovery(session.GetDocument().Path(), &found))
        dialogs.OfferRecovery(found);
}

// Stores what the next start shall find.
void Editor::StoreSettings()
{
    const EditorState& state = session.state;
    const std::string path = session.AbsolutePath();
    if (!path.empty())
        settings.Remember({path, state.playhead, state.tempo, state.markers, state.loopStart, state.loopEnd});
    settings.width = window.DesignWidth();
    settings.height = window.DesignHeight();
    settings.maximised = window.IsMaximised();
    settings.stageShare = view.wishes.stageShare;
    settings.pictureShare = view.wishes.pictureShare;
    settings.inspectorShare = view.wishes.inspectorShare;
    settings.inspector = view.wishes.inspector;
    settings.findings = view.wishes.findings;
    settings.follow = state.follow;
    settings.snap = state.snap;
    const auto reason = std::make_shared<std::string>();
    session.Disk().Do(
        this,
        [reason, kept = settings] {
            if (!kept.Save(reason.get()))
                *reason = "The settings can't be kept: " + *reason;
        },
        [this, reason] {
            if (!reason->empty())
                session.state.notice = *reason;
        });
}

void Editor::DoDecision()
{
    const Dialogs::Decision decision = dialogs.TakeDecision();
    switch (decision.kind) {
    case Dialogs::Decision::None:
        return;
    case Dialogs::Decision::Quit:
        quits = true;
        break;
    case Dialogs::Decision::New:
        StoreSettings();
        NewScript();
        break;
    case Dialogs::Decision::Open:
        BeginOpen(decision.path);
        break;
    }
}

// Running

// Drawing is dear without a graphics card, and the show's processes want the processor: a frame of the window is
// drawn when something has happened, and none otherwise.
int Editor::Run(bool* interrupted)
{
    double drawn = 0, happenedAt = 0;
    bool settles = false;
    while (!quits && !window.EndRequested()) {
        answers.Wait(cli::MonotonicSeconds());
        const bool happened = window.WaitEvents(WaitTimeout());
        const double now = cli::MonotonicSeconds();
        answers.Begin(now, happened);
        // The first frame is there before the show's processes are started, which would take the processors from it.
        bool isNew = drawn > 0 && session.Tick(now);
        isNew = picture.TakeFrame(&session) || isNew;
        if (happened || isNew)
            framesOwed = framesAfterEvent;
        if (happened) {
            settles = true;
            happenedAt = now;
        } else if (settles && now - happenedAt > settleTime) {
            settles = false;
            framesOwed = framesAfterEvent;
        }
        const bool cursor = ImGui::GetIO().WantTextInput && now - drawn >= cursorTime;
        const bool moves = session.state.playing || session.ShowStatus().loading || timeline.WantsFrame();
        const bool noticeEnds = status.NoticeEnds(now);
        if (framesOwed == 0 && !cursor && !moves && !noticeEnds)
            continue;
        framesOwed = std::max(framesOwed - 1, 0);
        drawn = now;
        answers.Draw(cli::MonotonicSeconds());
        Frame();
        DoDecision();
        drawTime = cli::MonotonicSeconds() - drawn;
    }
    answers.Wait(cli::MonotonicSeconds());
    *interrupted = window.EndRequested() && !quits;
    StoreSettings();
    if (*interrupted) {
        session.GetDocument().WriteRecovery();
        session.FinishDisks();
    }
    picture.Release();
    if (!*interrupted)
        window.Close(); // it shall not stand there while threads and processes end
    return *interrupted ? 128 + SIGTERM : cli::ExitClean;
}

double Editor::WaitTimeout() const
{
    // Without a graphics card the frames take the processor away from the show that they are to follow.
    if (framesOwed > 0 || session.state.playing || timeline.WantsFrame())
        return drawTime > 2 * frameTime ? std::min(drawTime, waitingLongest) : frameTime / 2;
    if (const_cast<Session&>(session).IsWaiting())
        return waitingTime;
    return ImGui::GetIO().WantTextInput ? cursorTime : idleTime;
}

void Editor::Frame()
{
    EditorState& state = session.state;
    if (window.TakeFocusGained())
        session.LookAtDisk();
    if (window.TakeCloseRequest())
        runner.Run(CommandQuit);
    for (const std::string& path : window.TakeDroppedFiles())
        dialogs.Leave(session, {Dialogs::Decision::Open, path});

    // Arrows and Tab move through a dialog or a menu; elsewhere they are commands.
    ImGuiIO& io = ImGui::GetIO();
    const bool popup = dialogs.IsOpen() || ImGui::IsPopupOpen("", ImGuiPopupFlags_AnyPopup);
    io.ConfigFlags = popup ? io.ConfigFlags | ImGuiConfigFlags_NavEnableKeyboard
                           : io.ConfigFlags & ~ImGuiConfigFlags_NavEnableKeyboard;
    TakeKeys();
    window.SetTitle((state.document->IsModified() ? "* " : "") + session.Name() + " - marlinex-edit");
    window.SetFullScreen(view.pictureAlone);

    window.BeginFrame();
    if (view.pictureAlone) {
        DrawAlone();
    } else {
        DrawMenus();
        const float menu = ImGui::GetFrameHeight();
        DrawPanels({0, menu, io.DisplaySize.x, io.DisplaySize.y - menu});
    }
    DrawKeySheet(&view.keySheet, state.scale);
    dialogs.Draw(&session);
    window.EndFrame();
    session.DoRequests(ImGui::IsMouseDown(0));
}

void Editor::TakeKeys()
{
    const bool popup = dialogs.IsOpen() || ImGui::IsPopupOpen("", ImGuiPopupFlags_AnyPopup);
    const bool types = ImGui::GetIO().WantTextInput;
    for (const platform::KeyPress& press : window.TakeKeys()) {
        const Command* const command = FindCommand(press);
        if (!command || popup)
            continue;
        // A field that is typed in has its own use for all keys but these.
        const bool reaches =
            press.key >= platform::KeyF1 ||
            (press.control && (press.key == 's' || press.key == 'g' || press.key == 'o' || press.key == 'q'));
        if (types && !reaches)
            continue;
        runner.Run(command->id);
    }
}

// Drawing

void Editor::DrawMenus()
{
    if (!ImGui::BeginMainMenuBar())
        return;
    for (int menu = 0; menu < MenuCount; menu++) {
        if (!ImGui::BeginMenu(NameOf(Menu(menu))))
            continue;
        for (const Command& command : Commands()) {
            if (command.menu != menu)
                continue;
            if (command.beginsGroup)
                ImGui::Separator();
            const std::string name = runner.MenuName(command.id) + "###" + command.name;
            if (ImGui::MenuItem(name.c_str(), KeyText(command.keys[0]).c_str(), runner.IsTicked(command.id),
                                runner.Can(command.id)))
                runner.Run(command.id);
            if (command.id == CommandOpen)
                DrawRecent();
        }
        ImGui::EndMenu();
    }
    ImGui::EndMainMenuBar();
}

void Editor::DrawRecent()
{
    if (!ImGui::BeginMenu("Open recent", !settings.scripts.empty()))
        return;
    for (const ScriptMemory& memory : settings.scripts)
        if (ImGui::MenuItem(memory.path.c_str()))
            dialogs.Leave(session, {Dialogs::Decision::Open, memory.path});
    ImGui::EndMenu();
}

void Editor::DrawPanels(Rect room)
{
    EditorState& state = session.state;
    const float scale = state.scale;
    const WindowLayout layout = LayOutWindow(room, scale, view.wishes);
    DrawSplits(layout, room);

    BeginPanel("Picture", layout.picture, 0, 0, NoScrolling);
    picture.Draw(session, false);
    ImGui::End();
    BeginPanel("Transport", layout.transport, 8 * scale, 7 * scale, NoScrolling);
    transportPanel.Draw(&session, &runner);
    ImGui::End();
    if (!layout.inspector.Empty()) {
        BeginPanel("Inspector", layout.inspector, 12 * scale, 8 * scale);
        inspector.Draw(&state);
        ImGui::End();
    }
    if (!layout.findings.Empty()) {
        BeginPanel("Findings", layout.findings, 12 * scale, 8 * scale, NoScrolling); // its list scrolls
        findings.Draw(&session);
        ImGui::End();
    }
    BeginPanel("Timeline", layout.timeline, 0, 0, NoScrolling);
    timeline.Draw(&state);
    ImGui::End();
    status.Draw(&session, layout.status);
}

void Editor::DrawSplits(const WindowLayout& layout, Rect room)
{
    room.height -= layout.status.height;
    DragSplit("##stage", layout.stageSplit, false, room, &view.wishes.stageShare);
    DragSplit("##picture", layout.pictureSplit, true, room, &view.wishes.pictureShare);
    Rect column = room;
    column.height = layout.stageSplit.y - room.y;
    DragSplit("##inspector", layout.inspectorSplit, false, column, &view.wishes.inspectorShare);
}

void Editor::DrawAlone()
{
    const ImVec2 size = ImGui::GetIO().DisplaySize;
    BeginPanel("Picture", {0, 0, size.x, size.y}, 0, 0, NoScrolling);
    picture.Draw(session, true);
    ImGui::End();
    session.state.timelineActions.clear();
}

} // namespace edit
