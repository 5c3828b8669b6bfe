// The lantern as it is seen: the show is played unseen, as for a capture, and the pictures are looked at.
#include "platform/Paths.h"
#include "tools/capture/FrameSink.h"
#include "tools/capture/Progress.h"
#include "tools/capture/ShowPlayer.h"

#include <gtest/gtest.h>

#include <map>

// The sum of all red, green and blue of each frame.
class Brightness : public capture::FrameSink
{
public:
    bool Begin(int, int, const capture::FrameSelection&) override { return true; }
    bool Take(std::unique_ptr<capture::Frame> frame) override
    {
        for (size_t i = 0; i < frame->pixels.size(); i++)
            if (i % 4 != 3)
                of[frame->number] += frame->pixels[i];
        return true;
    }
    bool Finish(bool) override { return true; }

    std::map<int64_t, long> of; // by the frame's number
};

TEST(FX_Lantern, FlaresUpOnItsMessageAndDimsAgain)
{
    platform::SetDataDirectory(DATA);
    capture::ShowPlayer show;
    ASSERT_TRUE(show.Load(
        "[EFFECT] EffectName=FX_Lantern; StartTime=0; StopTime=4000; LayerID=1;"
        "[MESSAGE] MessageText=light; ActivationTime=1000; TargetEffect=FX_Lantern; Parameter=2.00;"))
        << show.error;
    capture::FrameRate rate; // 60 frames a second
    const capture::FrameSelection selection = capture::FrameSelection::Of(rate, 900000, 2100000);
    Brightness brightness;
    capture::Progress silent(nullptr);
    ASSERT_TRUE(show.Open(160, 120)) << show.error;
    ASSERT_EQ(capture::PlayedToTheEnd, show.Play(selection, brightness, silent)) << show.error;

    ASSERT_GT(brightness.of[59], 0) << "it is never lost in the dark";
    EXPECT_GT(brightness.of[62], 5 * brightness.of[59]) << "the message leaves at 1.0 s";
    EXPECT_LT(brightness.of[120], brightness.of[62] / 3) << "e to the power of -2 a second later";
}
