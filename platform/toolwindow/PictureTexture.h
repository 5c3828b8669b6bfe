// SPDX-License-Identifier: MIT
// A picture in the window of a tool. Belongs to the window's GL context.
#pragma once

#include <imgui.h>

namespace platform
{

class PictureTexture
{
public:
    PictureTexture() = default;
    ~PictureTexture(); // the window must still be open
    PictureTexture(const PictureTexture&) = delete;
    PictureTexture& operator=(const PictureTexture&) = delete;

    // Four bytes a pixel, the last of which is ignored; the bottom row first, as glReadPixels gives them.
    void Upload(int newWidth, int newHeight, const unsigned char* rgba);
    void Release();

    bool Empty() const { return textures[shown].name == 0; }
    int Width() const { return textures[shown].width; }
    int Height() const { return textures[shown].height; }

    // Draws it upright over a rectangle of the window.
    void Draw(ImDrawList* list, ImVec2 topLeft, ImVec2 bottomRight) const;

private:
    struct Texture {
        unsigned name = 0; // GL's
        int width = 0, height = 0;
    };
    Texture textures[2];
    int shown = 0;
};

} // namespace platform
