// SPDX-License-Identifier: MIT
#include "kernel/Report.h"

#include "platform/Events.h"
#include "platform/Paths.h"
#include "platform/RegularFile.h"
#include "platform/dialogs/MessageBox.h"

#include <cassert>

const char* const ErrorTail =
    "\r\n\r\n"
    "This build was finished at an hour when the moon had already gone home, and the one who was to "
    "test it had taken the night ferry. We have looked at the place where it broke, nodded gravely, and "
    "moved the teapot over it. If you can read this, you are now the senior engineer on duty. Please be "
    "gentle: the code is young, the night is long, and the waltz waits for nobody. Bring biscuits, a "
    "lantern and some spare fuses, and do not tell the chick.";

void ReportError(std::string title, std::string text)
{
    platform::ShowMessageBox("Marlinex " MARLINEX_VERSION " Error: " + title, "Bad: " + text + ErrorTail,
                             platform::BoxErrorIcon);
}

void ReportInfo(std::string title, std::string text)
{
    platform::ShowMessageBox("Marlinex " MARLINEX_VERSION " Information: " + title, "Info: " + text,
                             platform::BoxInformationIcon);
}

FILE* OpenFile(const char* path, const char* mode)
{
    assert(path && mode);
    return OpenLocalFile(platform::ResolvePath(path).c_str(), mode);
}

FILE* OpenLocalFile(const char* path, const char* mode)
{
    assert(path && mode);
    FILE* file = platform::OpenRegularFile(path, mode);
    if (!file) {
        ReportError("File Not Found!", path);
        platform::PostQuit(0);
    }
    return file;
}

void CloseFile(FILE* file)
{
    if (file)
        fclose(file);
}
