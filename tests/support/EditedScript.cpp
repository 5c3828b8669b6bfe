// SPDX-License-Identifier: MIT
#include "tests/support/EditedScript.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include <unistd.h>

EditedScript::EditedScript(const std::string& text)
    : path(testing::TempDir() + "marlinex-edited-" + std::to_string(getpid()))
{
    std::ofstream(path, std::ios::binary) << text;
    std::string reason;
    EXPECT_TRUE(document.Open(path, &reason)) << reason;
    state.document = &document;
}

EditedScript::~EditedScript()
{
    unlink(path.c_str());
}

size_t EditedScript::Block(const std::string& value) const
{
    const std::vector<edit::OutlineBlock>& blocks = document.GetOutline().blocks;
    for (size_t i = 0; i < blocks.size(); i++)
        for (const edit::OutlineValue& each : blocks[i].values)
            if (each.text == value)
                return i;
    ADD_FAILURE() << "no block with " << value;
    abort();
}

std::string EditedScript::Entry(const std::string& effect, int start, int stop, int layer)
{
    return "[EFFECT]\nEffectName=" + effect + ";\nStartTime=" + std::to_string(start) +
           ";\nStopTime=" + std::to_string(stop) + ";\nLayerID=" + std::to_string(layer) + ";\n\n";
}

std::string EditedScript::Message(const std::string& effect, const std::string& message,
                                  const std::string& times, const std::string& more)
{
    return "[MESSAGE]\nMessageText=" + message + ";\nActivationTime=" + times + ";\nTargetEffect=" + effect +
           ";\n" + more + "\n";
}

std::string EditedScript::Night()
{
    return Entry("WhiteFlashOverlay", 0, 60000, 9) + Entry("FX_Clouds", 0, 20000, 1) +
           Entry("FX_Towers", 20000, 40000, 1) + Message("FX_Clouds", "hand", "6000,9000") +
           Message("WhiteFlashOverlay", "flash", "1200", "Parameter=2.00;\nSteps=3;\nTimeDelta=600;\n") +
           Message("FX_Towers", "flash_line", "50000");
}
