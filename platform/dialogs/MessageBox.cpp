// SPDX-License-Identifier: MIT
#include "platform/dialogs/MessageBox.h"

#include "platform/Screen.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "platform/dialogs/MessageBoxWindow.h"
#include "platform/dialogs/TextFlow.h"

#include <cstdio>

namespace platform
{

static thread_local std::vector<MessageBox>* boxSink = nullptr;

void ShowMessageBox(std::string caption, std::string body, unsigned icon)
{
    const MessageBox box = {caption, body, icon};
    if (boxSink)
        boxSink->push_back(box);
    else if (HasDisplay())
        RunMessageBoxWindow(box);
    else
        fprintf(stderr, "%s\n%s\n", ShowableLine(caption).c_str(), ShowableText(body).c_str());
}

std::vector<MessageBox>* CollectMessageBoxes(std::vector<MessageBox>* sink)
{
    std::vector<MessageBox>* const previous = boxSink;
    boxSink = sink;
    return previous;
}

} // namespace platform
