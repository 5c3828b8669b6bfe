// SPDX-License-Identifier: MIT
#include "tools/timeline/TimelineModel.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "music/SoundSystem.h"
#include "platform/Boxes.h"
#include "platform/Paths.h"
#include "platform/SoundOutput.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace timeline
{

// The effects that remember that they are initialised. All others are initialised anew, with the second of
// waiting that goes with it, for every entry that names them.
static const char* const initialisedOnce[] = {"WhiteFlashOverlay", "BlackFlashOverlay", "FS_Image",
                                              "FX_Clouds"};

static int RowOf(const EffectRegistry& registry, const Effect* effect)
{
    for (size_t i = 0; i < registry.effects.size(); i++)
        if (registry.effects[i].effect == effect)
            return int(i);
    return 0;
}

static std::string MessageName(const EffectRegistry& registry, const SynchMessage& message)
{
    for (const SynchMessageDeclaration& row : registry.GetMessageTable()->entries)
        if (row.owner == message.effect && row.id == message.id)
            return row.name;
    return "";
}

static std::vector<std::string> Loads(const std::vector<Entry>& entries)
{
    std::vector<std::string> loads;
    for (const Entry& entry : entries) {
        const bool once = std::find(std::begin(initialisedOnce), std::end(initialisedOnce), entry.effect) !=
                          std::end(initialisedOnce);
        if (!once || std::find(loads.begin(), loads.end(), entry.effect) == loads.end())
            loads.push_back(entry.effect);
    }
    return loads;
}

static void ReadPlayer(const DemoPlayer& player, const EffectRegistry& registry, TimelineModel* model)
{
    model->start = player.startOffset / 1000.0;
    model->end = std::max(double(player.endTime), model->start);
    for (const EffectInstance& entry : player.timeline) {
        const int row = RowOf(registry, entry.effect);
        model->entries.push_back(
            {entry.start, entry.stop, entry.layer, registry.effects[size_t(row)].name, row});
    }
    for (const SynchMessage& message : player.messages) {
        const int row = RowOf(registry, message.effect);
        Message told = {message.time,
                        MessageName(registry, message),
                        message.id != 0,
                        registry.effects[size_t(row)].name,
                        row,
                        {},
                        {}};
        told.parameters.assign(message.params, message.params + message.count);
        // The frame that takes it is the first at its time or behind it, so at the very stop it comes too
        // late.
        for (size_t i = 0; i < player.timeline.size(); i++) {
            const EffectInstance& entry = player.timeline[i];
            if (entry.effect == message.effect && message.time >= entry.start && message.time < entry.stop)
                told.entries.push_back(i);
        }
        model->messages.push_back(told);
    }
    model->loads = Loads(model->entries);
}

// The file that the last [MUSIC] asked for: the show forgets those before it, also when that one can't be
// opened.
static std::string LastOpened(const std::vector<std::string>& calls)
{
    static const std::string opens = "OpenStream ";
    for (size_t i = calls.size(); i-- > 0;)
        if (calls[i].compare(0, opens.size(), opens) == 0) {
            // "OpenStream PATH MODE OFFSET LENGTH"
            size_t end = calls[i].size();
            for (int word = 0; word < 3; word++)
                end = calls[i].rfind(' ', end - 1);
            return calls[i].substr(opens.size(), end - opens.size());
        }
    return "";
}

bool ReadTimeline(const std::string& path, const ReadOptions& options, TimelineModel* model,
                  std::string* reason)
{
    namespace fs = std::filesystem;
    // Ahead of the show's reader, which would say no more than that it isn't found.
    std::error_code error;
    FILE* const file = fs::is_directory(path, error) ? nullptr : fopen(path.c_str(), "rb");
    if (!file) {
        *reason = fs::is_directory(path, error) ? "is a directory" : strerror(errno);
        return false;
    }
    fclose(file);
    const std::string folder = fs::path(path).parent_path().string();
    const std::string name = fs::path(path).filename().string();

    const std::string oldFolder = platform::GetDataDirectory();
    platform::SetDataDirectory(folder.empty() ? "." : folder);
    platform::UseSoundOutput(platform::SoundPulledByHand);
    std::vector<platform::Box> boxes; // what they tell is the linter's to say, with its place in the file
    platform::CollectBoxes(&boxes);
    std::vector<std::string> calls;
    SoundSystem::CollectCalls(&calls);

    // What RegisterEffects makes lives to the end of the process, and so does the table.
    static EffectRegistry* const registry = [] {
        EffectRegistry* const all = new EffectRegistry;
        RegisterEffects(all);
        return all;
    }();
    GLWindow window; // on paper: nothing is opened or drawn
    DemoPlayer player;
    player.SetStartOffset(options.startOffset);
    const bool loaded = player.Init(&window, registry, nullptr, true) && player.LoadScript(name);
    SoundSystem::CollectCalls(nullptr);
    platform::CollectBoxes(nullptr);
    platform::SetDataDirectory(oldFolder);
    if (!loaded) {
        *reason = "can't be read";
        return false;
    }
    *model = TimelineModel();
    model->title = name;
    ReadPlayer(player, *registry, model);
    const std::string music = LastOpened(calls);
    if (!music.empty()) {
        const std::string data = options.data.empty() ? oldFolder : options.data;
        model->music.file = fs::path(music).filename().string();
        model->music.plays = model->music.wave.Read(data + "/" + model->music.file);
    }
    return true;
}

} // namespace timeline
