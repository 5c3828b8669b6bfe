// SPDX-License-Identifier: MIT
// A captured frame is what the scene draws at that time, drawn here without player, script and capture.
#include "tests/support/CaptureFixture.h"
#include "tests/support/picture/PictureFixture.h"

#include "effects/FX_Scroller_Intro.h"
#include "tests/Folders.h"

class DirectlyDrawn : public CaptureFixture
{
};

// The fixture of a scene beside that of the capture.
class DrawnScene : public PictureFixture
{
public:
    void TestBody() override {}

    Picture Draw(Effect* effect, int frames, double step)
    {
        if (!Open(160, 120))
            return Picture();
        window.SetLetterbox(0.85f); // the band that a show begins with
        Prepare(effect);
        for (int i = 0; i < frames; i++)
            ShowFrame(effect, step);
        // The frame itself, without the step behind it.
        effect->AddLocalTime(FrameTimer::GetDelta());
        Frame(effect);
        return Grab();
    }
};

TEST_F(DirectlyDrawn, TheFrameOfTheOpeningAtThreeSecondsIsTheCapturedOne)
{
    WriteFile("opening.txt", "[EFFECT]EffectName=FX_Scroller_Intro;StartTime=0;StopTime=9000;LayerID=1;");
    // 32 frames a second: every moment is exact in binary.
    const ProgramRun run = Run({"-o", "f/", "opening.txt", "--data", SOURCE_DIR "/Data", "--rate", "32",
                                "--from", "3", "--to", "3.03", "--size", "160x120"});
    ASSERT_EQ(0, run.status) << run.errors;
    ASSERT_EQ((std::vector<std::string>{"000096.png"}), Names("f"));

    FX_Scroller_Intro opening;
    DrawnScene scene;
    const Picture drawn = scene.Draw(&opening, 96, 1.0 / 32);
    const Picture captured = LoadPng(PathOf("f/000096.png"));
    EXPECT_EQ(0, Compare(captured, drawn, 0).maximum);
    EXPECT_NE(0, *drawn.At(80, 60)); // and there is something to see
}
