// SPDX-License-Identifier: MIT
// What stands on the screen while effects load, as the DemoPlayer sees it.
#pragma once

class GLWindow;

class ProgressScreen
{
public:
    explicit ProgressScreen(GLWindow* newWindow) : window(newWindow), progress(0) {}
    virtual ~ProgressScreen() {}

    virtual void Init() = 0;   // once, with GL ready
    virtual void Render() = 0; // ahead of each effect that is loaded

    void SetProgress(float newProgress) { progress = newProgress; } // 0 to 1
    float GetProgress() const { return progress; }

protected:
    GLWindow* window; // borrowed
    float progress;
};
