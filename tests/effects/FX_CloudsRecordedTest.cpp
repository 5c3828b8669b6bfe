// SPDX-License-Identifier: MIT
#include "effects/FX_Clouds.h"

#include "tests/support/recorder/EffectFixture.h"
#include "tests/support/recorder/GLQuads.h"

#include <cmath>

static const double pi = 3.1415927;

class FX_CloudsRecorded : public EffectFixture
{
protected:
    FX_CloudsRecorded() { Prepare(&flight); }
    void Step(double seconds)
    {
        PassTime(seconds);
        flight.AddLocalTime(FrameTimer::GetDelta());
        flight.Update();
    }
    static std::vector<gl::Draw> Clouds() { return gl::QuadsWithTexture("cloud_5.png"); }
    // A cloud faces the viewer with 15 to each side.
    static testing::AssertionResult Stands(const gl::Draw& quad, const Cloud& cloud, const gl::Matrix& camera,
                                           double tolerance = 1e-3)
    {
        const gl::Point p = camera * gl::Point(cloud.x, cloud.y, cloud.z);
        return gl::IsQuadIn(quad, gl::Translation(p.x, p.y, p.z),
                            {{0, 1, -15, -15}, {1, 1, 15, -15}, {1, 0, 15, 15}, {0, 0, -15, 15}}, tolerance);
    }
    static gl::Draw Sky() { return gl::DrawsWithTexture("himmelarsch.jpg").at(0); }

    FX_Clouds flight;
};

// The private sequence, written down once more.
static int sequence;
static int NextOfSequence(int n)
{
    sequence = int(unsigned(sequence) * 22695477u);
    return (sequence >> 16) % n;
}

TEST_F(FX_CloudsRecorded, DeclaresItsMessagesInOrderAndAttaches)
{
    EXPECT_EQ((std::vector<std::string>{"hand: NA", "handFrakt: NA", "fadeOut: NA", "blend: NA"}),
              DeclaredMessages(&flight));
    EXPECT_TRUE(flight.IsInitialised());
}

TEST_F(FX_CloudsRecorded, AsksForItsPicturesInOrderWithoutANumberTen)
{
    std::vector<std::string> expected = {"cloud_5.png 1 1 1", "cloud_6.png 1 1 1", "himmelarsch.jpg 1 1 1",
                                         "himmelarschling.jpg 1 1 1"};
    for (const char* number : {"01", "02", "03", "04", "05", "06", "07", "08", "09", "11", "12", "13"})
        expected.push_back(std::string("greetings_") + number + ".png 1 1 1");
    EXPECT_EQ(expected, TextureRequests());
    ASSERT_EQ(1u, gl::Programs().size());
    EXPECT_EQ((std::vector<std::string>{"sampler0", "sampler1", "delta"}), gl::Programs()[0].uniformNames);
}

TEST_F(FX_CloudsRecorded, SevenHundredCloudsStandWhereTheSequencePutsThem)
{
    sequence = 310312;
    for (int i = 0; i < 700; i++) {
        const float x = NextOfSequence(2000) / 1000.0f * 20;
        const float y = (NextOfSequence(2000) / 1000.0f - 1) * 6;
        ASSERT_EQ(x, flight.clouds[i].x) << i;
        ASSERT_EQ(y, flight.clouds[i].y) << i;
        ASSERT_EQ(-2.0f * i, flight.clouds[i].z);
        ASSERT_EQ(0.0f, flight.clouds[i].fade);
        ASSERT_LE(std::fabs(x), 40.0f);
        ASSERT_GE(y, -18.0f);
        ASSERT_LE(y, 6.0f);
    }
}

TEST_F(FX_CloudsRecorded, TheFirstTenCloudsAndTheLastOneAsNumbers)
{
    // Worked out apart from this program: state * 22695477 modulo 2^32, its upper half % 2000, with its sign.
    const double places[10][2] = {{-5.78, -16.272}, {4.04, -13.722}, {-7.70, -14.484}, {-36.82, -8.700},
                                  {6.72, -6.288},   {-28.96, 5.454}, {-24.44, -7.770}, {-8.26, -4.110},
                                  {-8.30, -17.676}, {14.82, -12.036}};
    for (int i = 0; i < 10; i++) {
        EXPECT_NEAR(places[i][0], flight.clouds[i].x, 1e-5) << i;
        EXPECT_NEAR(places[i][1], flight.clouds[i].y, 1e-5) << i;
    }
    EXPECT_NEAR(-7.92, flight.clouds[699].x, 1e-5);
    EXPECT_NEAR(1.974, flight.clouds[699].y, 1e-5);
}

