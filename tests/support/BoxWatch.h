// SPDX-License-Identifier: MIT
// Checks, whenever a message box is shown, whether a quit is in the event queue. Without a display a box is
// text on stderr, so this class replaces stderr by a stream of its own.
//
//     BoxWatch watch;
//     EXPECT_FALSE(player.Init(...));
//     EXPECT_EQ(std::vector<bool>{false}, watch.quitAtBox); // one box, and the quit was posted behind it
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace platform
{
struct MessageBox;
}

class BoxWatch
{
public:
    BoxWatch();
    ~BoxWatch();

    std::vector<bool> quitAtBox; // for each box, whether a quit was waiting when it was shown

private:
    static ssize_t Write(void* watch, const char* text, size_t size);

    std::vector<platform::MessageBox>* sink; // the sink of boxes that was set before
    std::string display;
    FILE* oldStderr;
};
