// SPDX-License-Identifier: MIT
// A script through the player, with the effects of the production.
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "script/ScriptObserver.h"
#include "script/ScriptParser.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/support/ProductionRegistry.h"

#include <algorithm>
#include <cstdlib>

// A script may ask for more messages than memory holds, and the show tries: no input would end within a minute.
class FewMessages : public ScriptObserver
{
public:
    void ByteRead(size_t, char, ByteFate) override {}
    void BlockBegins(BlockType, size_t, size_t, const std::string&) override {}
    void BlockEnds() override {}
    uint32_t LimitSteps(uint32_t steps) override { return std::min(steps, maxSteps); }
    bool TakesMessage(size_t) override { return taken++ < maxMessages; }

private:
    const uint32_t maxSteps = 1000; // of a block
    const size_t maxMessages = 20000;
    size_t taken = 0;
};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StartFuzzInput();
    WriteFuzzInput("script.txt", data, size);
    GLWindow window;
    DemoPlayer player;
    player.Init(&window, ProductionRegistry(), nullptr, false);
    FewMessages few;
    ScriptParser parser;
    parser.SetPlayer(&player);
    parser.SetObserver(&few);
    if (!parser.Load("script.txt"))
        abort();
    player.SortMessages();
    for (const SynchMessage& message : player.messages)
        if (!message.effect || message.count < 0 || (message.count > 0 && !message.params))
            abort();
    for (const EffectInstance& entry : player.timeline)
        if (!entry.effect)
            abort();
    return 0;
}