TEST_F(FX_CloudsRecorded, TheFirstSixRollsAsNumbers)
{
    const float rolls[6][2] = {{-38, -44.5f}, {-21, -27.5f}, {2, 0.5f},
                               {-15, -17.5f}, {0, -0.5f},    {-15, -17.5f}};
    for (const auto& roll : rolls) {
        Send(&flight, "hand");
        EXPECT_EQ(roll[0], flight.rollFrom);
        EXPECT_EQ(roll[1], flight.rollTo);
    }
}

TEST_F(FX_CloudsRecorded, TheShadersAreTheGlowMasksAndTheMix)
{
    ASSERT_EQ(2u, gl::Shaders().size());
    EXPECT_EQ(0u, gl::Shaders()[0].source.find("// glowmask.vp"));
    EXPECT_EQ(0u, gl::Shaders()[1].source.find("// mix.fp"));
}

TEST_F(FX_CloudsRecorded, TwelveGreetingsInPairs)
{
    ASSERT_EQ(12u, flight.greetingQuads.size());
    for (int i = 0; i < 12; i += 2) {
        const GreetingQuad &first = flight.greetingQuads[i], &second = flight.greetingQuads[i + 1];
        EXPECT_EQ(0.0f, first.rotation);
        EXPECT_FLOAT_EQ(1.3f, first.halfSize);
        EXPECT_EQ(0.0f, first.position.x);
        EXPECT_TRUE(first.isLarge);
        EXPECT_EQ(-11.729964f, second.rotation);
        EXPECT_FLOAT_EQ(0.338f, second.halfSize);
        EXPECT_FLOAT_EQ(1.3f * 0.386699f, second.position.x);
        EXPECT_FLOAT_EQ(1.3f * 0.787674f, second.position.y);
        EXPECT_EQ(0.0f, second.position.z);
        EXPECT_FALSE(second.isLarge);
    }
}

TEST_F(FX_CloudsRecorded, StartValues)
{
    EXPECT_EQ(0.0f, flight.cameraTravel);
    EXPECT_EQ(1.0f, flight.skyFade);
    EXPECT_EQ(-2, flight.greetingIndex);
    EXPECT_EQ(2, flight.handState);
    EXPECT_EQ(0.0f, flight.handAlpha);
    EXPECT_EQ(0.0f, flight.blendValue);
    EXPECT_EQ(0.0f, flight.shake);
    EXPECT_EQ(3.0f, flight.eye.z);
}

TEST_F(FX_CloudsRecorded, InitUpdatesTwiceWithWhateverDeltaThereIs)
{
    PassTime(0.25);
    Init(&flight);
    EXPECT_EQ(2 * 0.25f * 30, flight.cameraTravel);
    EXPECT_FLOAT_EQ(0.7f * 0.7f, flight.skyFade);
}

