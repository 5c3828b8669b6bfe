// SPDX-License-Identifier: MIT
// A script through the player, with the effects of the production.
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "tests/fuzz/FuzzInput.h"

#include <cstdlib>

static EffectRegistry* Registry()
{
    static EffectRegistry* registry = nullptr;
    if (!registry) {
        registry = new EffectRegistry;
        RegisterEffects(registry);
    }
    return registry;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StartFuzzInput();
    WriteFuzzInput("script.txt", data, size);
    GLWindow window;
    DemoPlayer player;
    player.Init(&window, Registry(), nullptr, false);
    player.LoadScript("script.txt");
    for (const SynchMessage& message : player.messages)
        if (!message.effect || message.count < 0 || (message.count > 0 && !message.params))
            abort();
    for (const EffectInstance& entry : player.timeline)
        if (!entry.effect)
            abort();
    return 0;
}
