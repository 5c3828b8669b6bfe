// SPDX-License-Identifier: MIT
#include "kernel/Production.h"

#include "effects/BlackFlashOverlay.h"
#include "effects/FS_Image.h"
#include "effects/FX_Clouds.h"
#include "effects/FX_Credits.h"
#include "effects/FX_FlashHand.h"
#include "effects/FX_Footprint.h"
#include "effects/FX_Path.h"
#include "effects/FX_RopeThing.h"
#include "effects/FX_Scroller_Intro.h"
#include "effects/FX_Towers.h"
#include "effects/FX_VerticalScroller.h"
#include "effects/Transition_Fish.h"
#include "effects/WhiteFlashOverlay.h"
#include "kernel/EffectRegistry.h"

// The key serves as the name in scripts and as the description in the listing.
static void Add(EffectRegistry* registry, const char* key, Effect* effect)
{
    registry->Register(key, effect, key);
}

void RegisterEffects(EffectRegistry* registry)
{
    // clang-format off
    Add(registry, "FX_Credits",          new FX_Credits);
    Add(registry, "FX_Scroller_Intro",   new FX_Scroller_Intro);
    Add(registry, "FX_Path",             new FX_Path);
    Add(registry, "Transition_Fish",     new Transition_Fish);
    Add(registry, "FX_Towers",           new FX_Towers);
    Add(registry, "FX_Clouds",           new FX_Clouds);
    Add(registry, "FX_FlashHand",        new FX_FlashHand);
    Add(registry, "FX_Footprint",        new FX_Footprint);
    Add(registry, "FX_VerticalScroller", new FX_VerticalScroller);
    Add(registry, "FX_RopeThing",        new FX_RopeThing);
    Add(registry, "FS_Image",            new FS_Image("ochre_painting1.jpg"));
    Add(registry, "WhiteFlashOverlay",   new WhiteFlashOverlay);
    Add(registry, "BlackFlashOverlay",   new BlackFlashOverlay);
    // clang-format on
}
