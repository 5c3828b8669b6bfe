// SPDX-License-Identifier: MIT
#include "tests/support/BusyShow.h"

#include "kernel/Production.h"

#include <algorithm>
#include <random>

// No distribution of the standard library is used: its numbers differ from one library to the next.
static int Pick(std::mt19937* random, int count)
{
    return int((*random)() % unsigned(count));
}

static const EffectRecord& PickEffect(std::mt19937* random)
{
    return ProductionEffects()[size_t(Pick(random, int(ProductionEffects().size())))];
}

timeline::TimelineModel BusyShow(int entries, int messages, int remarks, unsigned seed)
{
    std::mt19937 random(seed);
    timeline::TimelineModel model;
    model.title = "busy.txt";
    for (int i = 0; i < entries; i++) {
        const EffectRecord& effect = PickEffect(&random);
        const double start = Pick(&random, 360000) / 1000.0;
        const double length = Pick(&random, Pick(&random, 4) ? 4000 : 60000) / 1000.0;
        model.entries.push_back({start, start + length, uint32_t(Pick(&random, 6)), effect.key, effect.wash});
        model.end = std::max(model.end, start + length);
        model.loads.push_back(effect.key);
    }
    for (int i = 0; i < messages; i++) {
        timeline::Message message = {Pick(&random, 380000) / 1000.0, 0, "", true, "", {}, {}};
        static const char* const names[] = {"flash", "hand", "fade_last_in", "wave", "light_flash"};
        message.name = names[Pick(&random, 5)];
        message.known = message.name != "wave";
        for (int p = Pick(&random, 3); p > 0; p--)
            message.parameters.push_back(float(p) / 2);
        model.messages.push_back(message);
    }
    std::stable_sort(model.messages.begin(), model.messages.end(),
                     [](const auto& a, const auto& b) { return a.time < b.time; });
    for (timeline::Message& message : model.messages) {
        message.effect = PickEffect(&random).key;
        for (size_t i = 0; i < model.entries.size(); i++)
            if (model.entries[i].effect == message.effect && model.entries[i].start <= message.time &&
                message.time < model.entries[i].stop)
                message.entries.push_back(i);
    }
    for (int i = 0; i < remarks; i++) {
        const double start = 370.0 * i / remarks;
        model.remarks.push_back(
            {i % 3 == 0, i % 5 != 4, start, start + Pick(&random, 9000) / 1000.0,
             "busy.txt:" + std::to_string(i + 7) +
                 ": something that the show would do otherwise than meant, told at some length "
                 "so that it has to be broken into lines on a narrow canvas"});
    }
    std::stable_sort(model.remarks.begin(), model.remarks.end(),
                     [](const auto& a, const auto& b) { return a.placed && !b.placed; });
    return model;
}

std::string BusyScript(int entries)
{
    std::mt19937 random(3);
    std::string script;
    for (int i = 0; i < entries; i++) {
        const std::string effect = PickEffect(&random).key;
        const int start = Pick(&random, 360000), length = Pick(&random, Pick(&random, 4) ? 4000 : 60000);
        script += "[EFFECT]\nEffectName=" + effect + ";\nStartTime=" + std::to_string(start) +
                  ";\nStopTime=" + std::to_string(start + length) +
                  ";\nLayerID=" + std::to_string(Pick(&random, 6)) +
                  ";\n[MESSAGE]\nMessageText=flash;\nActivationTime=" +
                  std::to_string(start + Pick(&random, length + 1)) + ";\nTargetEffect=" + effect + ";\n";
    }
    return script;
}
