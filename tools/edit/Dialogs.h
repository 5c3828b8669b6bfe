// SPDX-License-Identifier: MIT
// What the editor asks its user: one question at a time, over the window.
#pragma once

#include "tools/edit/FileDialog.h"
#include "tools/edit/Session.h"

#include <string>

namespace edit
{

class Dialogs
{
public:
    // What the user has decided and the editor has to do, once unsaved work has been taken care of.
    struct Decision {
        enum Kind { None, Quit, New, Open } kind = None;
        std::string path; // to open
    };

    // Opens a question. One that is already open stays, and the new one is dropped.
    void AskOpen(const Session& session);
    void AskSaveAs(const Session& session);
    void AskGoTo(const Session& session);
    void OfferRecovery(const Recovery& found);
    void Tell(const std::string& heading, const std::string& words);

    // Waits for a save that is under way, and asks about unsaved work, if there is any.
    void Leave(const Session& session, const Decision& then);

    // Begins to save the script under its name, or asks for a name. Whether it was saved is told at the foot of the window,
    // or in a box. The session is borrowed until then.
    void Save(Session* session);

    bool IsOpen() const { return question != NoQuestion; }

    // Draws the question that is open, and asks the one about the file on disk when it is due.
    void Draw(Session* session);
    Decision TakeDecision();

private:
    enum Question {
        NoQuestion,
        UnsavedQuestion,
        RecoveryQuestion,
        ConflictQuestion,
        OpenQuestion,
        SaveQuestion,
        GoToQuestion,
        Telling
    };

    bool Ask(Question wanted);
    void SaveUnder(Session* session, const std::string& path);
    void Close();
    bool BeginQuestion(const char* heading, float scale);
    void DrawUnsaved(Session* session);
    void DrawRecovery(Session* session);
    void DrawConflict(Session* session);
    void DrawFile(Session* session);
    void DrawGoTo(Session* session);
    void DrawTelling(float scale);

    Question question = NoQuestion;
    bool opens = false; // in this frame
    Decision then;      // after the unsaved work
    bool leavesAfterSave = false;
    Decision decided;
    Recovery recovery;
    FileDialog files;
    std::string moment, momentTrouble;
    bool focusMoment = false;
    std::string tellHeading, tellWords;
};

} // namespace edit
