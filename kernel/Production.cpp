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

const char* const ProductionName = "moonwaltz";

const std::vector<EffectRecord>& ProductionEffects()
{
    // clang-format off
    static const std::vector<EffectRecord> rows = {
        // key                  what Init loads              painted    once   overlay  messages that change nothing
        {"FX_Credits",          FX_Credits::files,           SlateWash, false, false,   {},
            []() -> Effect* { return new FX_Credits; }, {},
            {{"fade_in", FX_Credits::stepCount, "steps", "There is no further name and no further camera.",
              "fade_last_in"}}},
        {"FX_Scroller_Intro",   FX_Scroller_Intro::files,    OchreWash, false, false,   {},
            []() -> Effect* { return new FX_Scroller_Intro; }},
        {"FX_Path",             FX_Path::files,              MossWash,  false, false,   {"flash_all", "flash_cam"},
            []() -> Effect* { return new FX_Path; },
            {{"tree", "trigger_cam", "FX_Path has no tree yet and does not count it."}}},
        {"Transition_Fish",     Transition_Fish::files,      RustWash,  false, false,   {},
            []() -> Effect* { return new Transition_Fish; }},
        {"FX_Towers",           FX_Towers::files,            MistWash,  false, false,   {},
            []() -> Effect* { return new FX_Towers; }},
        {"FX_Clouds",           FX_Clouds::files,            NightWash, true,  false,   {},
            []() -> Effect* { return new FX_Clouds; }},
        {"FX_FlashHand",        FX_FlashHand::files,         AmberWash, false, true,    {},
            []() -> Effect* { return new FX_FlashHand; }},
        {"FX_Footprint",        FX_Footprint::files,         SlateWash, false, false,   {},
            []() -> Effect* { return new FX_Footprint; }},
        {"FX_VerticalScroller", FX_VerticalScroller::files,  OchreWash, false, false,   {},
            []() -> Effect* { return new FX_VerticalScroller; }},
        {"FX_RopeThing",        FX_RopeThing::files,         MossWash,  false, false,   {},
            []() -> Effect* { return new FX_RopeThing; }},
        {"FS_Image",            FS_Image::files,             RustWash,  true,  false,   {"flash"},
            []() -> Effect* { return new FS_Image(FS_Image::files.textures[0]); }},
        {"WhiteFlashOverlay",   {},                          MistWash,  true,  true,    {},
            []() -> Effect* { return new WhiteFlashOverlay; }},
        {"BlackFlashOverlay",   {},                          NightWash, true,  true,    {},
            []() -> Effect* { return new BlackFlashOverlay; }},
    };
    // clang-format on
    return rows;
}
