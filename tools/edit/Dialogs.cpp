// SPDX-License-Identifier: MIT
#include "tools/edit/Dialogs.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/edit/Moments.h"

#include <imgui.h>
#include <imgui_stdlib.h>

#include <utility>

namespace edit
{

using namespace showcolours;
using platform::ToolTint;

// Pixels of the design.
static const float wordsWidth = 420;
static const float buttonWidth = 130;

static const char* const popupName = "question";

bool Dialogs::Ask(Question wanted)
{
    if (question != NoQuestion)
        return false;
    question = wanted;
    opens = true;
    return true;
}

void Dialogs::Close()
{
    question = NoQuestion;
    ImGui::CloseCurrentPopup();
}

// Opening

void Dialogs::AskOpen(const Session& session)
{
    if (Ask(OpenQuestion))
        files.Begin(FileDialog::ToOpen, session.AbsolutePath());
}

void Dialogs::AskSaveAs(const Session& session)
{
    if (Ask(SaveQuestion))
        files.Begin(FileDialog::ToSave, session.AbsolutePath());
}

void Dialogs::AskGoTo(const Session&)
{
    if (!Ask(GoToQuestion))
        return;
    moment.clear();
    momentTrouble.clear();
}

void Dialogs::OfferRecovery(const Recovery& found)
{
    if (Ask(RecoveryQuestion))
        recovery = found;
}

void Dialogs::Tell(const std::string& heading, const std::string& words)
{
    if (!Ask(Telling))
        return;
    tellHeading = heading;
    tellWords = words;
}

void Dialogs::Leave(const Session& session, const Decision& wanted)
{
    if (question != NoQuestion)
        return;
    then = wanted;
    if (session.state.document->IsSaving())
        leavesAfterSave = true;
    else if (session.state.document->IsModified())
        Ask(UnsavedQuestion);
    else
        decided = std::exchange(then, Decision());
}

void Dialogs::Save(Session* session)
{
    const std::string path = session->GetDocument().Path();
    if (path.empty())
        AskSaveAs(*session);
    else
        SaveUnder(session, path);
}

void Dialogs::SaveUnder(Session* session, const std::string& path)
{
    session->state.notice = "Saving...";
    session->BeginSave(path, [this, session](const SaveOutcome& outcome) {
        if (outcome.saved) {
            session->state.notice = session->Name() + " is saved.";
            return;
        }
        then = Decision();
        leavesAfterSave = false;
        session->state.notice = session->Name() + " is not saved.";
        if (outcome.disk != DiskChanged &&
            outcome.disk != DiskConflict) // the session tells of these two, or Draw asks about them
            Tell("Not saved", outcome.reason);
    });
}

Dialogs::Decision Dialogs::TakeDecision()
{
    return std::exchange(decided, Decision());
}

// Drawing

bool Dialogs::BeginQuestion(const char* heading, float scale)
{
    const ImVec2 room = ImGui::GetIO().DisplaySize;
    if (opens)
        ImGui::OpenPopup(popupName);
    opens = false;
    ImGui::SetNextWindowPos(ImVec2(room.x / 2, room.y * 0.42f), ImGuiCond_Always, ImVec2(0.5f, 0.5f));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(24 * scale, 18 * scale));
    const bool open =
        ImGui::BeginPopupModal(popupName, nullptr,
                               ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_AlwaysAutoResize |
                                   ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoSavedSettings);
    ImGui::PopStyleVar();
    if (!open)
        return false;
    ImGui::PushFont(platform::FontOf(platform::TitleFont));
    ImGui::TextUnformatted(heading);
    ImGui::PopFont();
    ImGui::Dummy(ImVec2(0, 2 * scale));
    return true;
}

static void Words(const std::string& words, float scale, uint32_t colour = Parchment)
{
    ImGui::PushTextWrapPos(ImGui::GetCursorPosX() + wordsWidth * scale);
    ImGui::PushStyleColor(ImGuiCol_Text, ToolTint(colour));
    ImGui::TextUnformatted(words.c_str());
    ImGui::PopStyleColor();
    ImGui::PopTextWrapPos();
    ImGui::Dummy(ImVec2(0, 6 * scale));
}

// The button that Enter presses is the amber one.
static bool Choice(const char* label, float scale, bool main = false)
{
    if (main)
        platform::PushMainButton();
    bool pressed = ImGui::Button(label, ImVec2(buttonWidth * scale, 0));
    if (main)
        platform::PopMainButton();
    if (main && !ImGui::IsWindowAppearing() && !ImGui::IsAnyItemActive())
        pressed = pressed || ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Enter), false) ||
                  ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_KeyPadEnter), false);
    ImGui::SameLine();
    return pressed;
}

static bool Escaped()
{
    return !ImGui::IsWindowAppearing() && ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape), false);
}

