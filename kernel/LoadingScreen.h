// SPDX-License-Identifier: MIT
// The screen that is shown while the effects load: loadingPicture in the middle of a black window,
// 60 percent of its width and 35 percent of its height. It looks the same whatever the progress is.
#pragma once

#include "kernel/ProgressScreen.h"

class Texture;

const char* const loadingPicture = "loading.jpg"; // in the data directory

class LoadingScreen : public ProgressScreen
{
public:
    explicit LoadingScreen(GLWindow* newWindow);

    void Init() override;

    // Leaves texturing enabled, the picture bound, the colour white and one GL_STACK_UNDERFLOW in GL's error
    // flag. The matrices are as before, the matrix mode is modelview.
    void Render() override;

private:
    Texture* texture; // owned by the TextureLoader
};
