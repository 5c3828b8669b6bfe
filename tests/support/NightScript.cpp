// SPDX-License-Identifier: MIT
#include "tests/support/NightScript.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/Effect.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "platform/Paths.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/Folders.h"

#include <gtest/gtest.h>

#include <cmath>

static uint32_t Milliseconds(float seconds)
{
    return uint32_t(std::lround(double(seconds) * 1000));
}

NightScript::NightScript()
{
    std::vector<platform::MessageBox> boxes;
    platform::CollectMessageBoxes(&boxes);
    const std::string oldDirectory = platform::GetDataDirectory();
    platform::SetDataDirectory(SOURCE_DIR "/Data");
    GLWindow window;
    EffectRegistry registry;
    RegisterEffects(&registry);
    DemoPlayer player;
    player.Init(&window, &registry, nullptr, false);
    EXPECT_TRUE(player.LoadScript("script.txt"));
    platform::SetDataDirectory(oldDirectory);
    platform::CollectMessageBoxes(nullptr);
    for (const platform::MessageBox& box : boxes)
        ADD_FAILURE() << box.caption << ": " << box.body;

    const auto nameOf = [&](const Effect* effect) {
        for (const RegisteredEffect& row : registry.effects)
            if (row.effect == effect)
                return row.name;
        return std::string("?");
    };
    for (const RegisteredEffect& row : registry.effects)
        effects.push_back(row.name);
    for (const SynchMessageDeclaration& row : registry.GetMessageTable()->entries)
        declared.emplace_back(nameOf(row.owner), row.name);
    for (const EffectInstance& entry : player.timeline)
        entries.push_back(
            {nameOf(entry.effect), Milliseconds(entry.start), Milliseconds(entry.stop), entry.layer});
    for (const SynchMessage& message : player.messages) {
        std::string name = "?";
        for (const SynchMessageDeclaration& row : registry.GetMessageTable()->entries)
            if (row.id == message.id)
                name = row.name;
        messages.push_back({Milliseconds(message.time), nameOf(message.effect), name,
                            std::vector<float>(message.params, message.params + message.count)});
    }
    end = Milliseconds(player.endTime);
}

uint32_t NightScript::StartOf(const std::string& effect) const
{
    for (const Entry& entry : entries)
        if (entry.effect == effect)
            return entry.start;
    return ~0u;
}

uint32_t NightScript::StopOf(const std::string& effect) const
{
    for (const Entry& entry : entries)
        if (entry.effect == effect)
            return entry.stop;
    return ~0u;
}
