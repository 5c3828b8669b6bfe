// SPDX-License-Identifier: MIT
#include "platform/toolwindow/KeptFrame.h"

#include <SDL.h>
#include <SDL_opengl.h>
#include <backends/imgui_impl_opengl2.h>

#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

namespace platform
{

static const int framesAfterLoss = 4;

// What OpenGL's library need not have of its own.
static PFNGLGENFRAMEBUFFERSPROC genFramebuffers;
static PFNGLDELETEFRAMEBUFFERSPROC deleteFramebuffers;
static PFNGLBINDFRAMEBUFFERPROC bindFramebuffer;
static PFNGLCHECKFRAMEBUFFERSTATUSPROC checkFramebufferStatus;
static PFNGLFRAMEBUFFERTEXTURE2DPROC framebufferTexture2D;
static PFNGLBLITFRAMEBUFFERPROC blitFramebuffer;

static bool HasFramebufferObjects()
{
    if (!SDL_GL_ExtensionSupported("GL_ARB_framebuffer_object"))
        return false;
    genFramebuffers = PFNGLGENFRAMEBUFFERSPROC(SDL_GL_GetProcAddress("glGenFramebuffers"));
    deleteFramebuffers = PFNGLDELETEFRAMEBUFFERSPROC(SDL_GL_GetProcAddress("glDeleteFramebuffers"));
    bindFramebuffer = PFNGLBINDFRAMEBUFFERPROC(SDL_GL_GetProcAddress("glBindFramebuffer"));
    checkFramebufferStatus =
        PFNGLCHECKFRAMEBUFFERSTATUSPROC(SDL_GL_GetProcAddress("glCheckFramebufferStatus"));
    framebufferTexture2D = PFNGLFRAMEBUFFERTEXTURE2DPROC(SDL_GL_GetProcAddress("glFramebufferTexture2D"));
    blitFramebuffer = PFNGLBLITFRAMEBUFFERPROC(SDL_GL_GetProcAddress("glBlitFramebuffer"));
    return genFramebuffers && deleteFramebuffers && bindFramebuffer && checkFramebufferStatus &&
           framebufferTexture2D && blitFramebuffer;
}

// Mesa's names for what it draws with when there is no card.
static bool IsSoftware()
{
    const char* const renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    if (!renderer)
        return false;
    for (const char* const name : {"llvmpipe", "softpipe", "swrast"})
        if (strstr(renderer, name))
            return true;
    return false;
}

void KeptFrame::Open(const ImVec4& newGround)
{
    ground = newGround;
    lost = true;
    changed.Forget();
    // A card draws the whole faster than the difference would be found.
    keeping = IsSoftware() && HasFramebufferObjects() ? InTexture : InNothing;
    if (keeping == InNothing)
        return;
    genFramebuffers(1, &framebuffer);
    glGenTextures(1, &texture);
}

void KeptFrame::Close()
{
    if (framebuffer)
        deleteFramebuffers(1, &framebuffer);
    if (texture)
        glDeleteTextures(1, &texture);
    framebuffer = texture = 0;
    width = height = 0;
}

void KeptFrame::KeepInBackBuffer()
{
    Close(); // the framebuffer object has no use any more
    keeping = InBackBuffer;
    Forget();
}

void KeptFrame::Forget()
{
    changed.Forget();
    lost = true;
    wholeFrames = keeping == InBackBuffer ? framesAfterLoss : 0;
}

bool KeptFrame::Resize(int newWidth, int newHeight)
{
    if (newWidth == width && newHeight == height)
        return true;
    if (keeping == InBackBuffer) {
        changed.Forget();
        width = newWidth;
        height = newHeight;
        return true;
    }
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, newWidth, newHeight, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glBindTexture(GL_TEXTURE_2D, 0);
    bindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    framebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    const bool complete = checkFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    bindFramebuffer(GL_FRAMEBUFFER, 0);
    changed.Forget();
    width = complete ? newWidth : 0;
    height = complete ? newHeight : 0;
    return complete;
}

// What the backend is given of one list: of its commands the triangles that reach into the rectangle, with clip rectangles
// that are cut by it. The corners are left as they are: OpenGL works on those alone that triangles name.
static void KeepInside(const ImDrawData& data, const FrameRect& rect, ImDrawList* list)
{
    const ImVec2 scale = data.FramebufferScale, origin = data.DisplayPos;
    ImVector<ImDrawIdx> kept;
    for (ImDrawCmd& command : list->CmdBuffer) {
        const FrameRect clip = Intersect(ClipOf(command, data), rect);
        const ImDrawIdx* const indices = list->IdxBuffer.Data + command.IdxOffset;
        const ImDrawVert* const corners = list->VtxBuffer.Data + command.VtxOffset;
        const unsigned count = clip.Empty() ? 0 : command.ElemCount;
        command.IdxOffset = unsigned(kept.Size);
        for (unsigned k = 0, size = 3; k + 2 < count; k += size) {
            size = ShapeSize(indices + k, count - k);
            if (Intersect(BoundsOf(indices + k, size, corners, data), clip).Empty())
                continue;
            for (unsigned corner = k; corner < k + size; corner++)
                kept.push_back(indices[corner]);
        }
        command.ElemCount = unsigned(kept.Size) - command.IdxOffset;
        command.ClipRect =
            command.ElemCount == 0
                ? ImVec4(0, 0, 0, 0)
                : ImVec4(origin.x + float(clip.left) / scale.x, origin.y + float(clip.top) / scale.y,
                         origin.x + float(clip.right) / scale.x, origin.y + float(clip.bottom) / scale.y);
    }
    list->IdxBuffer.swap(kept);
}

void KeptFrame::DrawInside(ImDrawData* data, const FrameRect& rect) const
{
    std::vector<ImVector<ImDrawCmd>> commands;
    std::vector<ImVector<ImDrawIdx>> indices;
    for (int i = 0; i < data->CmdListsCount; i++) {
        commands.push_back(data->CmdLists[i]->CmdBuffer);
        indices.push_back(data->CmdLists[i]->IdxBuffer);
        KeepInside(*data, rect, data->CmdLists[i]);
    }
    glEnable(GL_SCISSOR_TEST);
    glScissor(rect.left, height - rect.bottom, rect.right - rect.left, rect.bottom - rect.top);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);
    ImGui_ImplOpenGL2_RenderDrawData(data);
    for (int i = 0; i < data->CmdListsCount; i++) {
        data->CmdLists[i]->CmdBuffer.swap(commands[size_t(i)]);
        data->CmdLists[i]->IdxBuffer.swap(indices[size_t(i)]);
    }
}

