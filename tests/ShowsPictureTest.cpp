// SPDX-License-Identifier: MIT
// All effects in a row on a real driver, from the form to the end of the show, with the pictures, meshes and
// shaders of the production: what the driver has to complain about, word by word, in both contexts.
#include "kernel/System.h"

#include "display/RenderTarget.h"
#include "kernel/DemoPlayer.h"
#include "kernel/FrameTimer.h"
#include "kernel/Production.h"
#include "platform/SteppedClock.h"
#include "platform/WindowSystem.h"
#include "platform/dialogs/StartForm.h"
#include "platform/dialogs/StartFormHooks.h"
#include "tests/Folders.h"
#include "tests/support/AllEffectsShow.h"
#include "tests/support/picture/PictureFixture.h"

#include <GL/glew.h>

#include <filesystem>

struct StageSize {
    int button; // of the form
    int width, height;
};

static void PrintTo(const StageSize& size, std::ostream* out)
{
    *out << size.width << " by " << size.height;
}

struct Complaint {
    int frame; // swaps so far
    float seconds;
    std::string text;
};

class ShowsOnADriver : public PictureFixture, public testing::WithParamInterface<StageSize>
{
protected:
    void SetUp() override
    {
        // The production's files under the script of this test.
        UseOwnData();
        for (const auto& file : std::filesystem::directory_iterator(SOURCE_DIR "/Data"))
            if (file.path().filename() != "script.txt")
                std::filesystem::create_symlink(file.path(), PathOf(file.path().filename()));
        AddFile("script.txt", allEffectsShow::Script());
        platform::AnswerStartForm([](platform::StartForm& form) {
            form.Check(1002, false); // in a window
            form.Check(1007, false); // no music
            form.Click(GetParam().button);
            return 1000; // "Go"
        });
        platform::SetFrameObserver(FrameEnds, this);
    }
    void TearDown() override { platform::AnswerStartForm(nullptr); }

    void Listen()
    {
        glEnable(GL_DEBUG_OUTPUT);
        glEnable(GL_DEBUG_OUTPUT_SYNCHRONOUS);
        glDebugMessageCallback(Complain, this);
    }
    static void GLAPIENTRY Complain(GLenum, GLenum type, GLuint, GLenum, GLsizei, const GLchar* text,
                                    const void* user)
    {
        ShowsOnADriver* const self = const_cast<ShowsOnADriver*>(static_cast<const ShowsOnADriver*>(user));
        if (type == GL_DEBUG_TYPE_ERROR)
            self->complaints.push_back({self->frames, FrameTimer::GetTime(), text});
    }
    static void FrameEnds(void* fixture)
    {
        ShowsOnADriver* const self = static_cast<ShowsOnADriver*>(fixture);
        if (self->frames++ == 0) {
            EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError()) << "up to the first picture";
            self->Listen();
            RenderTarget::Begin(); // which has a context of its own
            self->Listen();
            RenderTarget::End();
            GLint viewport[4];
            glGetIntegerv(GL_VIEWPORT, viewport);
            EXPECT_EQ(GetParam().width, viewport[2]);
        }
        platform::StepClock(1000000000 / 2); // two frames to the second
    }
    static bool Says(const Complaint& complaint, const char* what)
    {
        return complaint.text.find(what) != std::string::npos;
    }

    const int effectCount = int(ProductionEffects().size());
    const int loadingFrames = effectCount + 1; // a loading picture ahead of each, one swap before them all
    int frames = 0;
    std::vector<Complaint> complaints;
};

TEST_P(ShowsOnADriver, AllEffectsPlayWithNoErrorsButThoseThatAreProvoked)
{
    ASSERT_TRUE(BuildSystem());
    ASSERT_TRUE(demoPlayer->LoadScript("script.txt"));
    demoPlayer->Run();
    EXPECT_EQ(uint32_t(PlayerEnded), demoPlayer->state);
    EXPECT_TRUE(boxes.empty());
    EXPECT_GE(frames, loadingFrames + 2 * (effectCount * allEffectsShow::secondsEach - 3));

    const float towersStart = float(allEffectsShow::StartOf("FX_Towers"));
    const float towersStop = towersStart + allEffectsShow::secondsEach;
    int loadingPops = 0, refusedQueries = 0, towerPops = 0;
    for (const Complaint& complaint : complaints) {
        if (complaint.frame < loadingFrames && Says(complaint, "GL_STACK_UNDERFLOW in glPopMatrix"))
            loadingPops++; // the loading screen pops once too often
        else if (complaint.frame < loadingFrames && Says(complaint, "GL_INVALID_ENUM in glGetProgram"))
            refusedQueries++; // the blur asks a program for what only shaders have
        else if (complaint.frame > loadingFrames && Says(complaint, "GL_STACK_UNDERFLOW in glPopMatrix") &&
                 complaint.seconds > towersStart - 0.1f && complaint.seconds < towersStop + 0.1f)
            towerPops++; // so do the towers
        else
            ADD_FAILURE() << "frame " << complaint.frame << ", second " << complaint.seconds << ": "
                          << complaint.text;
    }
    EXPECT_EQ(effectCount, loadingPops);
    int blurs = 0;
    for (const EffectRecord& row : ProductionEffects())
        blurs += row.files.shaders.empty() ? 0 : 1;
    EXPECT_EQ(blurs, refusedQueries) << "one for each effect that has a blur";
    EXPECT_GE(towerPops, 6);
    EXPECT_LE(towerPops, 7) << "one in each frame of theirs";
}

INSTANTIATE_TEST_SUITE_P(AtEverySize, ShowsOnADriver,
                         testing::Values(StageSize{1019, 640, 480}, StageSize{1020, 800, 600},
                                         StageSize{1021, 1024, 768}),
                         [](const testing::TestParamInfo<StageSize>& size) {
                             return "W" + std::to_string(size.param.width);
                         });
