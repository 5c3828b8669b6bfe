// SPDX-License-Identifier: MIT
#include "tools/edit/Transport.h"

#include "platform/SteppedClock.h"
#include "tools/edit/Moments.h"

#include <gtest/gtest.h>

using namespace edit;

// Without music the transport runs on the process's clock, which stands until it is told to move.
class TransportTest : public testing::Test
{
protected:
    TransportTest() : transport(&state, &music)
    {
        platform::UseSteppedClock();
        state.rate = {60, 1};
        transport.SetEnd(10);
    }
    ~TransportTest() override { platform::UseRealClock(); }

    void Pass(double seconds)
    {
        platform::StepClock(int64_t(seconds * 1e9));
        transport.Update();
    }

    EditorState state;
    MusicTransport music;
    Transport transport;
};

TEST_F(TransportTest, PlaysFromThePlayHead)
{
    transport.GoTo(2);
    transport.Play();
    EXPECT_TRUE(state.playing);
    Pass(1.5);
    EXPECT_NEAR(3.5, state.playhead, 1e-6);
    transport.Stop();
    EXPECT_FALSE(state.playing);
    Pass(1);
    EXPECT_NEAR(3.5, state.playhead, 1e-6);
}

TEST_F(TransportTest, TellsWhetherThePlayHeadHasMoved)
{
    EXPECT_FALSE(transport.Update());
    transport.Play();
    transport.Update();
    EXPECT_FALSE(transport.Update());
    platform::StepClock(1000000);
    EXPECT_TRUE(transport.Update());
}

TEST_F(TransportTest, PlaysAtHalfAndQuarterSpeed)
{
    transport.SetSpeed(0.5);
    transport.Play();
    Pass(2);
    EXPECT_NEAR(1, state.playhead, 1e-6);
    transport.SetSpeed(0.25);
    Pass(2);
    EXPECT_NEAR(1.5, state.playhead, 1e-6);
    transport.SetSpeed(1);
    Pass(2);
    EXPECT_NEAR(3.5, state.playhead, 1e-6);
}

TEST_F(TransportTest, StopsAtTheLastFrameOfTheShow)
{
    transport.GoTo(9.5);
    transport.Play();
    Pass(0.4);
    EXPECT_TRUE(state.playing);
    Pass(0.4);
    EXPECT_FALSE(state.playing);
    EXPECT_EQ(599, FrameAt(state.playhead, state.rate));
    EXPECT_FALSE(music.IsPlaying());
}

TEST_F(TransportTest, PlaysFromTheStartWhenItStandsAtTheEnd)
{
    transport.GoTo(transport.LastMoment());
    transport.Play();
    EXPECT_EQ(0, state.playhead);
    Pass(0.25);
    EXPECT_NEAR(0.25, state.playhead, 1e-6);
}

TEST_F(TransportTest, GoesNoFartherThanTheLastFrame)
{
    transport.GoTo(99);
    EXPECT_DOUBLE_EQ(599 / 60.0, state.playhead);
    transport.GoTo(-1);
    EXPECT_EQ(0, state.playhead);
    transport.GoTo(8);
    transport.SetEnd(5.01); // 301 frames
    EXPECT_DOUBLE_EQ(5, state.playhead);
    transport.SetEnd(0);
    EXPECT_EQ(0, state.playhead);
    EXPECT_EQ(0, transport.LastMoment());
}

TEST_F(TransportTest, StepsFromFrameToFrameAndStopsForIt)
{
    transport.GoTo(1.003);
    transport.StepFrames(1);
    EXPECT_DOUBLE_EQ(61 / 60.0, state.playhead);
    transport.StepFrames(-2);
    EXPECT_DOUBLE_EQ(59 / 60.0, state.playhead);
    transport.StepFrames(-100);
    EXPECT_EQ(0, state.playhead);
    transport.Play();
    transport.StepFrames(1);
    EXPECT_FALSE(state.playing);
    EXPECT_DOUBLE_EQ(1 / 60.0, state.playhead);
}

TEST_F(TransportTest, JumpsWhileItPlays)
{
    transport.Play();
    Pass(1);
    transport.GoTo(6);
    EXPECT_TRUE(state.playing);
    Pass(0.5);
    EXPECT_NEAR(6.5, state.playhead, 1e-6);
}

TEST_F(TransportTest, WaitsWhileThePlayHeadIsDraggedAndPlaysOnFromThere)
{
    transport.Play();
    Pass(1);
    transport.Scrub(4);
    EXPECT_FALSE(music.IsPlaying());
    Pass(1);
    EXPECT_EQ(4, state.playhead);
    transport.Scrub(3);
    EXPECT_TRUE(state.playing);
    transport.EndScrub();
    Pass(0.5);
    EXPECT_NEAR(3.5, state.playhead, 1e-6);
}

TEST_F(TransportTest, MayBeDraggedWhileItStands)
{
    transport.Scrub(4);
    transport.EndScrub();
    Pass(1);
    EXPECT_EQ(4, state.playhead);
    EXPECT_FALSE(state.playing);
    EXPECT_FALSE(music.IsPlaying());
}

TEST_F(TransportTest, StopsWhereItWasDraggedTo)
{
    transport.Play();
    Pass(1);
    transport.Scrub(7);
    transport.Stop();
    EXPECT_EQ(7, state.playhead);
    transport.EndScrub();
    EXPECT_FALSE(music.IsPlaying());
}

TEST_F(TransportTest, PlaysALoopAgainAndAgain)
{
    ASSERT_TRUE(transport.SetLoop(2, 3));
    transport.SetLooping(true);
    transport.GoTo(2.5);
    transport.Play();
    Pass(0.4);
    EXPECT_NEAR(2.9, state.playhead, 1e-6);
    Pass(0.2);
    EXPECT_EQ(2, state.playhead);
    Pass(0.3);
    EXPECT_NEAR(2.3, state.playhead, 1e-6);
    transport.SetLooping(false);
    Pass(1);
    EXPECT_NEAR(3.3, state.playhead, 1e-6);
}

TEST_F(TransportTest, BeginsALoopAtItsStartFromOutside)
{
    transport.SetLoop(2, 3);
    transport.SetLooping(true);
    transport.GoTo(7);
    transport.Play();
    EXPECT_EQ(2, state.playhead);
}

TEST_F(TransportTest, PlaysOnFromBehindALoop)
{
    transport.SetLoop(2, 3);
    transport.SetLooping(true);
    transport.Play();
    transport.GoTo(5);
    Pass(1);
    EXPECT_NEAR(6, state.playhead, 1e-6);
}

TEST_F(TransportTest, RefusesALoopThatIsABuzz)
{
    EXPECT_TRUE(transport.SetLoop(2, 3));
    EXPECT_FALSE(transport.SetLoop(4, 4.01));
    EXPECT_FALSE(transport.SetLoop(5, 4));
    EXPECT_FALSE(transport.SetLoop(11, 12)); // behind the end
    EXPECT_EQ(2, state.loopStart);
    EXPECT_EQ(3, state.loopEnd);
    EXPECT_TRUE(transport.SetLoop(9, 12));
    EXPECT_EQ(10, state.loopEnd);
}

TEST_F(TransportTest, HasNoLoopWithoutARegion)
{
    transport.SetLooping(true);
    EXPECT_FALSE(state.looping);
}
