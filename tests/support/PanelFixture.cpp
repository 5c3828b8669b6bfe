// SPDX-License-Identifier: MIT
#include "tests/support/PanelFixture.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"

PanelFixture::PanelFixture()
{
    ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.DisplaySize = {Width, Height};
    io.DeltaTime = 1 / 60.0f;
    io.MousePos = {-1, -1};
    io.KeyMap[ImGuiKey_Escape] = 1;
    io.KeyMap[ImGuiKey_Enter] = 2;
    io.KeyMap[ImGuiKey_Tab] = 3;
    platform::LoadToolFonts(1);
    platform::SetToolStyle(1);
    unsigned char* pixels = nullptr;
    int width = 0, height = 0;
    io.Fonts->GetTexDataAsAlpha8(&pixels, &width, &height);
}

PanelFixture::~PanelFixture()
{
    ImGui::DestroyContext();
}

void PanelFixture::Show(const std::function<void()>& draw)
{
    drawing = draw;
    Frame();
}

void PanelFixture::Frame()
{
    ImGui::NewFrame();
    if (hasPressed)
        ImGui::GetIO().MouseClickedPos[0] = pressed;
    hasPressed = false;
    ImGui::SetNextWindowPos({0, 0});
    ImGui::SetNextWindowSize({Width, Height});
    ImGui::Begin("panel", nullptr, ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove);
    drawing();
    ImGui::End();
    ImGui::Render();
    vertices = ImGui::GetDrawData()->TotalVtxCount;
}

void PanelFixture::Move(double x, double y)
{
    ImGui::GetIO().MousePos = {float(x), float(y)};
    Frame();
}

void PanelFixture::Press(int button)
{
    ImGui::GetIO().MouseDown[button] = true;
    Frame();
}

void PanelFixture::PressedAt(double x, double y)
{
    ImGui::GetIO().MouseDown[0] = true;
    hasPressed = true;
    pressed = {float(x), float(y)};
}

void PanelFixture::Release(int button)
{
    ImGui::GetIO().MouseDown[button] = false;
    Frame();
}

void PanelFixture::Click(double x, double y, int button)
{
    Rest(1); // so that it is no double click
    Move(x, y);
    Press(button);
    Release(button);
}

void PanelFixture::DoubleClick(double x, double y)
{
    Click(x, y);
    Press();
    Release();
}

void PanelFixture::Drag(double fromX, double fromY, double toX, double toY)
{
    Rest(1);
    Move(fromX, fromY);
    Press();
    for (int i = 1; i <= 4; i++)
        Move(fromX + (toX - fromX) * i / 4, fromY + (toY - fromY) * i / 4);
    Release();
}

void PanelFixture::Wheel(double x, double y, float notches)
{
    Move(x, y);
    ImGui::GetIO().MouseWheel = notches;
    Frame();
    ImGui::GetIO().MouseWheel = 0;
}

void PanelFixture::Hold(bool control, bool shift, bool alt)
{
    ImGuiIO& io = ImGui::GetIO();
    io.KeyCtrl = control;
    io.KeyShift = shift;
    io.KeyAlt = alt;
    io.KeyMods = (control ? ImGuiKeyModFlags_Ctrl : 0) | (shift ? ImGuiKeyModFlags_Shift : 0) |
                 (alt ? ImGuiKeyModFlags_Alt : 0);
}

void PanelFixture::Key(ImGuiKey key)
{
    ImGuiIO& io = ImGui::GetIO();
    io.KeysDown[io.KeyMap[key]] = true;
    Frame();
    io.KeysDown[io.KeyMap[key]] = false;
    Frame();
}

void PanelFixture::Type(const char* text)
{
    ImGui::GetIO().AddInputCharactersUTF8(text);
    Frame();
}

void PanelFixture::Rest(double seconds)
{
    ImGui::GetIO().DeltaTime = float(seconds);
    Frame();
    ImGui::GetIO().DeltaTime = 1 / 60.0f;
    Frame();
}
