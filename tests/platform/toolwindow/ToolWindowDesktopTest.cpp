// SPDX-License-Identifier: MIT
#include "platform/toolwindow/ToolWindow.h"

#include "tests/support/desktop/Desktop.h"

#include <gtest/gtest.h>
#include <imgui.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <X11/Xlib.h> // last: its macros have common names

class ToolWindowDesktop : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.Start(800, 600));
        for (const std::string& row : desktop.Environment())
            setenv(row.substr(0, row.find('=')).c_str(), row.substr(row.find('=') + 1).c_str(), 1);
        XSetErrorHandler(nullptr); // Xlib's own, and not that of the desktop
        std::string reason;
        ASSERT_TRUE(window.Open({"tool", "tool"}, &reason)) << reason;
    }

    // Draws a frame and returns the colours of all that is in it.
    std::vector<ImU32> Draw(const std::function<void()>& content)
    {
        window.BeginFrame();
        content();
        window.EndFrame();
        std::vector<ImU32> colours;
        const ImDrawData& data = *ImGui::GetDrawData();
        for (int i = 0; i < data.CmdListsCount; i++)
            for (const ImDrawVert& corner : data.CmdLists[i]->VtxBuffer)
                colours.push_back(corner.col);
        return colours;
    }

    Desktop desktop;
    platform::ToolWindow window;
};

// An event for a window that is no more, as a thread sends it that wakes a window just then. Xlib would end the process.
static void SendToGoneWindow()
{
    Display* const other = XOpenDisplay(nullptr);
    ASSERT_TRUE(other);
    XEvent event = {};
    event.type = ClientMessage;
    event.xclient.format = 32;
    const Window gone = XCreateSimpleWindow(other, DefaultRootWindow(other), 0, 0, 1, 1, 0, 0, 0);
    XDestroyWindow(other, gone);
    XSendEvent(other, gone, False, NoEventMask, &event);
    XSync(other, False); // the error has come
    XCloseDisplay(other);
}

TEST_F(ToolWindowDesktop, OutlivesAnErrorOfTheXServer)
{
    SendToGoneWindow();
    Draw([] {});
    EXPECT_TRUE(desktop.WaitForWindow("tool"));
}

TEST_F(ToolWindowDesktop, OutlivesAnErrorThatComesWhenItIsClosed)
{
    window.Close();
    SendToGoneWindow();
    EXPECT_TRUE(desktop.FindWindows("tool").empty());
}

TEST_F(ToolWindowDesktop, IsDarkBehindADialogAtOnceAndNotStepByStep)
{
    const auto ask = [] {
        ImGui::OpenPopup("Question");
        ImGui::SetNextWindowPos({10, 10});
        if (ImGui::BeginPopupModal("Question"))
            ImGui::EndPopup();
    };
    const std::vector<ImU32> without = Draw([] {});
    for (int i = 0; i < 3; i++)
        Draw(ask); // ImGui lays the dialog out
    const std::vector<ImU32> dark = Draw(ask);
    EXPECT_NE(without, dark);
    EXPECT_EQ(dark, Draw(ask));
}
