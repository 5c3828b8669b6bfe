// SPDX-License-Identifier: MIT
#include "kernel/System.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "kernel/SettingsDialog.h"
#include "kernel/StartSettings.h"
#include "resources/TextureLoader.h"

#include <cstdint>
#include <cstdio>

static const char* const scriptName = "script.txt";
static const char* const startOffsetFileName = "editoren_sind_fuer_clickscener.txt";
static const int displayModeBits = 32;

DemoPlayer* demoPlayer = nullptr;
GLWindow* glWindow = nullptr;
EffectRegistry* effectRegistry = nullptr;

// Milliseconds at which the show starts: one integer in a file of the working directory, with which authors
// start in the middle of a show while they work on it. No file is normal, and 0.
static uint32_t ReadStartOffset()
{
    int offset = 0;
    FILE* file = fopen(startOffsetFileName, "r");
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
    effectRegistry->Clear();
    glWindow->Destroy(); // acts after a pumped quit; after a natural end the window stays up
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
