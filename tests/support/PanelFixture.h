// SPDX-License-Identifier: MIT
// Panels of the editor without a window: ImGui draws into its lists, and the mouse is set by hand.
//
//     panel.Show([&] { timeline.Draw(&state); }); // in a window of 1000 x 500 pixels
//     panel.Move(300, 200);
//     panel.Press();
//     panel.Move(340, 200);
//     panel.Release();
#pragma once

#include <imgui.h>

#include <functional>

class PanelFixture
{
public:
    PanelFixture();
    ~PanelFixture();

    // Draws a frame with this, and from now on one for each step of the mouse.
    void Show(const std::function<void()>& draw);
    void Frame(); // draws a further frame

    void Move(double x, double y);
    void Press(int button = 0); // with a frame before it, in which the pointer is there
    // Makes the next frame one in which a button was pressed there, although the pointer may have moved on since, as
    // a tool's window reports it.
    void PressedAt(double x, double y);
    void Release(int button = 0);
    void Click(double x, double y, int button = 0);
    void DoubleClick(double x, double y);
    void Drag(double fromX, double fromY, double toX, double toY); // in four steps
    void Wheel(double x, double y, float notches);
    void Hold(bool control, bool shift, bool alt);
    void Key(ImGuiKey key); // pressed for a frame
    void Type(const char* text);
    void Rest(double seconds); // lets time go by

    // How many vertices the last frame had.
    int Vertices() const { return vertices; }

    static constexpr float Width = 1000, Height = 500;

private:
    std::function<void()> drawing;
    int vertices = 0;
    bool hasPressed = false;
    ImVec2 pressed = {};
};
