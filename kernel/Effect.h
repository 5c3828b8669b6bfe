// SPDX-License-Identifier: MIT
// An effect is one scene of the show: one long-lived object per class, scheduled any number of times.
//
// Who calls what, and when
//   constructor, DeclareMessages   at registration, before any window or GL context exists. Neither may
//                                  touch GL, the texture loader or a file.
//   Init                           from the load loop, GL ready, once for every timeline entry that names
//                                  the effect while IsInitialised is false. Load, build, set start values.
//   ReceiveMessage                 in the frame in which a message falls due, ahead of Render, and only if
//                                  the effect is active in that frame. Id 0 is no message: ignore it.
//   Render, then Update            once per frame and active timeline entry.
//   destructor                     never: effects live to the end of the process.
// An effect is not told when it becomes active or inactive. It can tell from localTime and from messages.
//
// GL at the start of Render
//   The depth buffer is clear, the matrix mode is modelview and the modelview matrix is the identity. All
//   other state (projection, viewport, blending, depth state, texturing, colour) is as the effect drawn
//   before left it. Each effect's header says what it leaves behind.
//
// Time
//   localTime is the sum of the frame deltas of all frames in which the effect was active, whatever entry
//   it was active through; nothing resets it. Update integrates with FrameTimer::GetDelta().
#pragma once

class DemoPlayer;
class GLWindow;
class SynchMessageTable;

class Effect
{
public:
    Effect();
    virtual ~Effect();

    virtual void Init(GLWindow* window, DemoPlayer* player) = 0;
    virtual void DeclareMessages(SynchMessageTable* table) = 0;
    virtual void Update() = 0;
    virtual void Render() = 0;

    // params holds paramCount floats, borrowed for the call; with a count of 0 there is nothing to read.
    virtual void ReceiveMessage(int messageId, float* params, int paramCount) = 0;

    // Stores both pointers and sets initialised; does nothing if one of them is null. An effect whose Init
    // does not call this is initialised again for every further timeline entry, and its window stays null.
    void Attach(GLWindow* newWindow, DemoPlayer* newPlayer);
    bool IsInitialised() const;

    float GetLocalTime() const; // seconds
    void SetLocalTime(float seconds);
    void AddLocalTime(float delta);

protected:
    GLWindow* window;   // borrowed, null until Attach
    DemoPlayer* player; // borrowed, null until Attach
    bool initialised;
    float localTime; // seconds
};
