// SPDX-License-Identifier: MIT
#include "tests/support/BoxWatch.h"

#include "platform/Events.h"
#include "platform/dialogs/MessageBoxHooks.h"

#include <cstdlib>
#include <cstring>

static const char* const captionBegins = "Marlinex ";

BoxWatch::BoxWatch() : sink(platform::CollectMessageBoxes(nullptr)), oldStderr(stderr)
{
    if (const char* value = getenv("DISPLAY"))
        display = value;
    unsetenv("DISPLAY");
    cookie_io_functions_t functions = {};
    functions.write = Write;
    stderr = fopencookie(this, "w", functions);
    setvbuf(stderr, nullptr, _IONBF, 0);
}

BoxWatch::~BoxWatch()
{
    fclose(stderr);
    stderr = oldStderr;
    if (!display.empty())
        setenv("DISPLAY", display.c_str(), 1);
    platform::CollectMessageBoxes(sink);
}

ssize_t BoxWatch::Write(void* watch, const char* text, size_t size)
{
    const size_t length = strlen(captionBegins);
    if (size >= length && strncmp(text, captionBegins, length) == 0)
        static_cast<BoxWatch*>(watch)->quitAtBox.push_back(platform::TakeEvent().kind == platform::EventQuit);
    return ssize_t(size);
}
