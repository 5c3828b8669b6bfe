// SPDX-License-Identifier: MIT
// Opens a full-screen window of the size on the command line, says "up", and pumps its messages until a quit.
// Says "closed" behind Destroy, and waits for its end.
#include "display/GLWindow.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

int main(int, char** arguments)
{
    GLWindow window;
    if (!window.Create(atoi(arguments[1]), atoi(arguments[2]), 32, true))
        return 1;
    puts("up");
    fflush(stdout);
    while (window.IsRunning()) {
        GLWindow::ClearDepth();
        window.SwapBuffers();
        window.PumpMessage();
        usleep(10000);
    }
    window.Destroy();
    puts("closed");
    fflush(stdout);
    pause();
}
