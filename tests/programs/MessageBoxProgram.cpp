// SPDX-License-Identifier: MIT
// Shows message boxes one after the other and says on stdout when each is closed. Arguments come in threes:
// "error" or "info", caption, body. In front of them "--show" opens a full-screen window of the size of the
// screen behind them, "--window" one of 640 by 480.
#include "platform/dialogs/MessageBox.h"

#include <SDL.h>

#include <cstdio>
#include <cstring>

static void OpenShow(bool fullscreen)
{
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
    SDL_Init(SDL_INIT_VIDEO);
    SDL_DisplayMode mode;
    SDL_GetDesktopDisplayMode(0, &mode);
    SDL_Window* window = SDL_CreateWindow("show", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                          fullscreen ? mode.w : 640, fullscreen ? mode.h : 480,
                                          SDL_WINDOW_BORDERLESS | (fullscreen ? SDL_WINDOW_FULLSCREEN : 0));
    SDL_FillRect(SDL_GetWindowSurface(window), nullptr, 0x402010);
    SDL_RaiseWindow(window);
    for (int i = 0; i < 20; ++i) {
        SDL_PumpEvents();
        SDL_UpdateWindowSurface(window);
        SDL_Delay(20);
    }
}

int main(int argc, char** argv)
{
    setvbuf(stdout, nullptr, _IOLBF, 0);
    int at = 1;
    if (at < argc && argv[at][0] == '-')
        OpenShow(strcmp(argv[at++], "--show") == 0);
    for (; at + 2 < argc; at += 3) {
        const bool error = strcmp(argv[at], "error") == 0;
        platform::ShowMessageBox(argv[at + 1], argv[at + 2],
                                 error ? platform::BoxErrorIcon : platform::BoxInformationIcon);
        printf("closed %s\n", argv[at + 1]);
    }
    puts("done");
    return 0;
}
