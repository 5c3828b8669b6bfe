// SPDX-License-Identifier: MIT
#include "tools/edit/ParkingPlan.h"

#include <gtest/gtest.h>

using namespace edit;

typedef std::vector<int64_t> Frames;

static std::string Text(const ParkingStep& step)
{
    switch (step.kind) {
    case ParkingStep::StartNew:
        return "start";
    case ParkingStep::Move:
        return "move " + std::to_string(step.process) + " to " + std::to_string(step.place);
    case ParkingStep::End:
        return "end " + std::to_string(step.process);
    default:
        return "rest";
    }
}

TEST(ParkingPlan, PlacesDivideTheShowEvenly)
{
    EXPECT_EQ((Frames{250, 500, 750}), ParkingPlaces(1000, 3));
    EXPECT_EQ(Frames{}, ParkingPlaces(1000, 0));
    EXPECT_EQ(Frames{}, ParkingPlaces(0, 3));
    EXPECT_EQ((Frames{1, 2}), ParkingPlaces(3, 8));
}

TEST(ParkingPlan, FillsThePlaceNearestToTheWantedFrameAndThenTheStart)
{
    const Frames places = {250, 500, 750};
    EXPECT_EQ("start", Text(NextParkingStep({}, places, 600, true)));
    EXPECT_EQ("move 0 to 500", Text(NextParkingStep({-1}, places, 600, true)));
    EXPECT_EQ("start", Text(NextParkingStep({500}, places, 600, true)));
    EXPECT_EQ("move 1 to 750", Text(NextParkingStep({500, -1}, places, 700, true)));
    EXPECT_EQ("move 2 to 250", Text(NextParkingStep({500, 750, -1}, places, 700, true)));
    EXPECT_EQ("start", Text(NextParkingStep({500, 750, 250}, places, 700, true)));
    EXPECT_EQ("rest", Text(NextParkingStep({500, 750, 250, -1}, places, 700, true)));
    EXPECT_EQ("rest", Text(NextParkingStep({500, 750, 250}, places, 700, false)));
}

TEST(ParkingPlan, OneThatIsLeftOverGoesOnBeforeAFreshOneDoes)
{
    EXPECT_EQ("move 0 to 750", Text(NextParkingStep({400, -1, 500}, {250, 500, 750}, 700, true)));
    // It can't go back.
    EXPECT_EQ("move 1 to 250", Text(NextParkingStep({900, -1, 500, 750}, {250, 500, 750}, 700, true)));
}

TEST(ParkingPlan, WhereThereIsNoRoomOneThatIsOfNoUseEnds)
{
    EXPECT_EQ("end 0", Text(NextParkingStep({900, 500, 750}, {250, 500, 750}, 700, false)));
    EXPECT_EQ("start", Text(NextParkingStep({900, 500, 750}, {250, 500, 750}, 700, true)));
}

TEST(ParkingPlan, AProcessMovesToThePlaceThatItKeepsUnlessItWaitsJustAheadOfTheWantedFrame)
{
    EXPECT_EQ("move 1 to 500", Text(NextParkingStep({-1, 400}, {500}, 900, true)));
    EXPECT_EQ("move 1 to 500", Text(NextParkingStep({-1, 400}, {500}, 300, true)));
    EXPECT_EQ("rest", Text(NextParkingStep({-1, 400}, {500}, 450, true)));
}
