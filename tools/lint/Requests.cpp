// SPDX-License-Identifier: MIT
#include "tools/lint/Requests.h"

namespace lint
{

const char* const loadingPicture = "loading.jpg";

const std::vector<EffectRequests>& RequestsOfProduction()
{
    // clang-format off
    static const std::vector<EffectRequests> requests = {
        {"FX_Credits", false, false,
            {"stoned.jpg",
             "credit-fen_tarogato.png", "credit-ochre.png", "credit-dunmarrow.png", "credit-lowbeam.png",
             "ackerbau_tiled2_2.jpg",
             "standard_projection.vp", "postprocessing_blur.fp"}},
        {"FX_Scroller_Intro", false, false,
            {"tessel-logo.png", "black-chick.png", "moonwaltz-logo.png",
             "waldsterben.png", "waldsterben2.png", "partikel_2.jpg",
             "sky-background_01.jpg", "sky-background_02.jpg", "sky-background_03.jpg", "sky-background_04.jpg"}},
        {"FX_Path", false, false,
            {"budentextur.jpg", "licht-an.png", "licht-aus.png", "teststreifen.png", "partikel_2.jpg",
             "ackerbau_tiled3.jpg", "ackerbau_tiled2.jpg",
             "skybox_left.jpg", "skybox_back.jpg", "skybox_right.jpg", "skybox_top.jpg",
             "ring.jpg"}},
        {"Transition_Fish", false, false,
            {"fischgraeten_1.png", "fischgraeten_2.png"}},
        {"FX_Towers", false, false,
            {"fasanenbude.jpg", "spirograph.jpg",
             "skybox_tower_left.jpg", "skybox_tower_back.jpg", "skybox_tower_right.jpg", "skybox_tower_front.jpg",
             "beam_1.png"}},
        {"FX_Clouds", true, false,
            {"cloud_5.png", "cloud_6.png", "himmelarsch.jpg", "himmelarschling.jpg",
             "greetings_01.png", "greetings_02.png", "greetings_03.png", "greetings_04.png",
             "greetings_05.png", "greetings_06.png", "greetings_07.png", "greetings_08.png",
             "greetings_09.png", "greetings_11.png", "greetings_12.png", "greetings_13.png",
             "glowmask.vp", "mix.fp"}},
        {"FX_FlashHand", false, true,
            {"foto.png", "standard_projection.vp", "postprocessing_blur.fp"}},
        {"FX_Footprint", false, false,
            {"footprint.png", "sandbau.jpg", "footprint_white.jpg",
             "standard_projection.vp", "postprocessing_blur.fp"}},
        {"FX_VerticalScroller", false, false,
            {"abspanner_1.png", "abspanner_2.png", "abspanner_3.png"}},
        {"FX_RopeThing", false, false,
            {"partikel_2.jpg", "fischhaut.jpg", "fisheye.jpg",
             "fisheyes.txt", "fish.txt", "fish.vp", "fish.fp"}},
        {"FS_Image", true, false,
            {"ochre_painting1.jpg", "glowmask.jpg", "glowmask.vp", "glowmask.fp"}},
        {"WhiteFlashOverlay", true, true, {}},
        {"BlackFlashOverlay", true, true, {}},
    };
    // clang-format on
    return requests;
}

Loss LossOf(const std::string& file)
{
    if (file == "standard_projection.vp" || file == "postprocessing_blur.fp")
        return LossIsTold;
    return file == "fish.txt" || file == "fisheyes.txt" ? LossIsSilent : LossEndsShow;
}

const EffectRequests* FindRequests(const std::string& effect)
{
    for (const EffectRequests& row : RequestsOfProduction())
        if (effect == row.effect)
            return &row;
    return nullptr;
}

} // namespace lint
