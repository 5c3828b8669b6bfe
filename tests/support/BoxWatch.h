// SPDX-License-Identifier: MIT
// Looks at the event queue at the very moment at which a box is shown. Without a display a box is text on
// stderr, which this puts a stream of its own in place of.
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

    std::vector<platform::MessageBox>* sink; // where boxes went before
    std::string display;
    FILE* oldStderr;
};
