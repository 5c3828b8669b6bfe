// SPDX-License-Identifier: MIT
#include "tests/kernel/ProbeEffect.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"

#include <gtest/gtest.h>

TEST(Effect, StartsUnattachedAtLocalTimeZero)
{
    ProbeEffect effect;
    EXPECT_FALSE(effect.IsInitialised());
    EXPECT_EQ(nullptr, effect.GetWindow());
    EXPECT_EQ(nullptr, effect.GetPlayer());
    EXPECT_EQ(0.0f, effect.GetLocalTime());
}

TEST(Effect, AttachStoresBothAndCountsAsInitialised)
{
    ProbeEffect effect;
    GLWindow window;
    DemoPlayer player;
    effect.Attach(&window, &player);
    EXPECT_TRUE(effect.IsInitialised());
    EXPECT_EQ(&window, effect.GetWindow());
    EXPECT_EQ(&player, effect.GetPlayer());
}

TEST(Effect, AttachWithANullArgumentDoesNothing)
{
    ProbeEffect effect;
    GLWindow window;
    DemoPlayer player;
    effect.Attach(&window, nullptr);
    EXPECT_EQ(nullptr, effect.GetWindow());
    effect.Attach(nullptr, &player);
    EXPECT_EQ(nullptr, effect.GetPlayer());
    EXPECT_FALSE(effect.IsInitialised());
}

TEST(Effect, LocalTimeIsASum)
{
    ProbeEffect effect;
    effect.AddLocalTime(0.25f);
    effect.AddLocalTime(0.5f);
    EXPECT_EQ(0.75f, effect.GetLocalTime());
    effect.SetLocalTime(3);
    effect.AddLocalTime(1);
    EXPECT_EQ(4.0f, effect.GetLocalTime());
}