void Dialogs::DrawUnsaved(Session* session)
{
    const float scale = session->state.scale;
    Words(session->Name() + " has changes that are not saved.", scale);
    if (Choice("Save", scale, true)) {
        Close();
        leavesAfterSave = true;
        Save(session);
    } else if (Choice("Discard", scale)) {
        Close();
        decided = std::exchange(then, Decision());
    } else if (Choice("Cancel", scale) || Escaped()) {
        Close();
        then = Decision();
    }
}

void Dialogs::DrawRecovery(Session* session)
{
    const float scale = session->state.scale;
    Words("Work on " + session->Name() + " was not saved when the editor ended. Its last change was at " +
              recovery.when + ".",
          scale);
    if (Choice("Recover", scale, true)) {
        Close();
        if (!session->GetDocument().Recover(recovery))
            session->state.notice = session->GetDocument().LastRefusal();
        else
            session->state.notice = "The unsaved work is back, and not saved yet.";
    } else if (Choice("Discard", scale)) {
        Close();
        session->Discard(recovery);
    } else if (Choice("Ask later", scale) || Escaped()) {
        Close();
    }
}

void Dialogs::DrawConflict(Session* session)
{
    const float scale = session->state.scale;
    Words("Another program has written " + session->Name() +
              ", and there are changes here that are not saved. Either can be had back by undo, as long as "
              "the editor is "
              "open.",
          scale);
    if (Choice("Take the file's", scale)) {
        Close();
        session->TakeTheirs();
    } else if (Choice("Keep mine", scale)) {
        Close();
        session->KeepMine();
    }
}

void Dialogs::DrawFile(Session* session)
{
    const bool saves = question == SaveQuestion;
    const FileDialog::Answer answer = files.Draw(session->state.scale);
    if (answer == FileDialog::NoAnswer)
        return;
    Close();
    if (answer == FileDialog::Cancelled) {
        then = Decision();
        leavesAfterSave = false;
        return;
    }
    if (!saves) {
        Leave(*session, {Decision::Open, files.Path()});
        return;
    }
    SaveUnder(session, files.Path());
}

void Dialogs::DrawGoTo(Session* session)
{
    const float scale = session->state.scale;
    if (ImGui::IsWindowAppearing() || std::exchange(focusMoment, false))
        ImGui::SetKeyboardFocusHere();
    ImGui::SetNextItemWidth(wordsWidth * scale * 0.62f);
    const bool entered = ImGui::InputTextWithHint("##moment", "83450, 1:23.45 or 46:2", &moment,
                                                  ImGuiInputTextFlags_EnterReturnsTrue);
    double seconds = 0;
    std::string trouble;
    const bool understood = ReadMoment(moment, session->state.tempo, &seconds, &trouble);
    if (understood)
        Words(ClockFace(seconds) + ", bar " + BarFace(seconds, session->state.tempo), scale, Mist);
    else
        Words(momentTrouble.empty() ? "milliseconds, minutes and seconds, or a bar and its beat"
                                    : momentTrouble,
              scale, momentTrouble.empty() ? Mist : Amber);
    if (Choice("Go", scale, true) || entered) {
        if (understood) {
            Close();
            session->state.goTo = seconds;
        } else {
            momentTrouble = trouble;
            focusMoment = true;
        }
    }
    if (Choice("Cancel", scale) || Escaped())
        Close();
}

void Dialogs::DrawTelling(float scale)
{
    Words(tellWords, scale);
    if (Choice("OK", scale, true) || Escaped())
        Close();
}

void Dialogs::Draw(Session* session)
{
    if (session->HasConflict())
        Ask(ConflictQuestion);
    if (leavesAfterSave && question == NoQuestion && !session->GetDocument().IsSaving()) {
        leavesAfterSave = false;
        Leave(*session, std::exchange(then, Decision())); // asks again about what was edited meanwhile
    }
    if (question == NoQuestion)
        return;
    static const char* const headings[] = {
        "", "Not saved yet", "Unsaved work", "Changed twice", "Open a script", "Save as", "Go to", ""};
    const char* const heading = question == Telling ? tellHeading.c_str() : headings[question];
    const Question drawn = question;
    if (!BeginQuestion(heading, session->state.scale))
        return;
    switch (drawn) {
    case UnsavedQuestion:
        DrawUnsaved(session);
        break;
    case RecoveryQuestion:
        DrawRecovery(session);
        break;
    case ConflictQuestion:
        DrawConflict(session);
        break;
    case OpenQuestion:
    case SaveQuestion:
        DrawFile(session);
        break;
    case GoToQuestion:
        DrawGoTo(session);
        break;
    case Telling:
        DrawTelling(session->state.scale);
        break;
    case NoQuestion:
        break;
    }
    ImGui::EndPopup();
}

} // namespace edit
