// SPDX-License-Identifier: MIT
// The picture behind which the effects load: "loading.jpg" in the middle of a black screen, 60 percent wide
// and 35 percent high. It stands still whatever the progress is.
#pragma once

#include "kernel/ProgressScreen.h"

class Texture;

class LoadingScreen : public ProgressScreen
{
public:
    explicit LoadingScreen(GLWindow* newWindow);

    void Init() override;

    // Leaves texturing enabled and the picture bound, the colour white, and one GL_STACK_UNDERFLOW behind.
    void Render() override;

private:
    Texture* texture; // owned by the TextureLoader
};
