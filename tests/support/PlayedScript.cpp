// SPDX-License-Identifier: MIT
#include "tests/support/PlayedScript.h"

#include "kernel/DemoPlayer.h"
#include "kernel/SynchMessageTable.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "script/ScriptParser.h"
#include "tests/support/ProductionRegistry.h"

#include <cstdio>

static std::string NameOf(const Effect* effect)
{
    for (const RegisteredEffect& row : ProductionRegistry()->effects)
        if (row.effect == effect)
            return row.name;
    return "?";
}

static std::string NameOf(int message)
{
    for (const SynchMessageDeclaration& row : ProductionRegistry()->GetMessageTable()->entries)
        if (row.id == message)
            return row.name;
    return "?";
}

static std::string Number(double value)
{
    char text[64];
    snprintf(text, sizeof text, "%.9g", value);
    return text;
}

PlayedScript Play(const std::string& script)
{
    std::vector<platform::MessageBox> boxes;
    std::vector<platform::MessageBox>* const previous = platform::CollectMessageBoxes(&boxes);
    DemoPlayer player;
    player.registry = ProductionRegistry();
    FILE* const file =
        script.empty() ? nullptr : fmemopen(const_cast<char*>(script.data()), script.size(), "rb");
    if (file) {
        ScriptParser parser;
        parser.SetPlayer(&player);
        parser.ReadBlocks(file);
        fclose(file);
    }
    platform::CollectMessageBoxes(previous);

    PlayedScript played = {{}, {}, {}, int(boxes.size())};
    for (const EffectInstance& entry : player.timeline)
        played.entries.push_back(NameOf(entry.effect) + " " + Number(double(entry.start)) + ".." +
                                 Number(double(entry.stop)) + " on " + std::to_string(entry.layer));
    for (const SynchMessage& message : player.messages) {
        std::string line =
            NameOf(message.effect) + " " + NameOf(message.id) + " at " + Number(double(message.time));
        for (int i = 0; i < message.count; i++)
            line += (i == 0 ? " (" : " ") + Number(double(message.params[i]));
        played.messages.push_back(line + (message.count > 0 ? ")" : ""));
    }
    const ColorScheme scheme = player.GetColorScheme();
    for (const float* colour : {scheme.global, scheme.support, scheme.flow})
        played.colours.push_back(Number(double(colour[0])) + " " + Number(double(colour[1])) + " " +
                                 Number(double(colour[2])));
    return played;
}

std::string Told(const PlayedScript& played)
{
    std::string told;
    for (const std::vector<std::string>* lines : {&played.entries, &played.messages, &played.colours})
        for (const std::string& line : *lines)
            told += line + "\n";
    return told + std::to_string(played.boxes) + " boxes\n";
}
