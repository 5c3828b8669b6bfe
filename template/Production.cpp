// The production: its name and its table of effects.
#include "kernel/Production.h"

#include "effects/FX_Lantern.h"

const char* const ProductionName = "@NAME@";

const std::vector<EffectRecord>& ProductionEffects()
{
    // clang-format off
    static const std::vector<EffectRecord> rows = {
        // key          what Init loads    painted    once  overlay  messages that change nothing
        {"FX_Lantern",  FX_Lantern::files, AmberWash, true, false,   {}, []() -> Effect* { return new FX_Lantern; }},
    };
    // clang-format on
    return rows;
}
