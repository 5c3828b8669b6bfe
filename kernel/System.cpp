// SPDX-License-Identifier: MIT
#include "kernel/System.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "kernel/SettingsDialog.h"
#include "kernel/StartSettings.h"
#include "platform/RegularFile.h"
#include "resources/TextureLoader.h"

#include <cassert>
#include <cstdint>
#include <cstdio>

static const char* const scriptName = "script.txt";
static const char* const startOffsetFileName = "editoren_sind_fuer_clickscener.txt";
static const int displayModeBits = 32;

DemoPlayer* demoPlayer = nullptr;
GLWindow* glWindow = nullptr;
EffectRegistry* effectRegistry = nullptr;

// The time in milliseconds at which the show starts. Authors who work on a show write it as one integer into
// a file of the working directory. Without the file, and if it holds no number, the show starts at 0.
static uint32_t ReadStartOffset()
{
    int offset = 0;
    FILE* file = platform::OpenRegularFile(startOffsetFileName, "r");
    if (file) {
        if (fscanf(file, "%d", &offset) != 1)
            offset = 0;
        fclose(file);
    }
    return uint32_t(offset);
}

bool BuildSystem()
{
    StartSettings settings;
    if (!ShowSettingsDialog(settings.width, settings.height, settings.music, settings.fullscreen,
                            settings.reserved))
        return false;

    demoPlayer = new DemoPlayer;
    glWindow = new GLWindow;
    effectRegistry = new EffectRegistry;
    RegisterEffects(effectRegistry);
    demoPlayer->SetStartOffset(ReadStartOffset());

    if (!glWindow->Create(settings.width, settings.height, displayModeBits, settings.fullscreen))
        return false;

    LoadingScreen* const loadingScreen = new LoadingScreen(glWindow);
    demoPlayer->Init(glWindow, effectRegistry, loadingScreen, settings.music);
    return true;
}

void TearDown()
{
    assert(demoPlayer && glWindow && effectRegistry);
    effectRegistry->Clear();
    glWindow->Destroy(); // closes the window only if a quit was pumped
    if (TextureLoader* textures = TextureLoader::GetInstance())
        textures->Shutdown();
    delete demoPlayer;
    delete glWindow;
    delete effectRegistry;
    demoPlayer = nullptr;
    glWindow = nullptr;
    effectRegistry = nullptr;
}

int RunShow()
{
    if (!BuildSystem())
        return 0;
    if (demoPlayer->LoadScript(scriptName))
        demoPlayer->Run();
    TearDown();
    return 0;
}
