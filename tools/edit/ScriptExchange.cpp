// SPDX-License-Identifier: MIT
#include "tools/edit/ScriptExchange.h"

#include "kernel/DemoPlayer.h"
#include "kernel/Effect.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace edit
{

PlayedLists::PlayedLists(std::unique_ptr<DemoPlayer> loaded)
    : player(std::move(loaded)), messagesLeft(0), received(nullptr)
{
}

PlayedLists::~PlayedLists() {}

// The same steps as in DemoPlayer::Run and RenderFrame, without rendering.
void PlayedLists::PlayFrame(float time)
{
    const SynchMessage* due = nullptr;
    if (messagesLeft < player->messages.size() && time >= player->messages[messagesLeft].time)
        due = &player->messages[messagesLeft++];

    active.clear();
    for (EffectInstance& entry : player->timeline)
        if (time >= entry.start && time <= entry.stop)
            active.push_back(&entry);
    if (active.size() > 1)
        player->SortActiveByLayer(active);

    rendered.clear();
    received = nullptr;
    for (const EffectInstance* entry : active) {
        rendered.push_back(entry->effect);
        if (due && due->effect == entry->effect)
            received = due;
    }
}

ScriptExchange::ScriptExchange(std::unique_ptr<DemoPlayer> playerBefore,
                               std::unique_ptr<DemoPlayer> playerAfter)
    : before(std::move(playerBefore)), after(std::move(playerAfter))
{
}

// The effects in the order of the calls of Init that DemoPlayer::InitEffects makes: an effect that says that it is
// initialised has loaded at its first entry, another one at each.
static std::vector<const Effect*> LoadingOrder(const DemoPlayer& player)
{
    std::vector<const Effect*> order;
    for (const EffectInstance& entry : player.timeline)
        if (!entry.effect->IsInitialised() || std::count(order.begin(), order.end(), entry.effect) == 0)
            order.push_back(entry.effect);
    return order;
}

// The bits of the colours, so that one that is no number equals itself.
static std::array<uint32_t, 9> ColorBits(const DemoPlayer& player)
{
    return std::bit_cast<std::array<uint32_t, 9>>(player.GetColorScheme());
}

bool ScriptExchange::LoadsAlike() const
{
    return ColorBits(*before.player) == ColorBits(*after.player) &&
           LoadingOrder(*before.player) == LoadingOrder(*after.player);
}

// Parameters are compared as bytes, so that one that is no number equals itself.
static bool AreAlike(const SynchMessage* a, const SynchMessage* b)
{
    if (!a || !b)
        return a == b;
    return a->effect == b->effect && a->id == b->id && a->count == b->count &&
           (a->count <= 0 || memcmp(a->params, b->params, size_t(a->count) * sizeof(float)) == 0);
}

int64_t ScriptExchange::FirstDifference(const std::vector<float>& times)
{
    for (size_t frame = 0; frame < times.size(); frame++) {
        before.PlayFrame(times[frame]);
        after.PlayFrame(times[frame]);
        if (before.rendered != after.rendered || !AreAlike(before.received, after.received))
            return int64_t(frame);
    }
    return int64_t(times.size());
}

static bool IsSameEntry(const EffectInstance& a, const EffectInstance& b)
{
    return a.start == b.start && a.stop == b.stop && a.layer == b.layer && a.effect == b.effect;
}

bool ScriptExchange::Apply(DemoPlayer* show, int64_t* lead)
{
    const std::vector<EffectInstance>& expected = before.player->timeline;
    if (!std::equal(expected.begin(), expected.end(), show->timeline.begin(), show->timeline.end(),
                    IsSameEntry) ||
        int64_t(show->messages.size()) != int64_t(before.player->messages.size()) + *lead)
        return false;

    // How many messages have left stands in DemoPlayer::Run and can't be changed. So the new list gets as many
    // messages in front of the first that is to come: those that have left are not looked at again.
    *lead += int64_t(before.messagesLeft) - int64_t(after.messagesLeft);
    std::vector<SynchMessage>& messages = after.player->messages;
    for (int64_t i = 0; i < -*lead; i++)
        delete[] messages[size_t(i)].params;
    messages.erase(messages.begin(), messages.begin() + std::max<int64_t>(-*lead, 0));
    const SynchMessage left = {0, 0, nullptr, nullptr, 0};
    messages.insert(messages.begin(), size_t(std::max<int64_t>(*lead, 0)), left);
    show->messages.swap(messages); // the old ones go with after.player
    show->timeline = after.player->timeline;
    return true;
}

} // namespace edit
