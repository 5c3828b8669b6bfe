// SPDX-License-Identifier: MIT
// The strip under the picture: play and step, where the play head is, loop, speed, the tempo of the music.
#pragma once

#include "tools/edit/CommandRunner.h"

namespace edit
{

class TransportPanel
{
public:
    // Draws into the current ImGui window, in one row. What finds no room is left out, the last first.
    void Draw(Session* session, CommandRunner* runner);

private:
    void DrawTime(Session* session, CommandRunner* runner) const;
    void DrawTempo(Session* session) const;
};

} // namespace edit
