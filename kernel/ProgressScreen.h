// SPDX-License-Identifier: MIT
// Interface of the screen that DemoPlayer shows while the effects load.
#pragma once

class GLWindow;

class ProgressScreen
{
public:
    explicit ProgressScreen(GLWindow* newWindow) : window(newWindow), progress(0) {}
    virtual ~ProgressScreen() {}

    virtual void Init() = 0;   // called once, with a current GL context
    virtual void Render() = 0; // called before each effect is loaded, between a clear and a swap

    void SetProgress(float newProgress) { progress = newProgress; } // from 0 to 1
    float GetProgress() const { return progress; }

protected:
    GLWindow* window; // borrowed, not used
    float progress;
};