bool KeptFrame::Draw(ImDrawData* data)
{
    const ImVec2 scale = data->FramebufferScale;
    const int frameWidth = int(data->DisplaySize.x * scale.x),
              frameHeight = int(data->DisplaySize.y * scale.y);
    if (frameWidth <= 0 || frameHeight <= 0)
        return false;
    glClearColor(ground.x, ground.y, ground.z, 1);
    glViewport(0, 0, frameWidth, frameHeight);
    // Where a pixel of ImGui isn't a whole number of the screen's, the backend would cut rectangles anew in other places.
    const bool whole = scale.x == std::floor(scale.x) && scale.y == std::floor(scale.y);
    if (keeping == InNothing || !whole || !Resize(frameWidth, frameHeight)) {
        glClear(GL_COLOR_BUFFER_BIT);
        ImGui_ImplOpenGL2_RenderDrawData(data);
        drawnShare = 1;
        lost = true; // what the framebuffer object holds is not what the window shows now
        if (keeping == InBackBuffer)
            changed.Forget();
        return true;
    }

    if (wholeFrames > 0) {
        wholeFrames--;
        changed.Forget();
    }
    const std::vector<FrameRect> rects = changed.Find(*data);
    drawnShare = 0;
    if (!std::exchange(lost, false) && rects.empty())
        return false;
    if (keeping == InTexture)
        bindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    for (const FrameRect& rect : rects) {
        DrawInside(data, rect);
        drawnShare += float(AreaOf(rect)) / (float(width) * float(height));
    }
    if (keeping == InBackBuffer)
        return true;
    bindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    blitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    bindFramebuffer(GL_FRAMEBUFFER, 0);
    return true;
}

} // namespace platform
