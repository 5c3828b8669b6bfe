// SPDX-License-Identifier: MIT
// The picture of the show, as large as it fits, and over it what is to be said about it.
#pragma once

#include "platform/toolwindow/PictureTexture.h"
#include "tools/edit/Session.h"

#include <cstdint>

namespace edit
{

class PicturePanel
{
public:
    // Takes the newest frame if there is one. True if there was.
    bool TakeFrame(Session* session);

    // Draws into the current ImGui window, in all of its room. alone: over the whole screen.
    void Draw(const Session& session, bool alone);

    // Before the window closes.
    void Release() { texture.Release(); }

private:
    void DrawLoading(const ShowPool::Status& status, float scale) const;
    void DrawFailure(const ShowPool::Status& status, float scale) const;

    platform::PictureTexture texture;
    int64_t number = -1; // of the frame in the texture
};

} // namespace edit
