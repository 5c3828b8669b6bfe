// SPDX-License-Identifier: MIT
#include "tools/edit/Editor.h"

#include "platform/Clock.h"
#include "platform/Paths.h"
#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/cli/CommandLine.h"
#include "tools/edit/KeySheet.h"

#include <imgui.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <filesystem>

namespace edit
{

using namespace showcolours;
using platform::ToolColour;

// Seconds.
static const double frameTime = 1 / 60.0; // while something moves
static const double waitingTime = 0.008;  // while a frame is on its way
static const double waitingLongest = 0.1; // between two frames of what moves
static const double cursorTime = 0.1;     // while a text is typed, for its cursor
static const double idleTime = 0.1;       // else
static const double settleTime = 0.6;     // until what waits for a resting pointer shows
static const double noticeTime = 8;       // that a notice stands
static const int framesAfterEvent = 3;

static double Now()
{
    return double(platform::ReadCounter()) / double(platform::CounterFrequency());
}

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
      runner(&session, &view, &dialogs, {GetClipboard, SetClipboard}), quits(false), noticeSince(0),
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

// The script of the command line, the one that was open last, or the show's own.
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
    TakeMemory();
    return true;
}

// A script that is open already stays until the other one has been read.
void Editor::BeginOpen(const std::string& path)
{
    Remember();
    session.BeginOpen(path, [this, path](const Session::Opening& opening) {
        if (opening.editedMeanwhile)
            return dialogs.Leave(session, {Dialogs::Decision::Open, path});
        if (!opening.opened)
            return dialogs.Tell("Not opened", path + ": " + opening.reason);
        TakeMemory();
        if (opening.lost)
            dialogs.OfferRecovery(*opening.lost);
    });
}

// Where the script was left.
void Editor::TakeMemory()
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

// What the next start shall find.
void Editor::Remember()
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
        Remember();
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
        answers.Wait(Now());
        const bool happened = window.WaitEvents(Patience());
        const double now = Now();
        answers.Begin(now, happened);
        bool isNew = session.Tick(now);
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
        const bool noticeEnds = !shownNotice.empty() && now - noticeSince > noticeTime;
        if (framesOwed == 0 && !cursor && !moves && !noticeEnds)
            continue;
        framesOwed = std::max(framesOwed - 1, 0);
        drawn = now;
        answers.Draw(Now());
        Frame();
        DoDecision();
        drawTime = Now() - drawn;
    }
    answers.Wait(Now());
    *interrupted = window.EndRequested() && !quits;
    Remember();
    if (*interrupted) {
        session.GetDocument().WriteRecovery();
        session.FinishDisks();
    }
    picture.Release();
    if (!*interrupted)
        window.Close(); // it shall not stand there while threads and processes end
    return *interrupted ? 128 + SIGTERM : cli::ExitClean;
}

double Editor::Patience() const
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

// A background would be drawn in the colour that the window was cleared with.
static const ImGuiWindowFlags panelFlags =
    ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoCollapse |
    ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_NoBringToFrontOnFocus |
    ImGuiWindowFlags_NoBackground;
static const ImGuiWindowFlags fixedFlags = ImGuiWindowFlags_NoScrollbar | ImGuiWindowFlags_NoScrollWithMouse;

static void BeginPanel(const char* name, Rect place, float padX, float padY, ImGuiWindowFlags further = 0)
{
    ImGui::SetNextWindowPos(ImVec2(place.x, place.y));
    ImGui::SetNextWindowSize(ImVec2(place.width, place.height));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(padX, padY));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowBorderSize, 0);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowRounding, 0);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowMinSize, ImVec2(1, 1));
    ImGui::Begin(name, nullptr, panelFlags | further);
    ImGui::PopStyleVar(4);
}

void Editor::DrawPanels(Rect room)
{
    EditorState& state = session.state;
    const float scale = state.scale;
    const WindowLayout layout = LayOutWindow(room, scale, view.wishes);
    DrawSplits(layout, room);

    BeginPanel("Picture", layout.picture, 0, 0, fixedFlags);
    picture.Draw(session, false);
    ImGui::End();
    BeginPanel("Transport", layout.transport, 8 * scale, 7 * scale, fixedFlags);
    transportPanel.Draw(&session, &runner);
    ImGui::End();
    if (!layout.inspector.Empty()) {
        BeginPanel("Inspector", layout.inspector, 12 * scale, 8 * scale);
        inspector.Draw(&state);
        ImGui::End();
    }
    if (!layout.findings.Empty()) {
        BeginPanel("Findings", layout.findings, 12 * scale, 8 * scale, fixedFlags); // its list scrolls
        findings.Draw(&session);
        ImGui::End();
    }
    BeginPanel("Timeline", layout.timeline, 0, 0, fixedFlags);
    timeline.Draw(&state);
    ImGui::End();
    DrawStatus(layout.status);
}

