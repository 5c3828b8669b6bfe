// SPDX-License-Identifier: MIT
#include "platform/Boxes.h"

#include "platform/MessageBox.h"
#include "platform/Screen.h"
#include "platform/TextFlow.h"

#include <cstdio>

namespace platform
{

static std::vector<Box>* boxSink = nullptr;

void ShowBox(std::string caption, std::string body, unsigned icon)
{
    const Box box = {caption, body, icon};
    if (boxSink)
        boxSink->push_back(box);
    else if (HasDisplay())
        RunMessageBox(box);
    else
        fprintf(stderr, "%s\n%s\n", ShowableLine(caption).c_str(), ShowableText(body).c_str());
}

std::vector<Box>* CollectBoxes(std::vector<Box>* sink)
{
    std::vector<Box>* const previous = boxSink;
    boxSink = sink;
    return previous;
}

} // namespace platform