TEST_F(FX_CloudsRecorded, TheSkyFillsTheBandThroughTheMixShader)
{
    Frame(&flight);
    const gl::Draw sky = Sky();
    EXPECT_TRUE(gl::IsQuad(sky, {{0, 0, 0, 1}, {1, 0, 1, 1}, {1, 1, 1, 0}, {0, 1, 0, 0}}));
    EXPECT_TRUE(gl::HasViewport(sky, 0, 60, 800, 479));
    EXPECT_TRUE(gl::HasColour(sky, {1, 1, 1, 0}));
    EXPECT_TRUE(gl::IsTextured(sky, "himmelarschling.jpg", 1));
    EXPECT_TRUE(gl::UsesProgram(sky, gl::Programs()[0].id));
    EXPECT_TRUE(gl::HasUniform(sky, "sampler0", {0}));
    EXPECT_TRUE(gl::HasUniform(sky, "sampler1", {1}));
    EXPECT_TRUE(gl::HasUniform(sky, "delta", {0}));
    EXPECT_TRUE(gl::Blends(sky, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
    EXPECT_TRUE(gl::WritesDepth(sky, false));
    EXPECT_TRUE(gl::IsMatrix(sky.projection, gl::Ortho(0, 1, 0, 1)));
    EXPECT_TRUE(gl::IsMatrix(sky.modelview, gl::Translation(0, 0, -1)));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FX_CloudsRecorded, TheSkyRisesAtItsRate)
{
    Step(0.25);
    EXPECT_FLOAT_EQ(0.7f, flight.skyFade);
    Frame(&flight);
    EXPECT_TRUE(gl::HasColour(Sky(), {1, 1, 1, 0.3}, 1e-6));
    Init(&flight);
    flight.skyFade = 1;
    for (int i = 0; i < 1024; i++)
        Step(1.0 / 1024);
    EXPECT_NEAR(std::exp(-1.2), flight.skyFade, 0.001);
}

TEST_F(FX_CloudsRecorded, CloudsComeFromFarToNearAllButNumberZero)
{
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_MODELVIEW);
    Frame(&flight);
    const std::vector<gl::Draw> clouds = Clouds();
    ASSERT_EQ(696u, clouds.size()) << "699 down to 4: nearer than 6 they are cut off, 6 itself too";
    const gl::Matrix camera = gl::LookAt({0, 0, 10}, {0, 0, -1000}, {0, 1, 0});
    for (int n = 0; n < 696; n += 5) {
        const Cloud& cloud = flight.clouds[699 - n];
        EXPECT_TRUE(Stands(clouds[n], cloud, camera));
        EXPECT_TRUE(gl::HasColour(clouds[n], {1, 1, 1, 1}));
        EXPECT_TRUE(gl::Blends(clouds[n], GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
        EXPECT_TRUE(gl::IsTextured(clouds[n], "cloud_6.png", 1));
        EXPECT_TRUE(gl::HasUniform(clouds[n], "delta", {0}));
        EXPECT_TRUE(gl::IsMatrix(clouds[n].projection, gl::Translation(1, 2, 3))) << "the one that stands";
    }
}

TEST_F(FX_CloudsRecorded, CloudsThatWerePassedAreGoneAndTheLastOneTooInTheEnd)
{
    flight.cameraTravel = 100;
    Frame(&flight);
    EXPECT_EQ(646u, Clouds().size()) << "699 down to 54";
    flight.cameraTravel = 1391.99f; // the last is at 1398, and 6 ahead it goes
    Frame(&flight);
    EXPECT_EQ(1u, Clouds().size());
    flight.cameraTravel = 1392;
    Frame(&flight);
    EXPECT_TRUE(Clouds().empty());
    EXPECT_NEAR(46.4, 1392 / 30.0, 0.01) << "seconds";
}

TEST_F(FX_CloudsRecorded, TheFlightIsStraightAndThirtyASecond)
{
    Step(0.5);
    EXPECT_EQ(15.0f, flight.cameraTravel);
    Frame(&flight);
    const Cloud& cloud = flight.clouds[699];
    const gl::Matrix camera = gl::LookAt({0, 0, -5}, {0, 0, -1015}, {0, 1, 0});
    EXPECT_TRUE(Stands(Clouds().at(0), cloud, camera, 1e-3));
}

TEST_F(FX_CloudsRecorded, NearCloudsThinOutFarOnesComeBack)
{
    for (Cloud& cloud : flight.clouds)
        cloud.fade = 0.5f;
    Step(0.125); // travelled 3.75: clouds down to number 5 are ahead
    EXPECT_EQ(0.5f, flight.clouds[4].fade) << "8 is not beyond 9.75";
    EXPECT_EQ(0.5f + 0.125f * 1.7f, flight.clouds[5].fade);
    EXPECT_EQ(0.5f + 0.125f * 1.7f, flight.clouds[11].fade) << "22 - 3.75 is below 20";
    EXPECT_FLOAT_EQ(0.5f - 0.125f * 1.7f, flight.clouds[12].fade);
    EXPECT_EQ(0.5f, flight.clouds[0].fade);
    Step(0.25);
    EXPECT_EQ(0.0f, flight.clouds[300].fade) << "not below 0";
}

TEST_F(FX_CloudsRecorded, AThinCloudIsDrawnThin)
{
    flight.clouds[699].fade = 0.25f;
    flight.clouds[698].fade = 1.5f;
    Frame(&flight);
    EXPECT_TRUE(gl::HasColour(Clouds().at(0), {1, 1, 1, 0.75}));
    EXPECT_TRUE(gl::HasColour(Clouds().at(1), {1, 1, 1, -0.5})) << "no upper clamp";
}

TEST_F(FX_CloudsRecorded, FadeOutTogglesTheFadeOfTheWholeScene)
{
    flight.skyFade = 0;
    Send(&flight, "fadeOut", {1});
    EXPECT_EQ(0.1f, flight.skyFade) << "the sky jumps to alpha 0.9";
    Step(0.125);
    EXPECT_FLOAT_EQ(0.1f + 0.1f * 0.125f * 3.2f, flight.skyFade);
    EXPECT_FLOAT_EQ(0.125f * 1.4f, flight.clouds[300].fade);
    EXPECT_FLOAT_EQ(0.125f * 1.7f, flight.clouds[8].fade) << "near ones thin out as ever";
    for (int i = 0; i < 64; i++)
        Step(0.125);
    EXPECT_GT(flight.clouds[500].fade, 5.0f) << "no upper clamp";
    Send(&flight, "fadeOut");
    EXPECT_EQ(1.0f, flight.skyFade) << "and to alpha 0, from where it rises";
    const float before = flight.clouds[650].fade;
    Step(0.125);
    EXPECT_FLOAT_EQ(0.85f, flight.skyFade);
    EXPECT_FLOAT_EQ(before - 0.125f * 1.7f, flight.clouds[650].fade);
}

TEST_F(FX_CloudsRecorded, BlendCrossFadesWithinHalfASecondOnceAndForAll)
{
    Step(1);
    EXPECT_EQ(0.0f, flight.blendValue);
    Send(&flight, "blend", {1});
    Step(0.25);
    EXPECT_EQ(0.5f, flight.blendValue);
    Frame(&flight);
    EXPECT_TRUE(gl::HasUniform(Sky(), "delta", {0.5}));
    EXPECT_TRUE(gl::HasUniform(Clouds().at(0), "delta", {0.5}));
    Send(&flight, "blend");
    Step(0.5);
    EXPECT_EQ(1.0f, flight.blendValue);
    Step(0.5);
    EXPECT_EQ(1.0f, flight.blendValue);
}

TEST_F(FX_CloudsRecorded, HandsShowThePairsInTurnAndThenNothing)
{
    const int expected[9] = {0, 2, 4, 6, 8, 10, -2, 0, 2};
    for (const int index : expected) {
        Send(&flight, "hand", {1});
        EXPECT_EQ(index, flight.greetingIndex);
        EXPECT_EQ(0, flight.handState);
        EXPECT_EQ(0.0f, flight.handAlpha);
        EXPECT_EQ(1.0f, flight.shake) << "jolt and roll come whatever is on show";
    }
}

TEST_F(FX_CloudsRecorded, TheFirstSixRollsComeFromTheSequenceBehindTheClouds)
{
    sequence = 310312;
    for (int i = 0; i < 1400; i++)
        NextOfSequence(2000);
    for (int hand = 0; hand < 6; hand++) {
        Send(&flight, "hand");
        for (int i = 0; i < 3; i++)
            NextOfSequence(2000);
        const float from = NextOfSequence(30) - 15.0f;
        const float to = NextOfSequence(5) + from - 2.5f;
        EXPECT_EQ(from, flight.rollFrom) << hand;
        EXPECT_EQ(to, flight.rollTo) << hand;
    }
}

TEST_F(FX_CloudsRecorded, TheRollGoesOnPastItsEnd)
{
    Send(&flight, "hand");
    flight.rollFrom = -10;
    flight.rollTo = 5;
    Step(0.5);
    EXPECT_FLOAT_EQ(-2.5f, flight.roll);
    Step(1.0);
    EXPECT_FLOAT_EQ(12.5f, flight.roll);
}

TEST_F(FX_CloudsRecorded, AHandJoltsTheCamera)
{
    Send(&flight, "hand");
    flight.SetLocalTime(2);
    Frame(&flight);
    const Cloud& cloud = flight.clouds[699];
    gl::Matrix camera = gl::LookAt({0, 3 * std::sin(pi * 5), 10}, {0, 0, -1000}, {std::sin(pi + 2), 1, 0});
    EXPECT_TRUE(Stands(Clouds().at(0), cloud, camera, 2e-2));
    flight.shake = 0.3f;
    flight.cameraTravel = 0;
    Frame(&flight);
    camera =
        gl::LookAt({0, 3 * std::sin(0.3 * pi * 5), 10}, {0, 0, -1000}, {std::sin(0.3 * pi + 2) * 0.3, 1, 0});
    EXPECT_TRUE(Stands(Clouds().at(0), cloud, camera, 2e-3));
}

TEST_F(FX_CloudsRecorded, TheJoltDiesAtItsRate)
{
    Send(&flight, "hand");
    Step(0.125);
    EXPECT_FLOAT_EQ(1 - 0.125f * 6.1f, flight.shake);
    for (int i = 0; i < 512; i++)
        Step(1.0 / 1024);
    EXPECT_LT(flight.shake, 0.05f) << "within half a second";
}

TEST_F(FX_CloudsRecorded, AGreetingRisesInAQuarterSecondAndComesNearer)
{
    Send(&flight, "hand");
    Step(0.125);
    EXPECT_EQ(0.5f, flight.handAlpha);
    EXPECT_EQ(0, flight.handState);
    Step(0.125);
    EXPECT_EQ(1.0f, flight.handAlpha);
    EXPECT_NEAR(3 - 0.25 * 0.4, flight.eye.z, 1e-6);
    Step(0.125);
    EXPECT_EQ(1.5f, flight.handAlpha) << "GL limits it";
}

TEST_F(FX_CloudsRecorded, APairIsDrawnOverEverythingTheCardTwiceAsBright)
{
    Send(&flight, "hand");
    Send(&flight, "hand"); // pair 2
    Step(0.125);
    Frame(&flight);
    const gl::Draw arm = gl::DrawsWithTexture("greetings_03.png").at(0);
    const gl::Draw card = gl::DrawsWithTexture("greetings_04.png").at(0);
    const gl::Matrix view = gl::LookAt({flight.eye.x, flight.eye.y, flight.eye.z},
                                       {flight.target.x, flight.target.y, flight.target.z}, {0, 1, 0}) *
                            gl::RotationDegrees(flight.roll, 0, 0, 1);
    EXPECT_TRUE(gl::IsMatrix(arm.modelview, view, 1e-5));
    EXPECT_TRUE(gl::IsMatrix(card.modelview,
                             view * gl::Translation(1.3 * 0.386699, 1.3 * 0.787674, 0) *
                                 gl::RotationDegrees(-11.729964, 0, 0, 1),
                             1e-5));
    EXPECT_TRUE(gl::HasColour(arm, {0.5, 0.5, 0.5, 0.5}));
    EXPECT_TRUE(gl::HasColour(card, {1, 1, 1, 1}));
    const double a = 1.3, b = 0.338;
    EXPECT_TRUE(gl::IsQuad(arm, {{0, 0, -a, a}, {1, 0, a, a}, {1, 1, a, -a}, {0, 1, -a, -a}}, 1e-6));
    EXPECT_TRUE(gl::IsQuad(card, {{0, 0, -b, b}, {1, 0, b, b}, {1, 1, b, -b}, {0, 1, -b, -b}}, 1e-6));
    for (const gl::Draw& draw : {arm, card}) {
        EXPECT_TRUE(gl::Blends(draw, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
        EXPECT_TRUE(gl::TestsDepth(draw, false));
        EXPECT_TRUE(gl::WritesDepth(draw, false));
        EXPECT_TRUE(gl::UsesNoProgram(draw));
        EXPECT_TRUE(gl::IsUntextured(draw, 1));
    }
    EXPECT_EQ(695u, Clouds().size());
    EXPECT_EQ(1u + 1u + 2u, gl::Draws().size()) << "all clouds in one";
    EXPECT_EQ(arm.event, gl::Draws()[gl::Draws().size() - 2].event) << "the arm first, the card last";
}

TEST_F(FX_CloudsRecorded, AtMinusTwoNoGreetingIsDrawn)
{
    Frame(&flight);
    EXPECT_EQ(696u, Clouds().size());
    EXPECT_EQ(1u + 1u, gl::Draws().size());
}

TEST_F(FX_CloudsRecorded, HandFraktDivesTowardsTheCardAndFreezes)
{
    Send(&flight, "hand");
    flight.rollFrom = flight.rollTo = 0;
    Send(&flight, "handFrakt", {1});
    EXPECT_EQ(1, flight.handState);
    EXPECT_EQ(1.0f, flight.handAlpha);
    EXPECT_EQ(0.0f, flight.cameraBlend);
    EXPECT_EQ(3.0f, flight.eye.z);
    EXPECT_EQ(0.0f, flight.target.x);
    const double a = -11.73 * 0.017453292;
    const double tx = std::cos(a) * 0.302709 - std::sin(a) * 1.22398;
    const double ty = std::sin(a) * 0.302709 + std::cos(a) * 1.22398;
    Step(0.125); // 0.625 of the way
    EXPECT_NEAR(0.625 * tx, flight.target.x, 1e-5);
    EXPECT_NEAR(0.625 * ty, flight.target.y, 1e-5);
    EXPECT_NEAR(0.625 * (tx - 0.2), flight.eye.x, 1e-5);
    EXPECT_NEAR(0.625 * (ty - 0.2), flight.eye.y, 1e-5);
    EXPECT_NEAR(0.625 * 0.6 + 0.375 * 3, flight.eye.z, 1e-5);
    Step(0.125); // 1.25: past its end it stays where it was
    EXPECT_NEAR(0.625 * tx, flight.target.x, 1e-5);
    EXPECT_NEAR(0.625 * (tx - 0.2), flight.eye.x, 1e-5);
    EXPECT_NEAR(0.625 * 0.6 + 0.375 * 3, flight.eye.z, 1e-5);
    EXPECT_EQ(1, flight.handState);
    Step(0.0625); // 1.5625
    EXPECT_EQ(2, flight.handState) << "0.3 s after the message";
    const float alpha = flight.handAlpha;
    Step(0.5);
    EXPECT_FLOAT_EQ(alpha - 0.15f, flight.handAlpha);
}

TEST_F(FX_CloudsRecorded, TheGreetingCameraIsTurnedByTheRoll)
{
    Send(&flight, "hand");
    flight.rollFrom = 30;
    flight.rollTo = 30;
    Send(&flight, "handFrakt");
    Step(0.125);
    const double a = -11.73 * 0.017453292, r = 30 * 0.017453292;
    const double x = 0.625 * (std::cos(a) * 0.302709 - std::sin(a) * 1.22398);
    const double y = 0.625 * (std::sin(a) * 0.302709 + std::cos(a) * 1.22398);
    EXPECT_NEAR(std::cos(r) * x - std::sin(r) * y, flight.target.x, 1e-5);
    EXPECT_NEAR(std::sin(r) * x + std::cos(r) * y, flight.target.y, 1e-5);
}

TEST_F(FX_CloudsRecorded, AtTheEndOfTheMoveExactlyItIsStillMade)
{
    Send(&flight, "hand");
    Send(&flight, "handFrakt");
    flight.rollFrom = flight.rollTo = 0;
    flight.cameraBlend = 0.375f;
    Step(0.125); // exactly 1
    EXPECT_EQ(1.0f, flight.cameraBlend);
    EXPECT_NEAR(0.6, flight.eye.z, 1e-5);
    flight.cameraBlend = 0.875f;
    Step(0.125); // exactly 1.5
    EXPECT_EQ(2, flight.handState);
}

TEST_F(FX_CloudsRecorded, HandFraktWithoutAHandShowsTheLastPairAtOnceOrNone)
{
    Send(&flight, "handFrakt");
    EXPECT_EQ(-2, flight.greetingIndex);
    EXPECT_EQ(1.0f, flight.handAlpha);
    Send(&flight, "hand");
    for (int i = 0; i < 40; i++)
        Step(0.125);
    Send(&flight, "handFrakt");
    EXPECT_EQ(0, flight.greetingIndex);
    EXPECT_EQ(1.0f, flight.handAlpha);
}

TEST_F(FX_CloudsRecorded, WithoutAHandTheBrightnessSinksBelowZero)
{
    Step(0.5);
    Step(0.5);
    EXPECT_FLOAT_EQ(-0.3f, flight.handAlpha);
    Send(&flight, "hand");
    EXPECT_EQ(0.0f, flight.handAlpha);
}

TEST_F(FX_CloudsRecorded, AHandResetsTheEyeThatHadComeNearer)
{
    Send(&flight, "hand");
    Step(2);
    Send(&flight, "hand");
    Step(0.125);
    EXPECT_NEAR(3 - 0.125 * 0.4, flight.eye.z, 1e-5);
}

TEST_F(FX_CloudsRecorded, CloudNumberZeroTakesNoPartEvenWhereItWouldBeSeen)
{
    flight.cameraTravel = -10; // all of them are ahead from here
    for (Cloud& cloud : flight.clouds)
        cloud.fade = 0.5f;
    Frame(&flight);
    EXPECT_EQ(699u, Clouds().size());
    const Cloud& last = flight.clouds[1];
    const gl::Matrix camera = gl::LookAt({0, 0, 20}, {0, 0, -990}, {0, 1, 0});
    EXPECT_TRUE(Stands(Clouds().at(698), last, camera, 1e-3));
    EXPECT_TRUE(gl::WritesDepth(Clouds()[698])) << "the sky alone writes none";
    flight.cameraTravel = -13.75f;
    Step(0.125);
    EXPECT_EQ(0.5f, flight.clouds[0].fade);
    EXPECT_NE(0.5f, flight.clouds[1].fade);
    EXPECT_NE(0.5f, flight.clouds[699].fade);
}

TEST_F(FX_CloudsRecorded, ACloudThinsOutFromBelowTwentyAhead)
{
    for (Cloud& cloud : flight.clouds)
        cloud.fade = 0.5f;
    flight.cameraTravel = -3.75f;
    Step(0.125); // at 0: cloud 10 is 20 ahead, cloud 9 is 18
    EXPECT_LT(flight.clouds[10].fade, 0.5f);
    EXPECT_GT(flight.clouds[9].fade, 0.5f);
}

TEST_F(FX_CloudsRecorded, AHandTakesEverythingBackThatADiveDid)
{
    Send(&flight, "hand");
    flight.rollFrom = 4;
    flight.rollTo = 6;
    Step(1.5);
    Send(&flight, "handFrakt");
    Step(0.125);
    EXPECT_NE(0.0f, flight.target.x);
    Send(&flight, "hand");
    EXPECT_EQ(0.0f, flight.target.x);
    EXPECT_EQ(0.0f, flight.target.y);
    EXPECT_EQ(0.0f, flight.eye.x);
    EXPECT_EQ(3.0f, flight.eye.z);
    flight.rollFrom = 4;
    flight.rollTo = 6;
    Step(0.125);
    EXPECT_FLOAT_EQ(4.25f, flight.roll) << "the roll starts over";
    EXPECT_EQ(0.0f, flight.target.x) << "and the camera is at the start of a move that leads nowhere";
    EXPECT_EQ(0.0f, flight.target.y);
    EXPECT_NEAR(3 - 0.125 * 0.4, flight.eye.z, 1e-6);
    EXPECT_EQ(0, flight.handState);
    EXPECT_EQ(0.0f, flight.cameraBlend);
}

TEST_F(FX_CloudsRecorded, ASecondDiveStartsFromTheStart)
{
    Send(&flight, "hand");
    flight.rollFrom = flight.rollTo = 0;
    Send(&flight, "handFrakt");
    for (int i = 0; i < 8; i++)
        Step(0.0625);
    EXPECT_EQ(2, flight.handState);
    const float z = flight.eye.z;
    Send(&flight, "handFrakt");
    EXPECT_EQ(1, flight.handState);
    EXPECT_EQ(0.0f, flight.cameraBlend);
    EXPECT_EQ(0.0f, flight.target.x);
    EXPECT_EQ(0.0f, flight.target.y);
    EXPECT_EQ(3.0f, flight.eye.z) << "at once";
    EXPECT_NE(z, flight.eye.z);
}

TEST_F(FX_CloudsRecorded, AnInitStartsEverythingAnew)
{
    Send(&flight, "hand");
    const float firstRoll = flight.rollFrom;
    Send(&flight, "hand");
    Send(&flight, "handFrakt");
    Send(&flight, "blend");
    for (int i = 0; i < 20; i++)
        Step(0.125);
    Send(&flight, "hand");
    Step(0.125);
    Send(&flight, "handFrakt");
    Step(0.125);
    Send(&flight, "fadeOut");
    Step(0.125);
    StartTimer(FrameTimer::GetTime()); // its two updates take no time
    Init(&flight);
    EXPECT_EQ(0.0f, flight.cameraTravel);
    EXPECT_EQ(1.0f, flight.skyFade);
    EXPECT_EQ(0.0f, flight.shake);
    EXPECT_EQ(0.0f, flight.roll);
    EXPECT_EQ(0.0f, flight.rollFrom);
    EXPECT_EQ(0.0f, flight.rollTo);
    EXPECT_EQ(0.0f, flight.handAlpha);
    EXPECT_EQ(2, flight.handState);
    EXPECT_EQ(-2, flight.greetingIndex);
    EXPECT_EQ(0.0f, flight.cameraBlend);
    EXPECT_EQ(0.0f, flight.blendValue);
    EXPECT_EQ(0.0f, flight.target.x);
    EXPECT_EQ(0.0f, flight.target.y);
    EXPECT_EQ(0.0f, flight.eye.x);
    EXPECT_EQ(3.0f, flight.eye.z);
    EXPECT_EQ(12u, flight.greetingQuads.size());
    for (const Cloud& cloud : flight.clouds)
        ASSERT_EQ(0.0f, cloud.fade);
    sequence = 310312;
    EXPECT_EQ(NextOfSequence(2000) / 50.0f, flight.clouds[0].x);
    Step(0.125);
    EXPECT_EQ(3.0f, flight.eye.z) << "nothing moves";
    EXPECT_EQ(0.0f, flight.target.x);
    EXPECT_EQ(0.0f, flight.blendValue) << "neither blends nor fades out";
    EXPECT_FLOAT_EQ(0.85f, flight.skyFade);
    Send(&flight, "hand");
    EXPECT_EQ(0, flight.greetingIndex);
    EXPECT_EQ(firstRoll, flight.rollFrom) << "the sequence, too";
    Frame(&flight);
    EXPECT_EQ(1u, gl::DrawsWithTexture("greetings_01.png").size());
}

TEST_F(FX_CloudsRecorded, LeavesTheDepthTestOffTheBandAndNoTextures)
{
    glEnable(GL_DEPTH_TEST);
    Frame(&flight);
    EXPECT_TRUE(gl::TestsDepth(Clouds().at(0)));
    EXPECT_FALSE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_TRUE(gl::Now().depthWrites);
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_EQ(479, gl::Now().viewport.height);
    EXPECT_EQ(60, gl::Now().viewport.y);
    EXPECT_EQ(0, gl::Now().activeUnit);
    EXPECT_EQ(0u, gl::Now().units[0].bound);
    EXPECT_EQ(0u, gl::Now().units[1].bound);
    EXPECT_EQ(0u, gl::Now().program);
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
}

TEST_F(FX_CloudsRecorded, UnknownMessagesAreIgnored)
{
    flight.ReceiveMessage(0, nullptr, 0);
    EXPECT_EQ(-2, flight.greetingIndex);
    EXPECT_EQ(0.0f, flight.shake);
    EXPECT_EQ(1.0f, flight.skyFade);
}
