// SPDX-License-Identifier: MIT
#include "tools/edit/EffectCatalogue.h"

#include "kernel/Production.h"
#include "tools/lint/Values.h"

#include <gtest/gtest.h>

using namespace edit;

TEST(EffectCatalogue, HasTheEffectsOfTheListWithTheirMessages)
{
    const EffectCatalogue& catalogue = EffectCatalogue::Production();
    ASSERT_EQ(ProductionEffects().size(), catalogue.effects.size());
    for (size_t i = 0; i < catalogue.effects.size(); i++)
        EXPECT_EQ(ProductionEffects()[i].key, catalogue.effects[i].key);
    const CatalogueEffect* const clouds = catalogue.FindEffect("FX_Clouds");
    ASSERT_NE(nullptr, clouds);
    std::vector<std::string> names;
    for (const CatalogueMessage& message : clouds->messages)
        names.push_back(message.name);
    EXPECT_EQ((std::vector<std::string>{"hand", "handFrakt", "fadeOut", "blend"}), names);
    EXPECT_FALSE(clouds->overlay);
    EXPECT_EQ(NightWash, clouds->wash);
    EXPECT_TRUE(catalogue.FindEffect("WhiteFlashOverlay")->overlay);
    EXPECT_EQ(nullptr, catalogue.FindEffect("FX_Nothing"));
    EXPECT_EQ(nullptr, catalogue.FindMessage("FX_Clouds", "flash"));
}

TEST(EffectCatalogue, KnowsTheParametersThatAreRead)
{
    const EffectCatalogue& catalogue = EffectCatalogue::Production();
    const CatalogueMessage* const flash = catalogue.FindMessage("WhiteFlashOverlay", "flash");
    ASSERT_NE(nullptr, flash);
    ASSERT_EQ(1u, flash->parameters.size());
    EXPECT_NE(std::string::npos, flash->parameters[0].find("speed")) << flash->parameters[0];
    EXPECT_EQ("2.00", UsualParameters(*flash));
    const CatalogueMessage* const hand = catalogue.FindMessage("FX_Clouds", "hand");
    EXPECT_TRUE(hand->parameters.empty());
    EXPECT_EQ("", hand->description) << "the effect says nothing of it";
    EXPECT_EQ("", UsualParameters(*hand));
    EXPECT_TRUE(catalogue.FindMessage("FX_Path", "flash_all")->idle);
    EXPECT_FALSE(catalogue.FindMessage("FX_Path", "tree1")->idle);
}

TEST(ParameterNames, AreThoseOfTheDescription)
{
    typedef std::vector<std::string> Names;
    EXPECT_EQ(Names(), lint::ParameterNames("the door opens"));
    EXPECT_EQ(Names{"dimming speed"}, lint::ParameterNames("flares up. PARAM 0: dimming speed"));
    EXPECT_EQ((Names{"to x", "to y"}), lint::ParameterNames("jumps. PARAM 0: to x. PARAM 1: to y"));
    EXPECT_EQ((Names{"", "to y"}), lint::ParameterNames("PARAM 1:to y"));
    EXPECT_EQ(Names{""}, lint::ParameterNames("PARAM 0"));
    EXPECT_EQ((Names{"", "far"}), lint::ParameterNames("PARAM 0. PARAM 1: far."));
    EXPECT_LE(lint::ParameterNames("PARAM 4000000000: too far").size(), 64u);
}
