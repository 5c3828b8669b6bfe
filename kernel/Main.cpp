// SPDX-License-Identifier: MIT
// The program. It takes no options and looks at no arguments.
#include "kernel/OutOfMemory.h"
#include "kernel/Production.h"
#include "kernel/System.h"
#include "platform/Paths.h"
#include "platform/Screen.h"
#include "platform/WindowSystem.h"

#include <cstdio>

int main()
{
    if (!platform::HasDisplay()) {
        fprintf(stderr, "%s: there is no display to play on (%s)\n", ProductionName,
                platform::MissingDisplayText());
        return 1;
    }
    ReportOutOfMemory(ProductionName);
    platform::FindDataDirectory(ProductionName);
    const int status = RunShow();
    // Restores the display mode. After a natural end of the show nothing else has done so.
    platform::Windows().shutDown();
    return status;
}