// Draws a line that can be dragged. True while it is: *share is then what the pointer asks for.
static bool Split(const char* name, Rect place, bool upright, Rect room, float* share)
{
    if (place.Empty())
        return false;
    BeginPanel(name, place, 0, 0, fixedFlags);
    ImGui::SetCursorScreenPos(ImVec2(place.x, place.y));
    ImGui::InvisibleButton("split", ImVec2(place.width, place.height));
    const bool active = ImGui::IsItemActive();
    const float x = std::floor(place.x + place.width / 2), y = std::floor(place.y + place.height / 2);
    if (!active && !ImGui::IsItemHovered()) {
        const ImU32 hair = ToolColour(Slate, 0.45f);
        if (upright)
            ImGui::GetWindowDrawList()->AddRectFilled(ImVec2(x, place.y), ImVec2(x + 1, place.Bottom()),
                                                      hair);
        else
            ImGui::GetWindowDrawList()->AddRectFilled(ImVec2(place.x, y), ImVec2(place.Right(), y + 1), hair);
    } else {
        ImGui::SetMouseCursor(upright ? ImGuiMouseCursor_ResizeEW : ImGuiMouseCursor_ResizeNS);
        ImGui::GetWindowDrawList()->AddRectFilled(ImVec2(place.x, place.y),
                                                  ImVec2(place.Right(), place.Bottom()),
                                                  ToolColour(active ? Amber : Ochre, 0.8f));
    }
    if (active) {
        const ImVec2 mouse = ImGui::GetIO().MousePos;
        const float wanted = upright ? (mouse.x - room.x) / room.width : (mouse.y - room.y) / room.height;
        *share = std::clamp(wanted, 0.1f, 0.9f);
    }
    ImGui::End();
    return active;
}

void Editor::DrawSplits(const WindowLayout& layout, Rect room)
{
    room.height -= layout.status.height;
    Split("##stage", layout.stageSplit, false, room, &view.wishes.stageShare);
    Split("##picture", layout.pictureSplit, true, room, &view.wishes.pictureShare);
    Rect column = room;
    column.height = layout.stageSplit.y - room.y;
    Split("##inspector", layout.inspectorSplit, false, column, &view.wishes.inspectorShare);
}

static std::string MemoryText(uint64_t bytes)
{
    return std::to_string(bytes >> 20) + " MB";
}

void Editor::DrawStatus(Rect place)
{
    EditorState& state = session.state;
    const double now = Now();
    if (!state.notice.empty()) {
        shownNotice = state.notice;
        state.notice.clear();
        noticeSince = now;
    }
    if (now - noticeSince > noticeTime)
        shownNotice.clear();
    BeginPanel("Status", place, 12 * state.scale, 3 * state.scale, fixedFlags);
    ImGui::PushFont(platform::FontOf(platform::NoteFont));
    ImGui::TextColored(platform::ToolTint(Parchment), "%s", shownNotice.c_str());
    const ShowPool::Status status = session.ShowStatus();
    std::string words = state.document->IsModified() ? "not saved" : "saved";
    if (status.processes > 0)
        words += "   \xc2\xb7   " + std::to_string(status.processes) +
                 (status.processes == 1 ? " process, " : " processes, ") + MemoryText(status.memory);
    const float width = ImGui::CalcTextSize(words.c_str()).x;
    ImGui::SameLine(std::max(place.width - width - 12 * state.scale, 0.0f));
    ImGui::TextColored(platform::ToolTint(Mist), "%s", words.c_str());
    ImGui::PopFont();
    ImGui::End();
}

void Editor::DrawAlone()
{
    const ImVec2 size = ImGui::GetIO().DisplaySize;
    BeginPanel("Picture", {0, 0, size.x, size.y}, 0, 0, fixedFlags);
    picture.Draw(session, true);
    ImGui::End();
    session.state.timelineActions.clear();
}

} // namespace edit
