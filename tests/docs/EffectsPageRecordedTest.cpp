// SPDX-License-Identifier: MIT
// The whole effect of docs/EFFECTS.md, as the page has it: the build takes header and source out of it.
#include "FX_Lantern.h"

#include "kernel/EffectRegistry.h"
#include "platform/SteppedClock.h"
#include "platform/WindowSystem.h"
#include "tests/Folders.h"
#include "tests/support/recorder/EffectFixture.h"

#include <algorithm>
#include <cmath>
#include <fstream>

class EffectsPage : public EffectFixture
{
protected:
    // The lines of the page that are a script: those that stand four blanks in.
    static std::string ScriptOfThePage()
    {
        std::ifstream page(SOURCE_DIR "/docs/EFFECTS.md");
        std::string script, line;
        while (std::getline(page, line))
            if (line.rfind("    [", 0) == 0)
                script += line + "\n";
        return script;
    }

    FX_Lantern lantern;
};

TEST_F(EffectsPage, ItsLanternAttachesAndAsksForOneSmoothPicture)
{
    Prepare(&lantern);
    EXPECT_TRUE(lantern.IsInitialised());
    EXPECT_EQ((std::vector<std::string>{"lantern.png 1 0 1"}), TextureRequests());
    EXPECT_EQ((std::vector<std::string>{"light: the lantern flares up. PARAM 0: dimming speed"}),
              DeclaredMessages(&lantern));
}

TEST_F(EffectsPage, ItsLanternHangsStillAtFirstAndSwings)
{
    Prepare(&lantern);
    Frame(&lantern);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_TRUE(gl::IsTextured(gl::Draws()[0], "lantern.png"));
    EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {0.1, 0.1, 0.1}, 1e-7));
    EXPECT_TRUE(gl::Blends(gl::Draws()[0], GL_ONE, GL_ONE));
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws()[0],
                                 {{-1.5, -2.5, -10}, {1.5, -2.5, -10}, {1.5, 0.5, -10}, {-1.5, 0.5, -10}}));
    EXPECT_TRUE(gl::NoErrors());

    lantern.SetLocalTime(float(3.14159265 / 4)); // the end of the way
    Frame(&lantern);
    const double x = 3 * std::sin(0.5), y = 2 - 3 * std::cos(0.5);
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws()[0], {{x - 1.5, y - 1.5, -10},
                                                  {x + 1.5, y - 1.5, -10},
                                                  {x + 1.5, y + 1.5, -10},
                                                  {x - 1.5, y + 1.5, -10}}));
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND));
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
}

TEST_F(EffectsPage, ItsLanternPlaysInTheScriptOfThePage)
{
    const std::string script = ScriptOfThePage();
    ASSERT_NE(std::string::npos, script.find("[MESSAGE]"));
    AddFile("script.txt", script);
    EffectRegistry registry;
    ASSERT_TRUE(registry.Register("FX_Lantern", &lantern, "FX_Lantern"));
    DemoPlayer show;
    ASSERT_TRUE(show.Init(&window, &registry, nullptr, false));
    ASSERT_TRUE(show.LoadScript("script.txt"));
    EXPECT_TRUE(boxes.empty());
    ASSERT_EQ(1u, show.timeline.size());
    ASSERT_EQ(1u, show.messages.size());
    EXPECT_NE(0, show.messages[0].id);
    EXPECT_EQ(2.0f, show.messages[0].params[0]);

    platform::SetFrameObserver([](void*) { platform::StepClock(1000000000 / 4); }, nullptr);
    gl::ClearRecords();
    show.Run();
    EXPECT_EQ(uint32_t(PlayerEnded), show.state);
    // The clock moves behind FrameTimer's Update, so a frame's time is the step before the last.
    const std::vector<gl::Draw> frames = gl::Draws();
    ASSERT_GE(frames.size(), 16u);
    std::vector<double> brightness;
    for (const gl::Draw& frame : frames)
        brightness.push_back(frame.vertices.at(0).colour.r);
    const size_t lit = size_t(std::max_element(brightness.begin(), brightness.end()) - brightness.begin());
    EXPECT_EQ(1, brightness[lit]);
    EXPECT_GE(lit, 4u);
    EXPECT_LE(lit, 5u);
    for (size_t i = 0; i < lit; i++)
        EXPECT_NEAR(0.1, brightness[i], 1e-7) << i;
    EXPECT_NEAR(0.1 + 0.9 * 0.5, brightness[lit + 1], 1e-6) << "a quarter of a second at the rate 2";
    EXPECT_NEAR(0.1 + 0.9 * 0.25, brightness[lit + 2], 1e-6);
}
