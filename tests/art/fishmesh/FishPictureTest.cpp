// SPDX-License-Identifier: MIT
// The fish under its shaders, on the software rasteriser.
#include "tests/support/picture/PictureFixture.h"

#include "resources/Model.h"
#include "resources/ShaderParams.h"
#include "resources/ShaderProgram.h"

#include <GL/glew.h>

#include <GL/glu.h>
#include <algorithm>

class SwimmingFish : public PictureFixture
{
protected:
    static const int width = 440;
    static const int height = 240;
    static constexpr float pixelsPerUnit = 200.0f; // of the model's lengths, in Above and Aside

    void SetUp() override
    {
        ASSERT_TRUE(Open(width, height));
        LoadModel("data/fish.txt", &fish);
        LoadModel("data/fisheyes.txt", &eyes);
        program = ShaderProgram::Load("data/fish.vp", "data/fish.fp");
        ASSERT_NE(nullptr, program);

        // A skin of one grey, so that the pictures do not hang on the paint.
        const unsigned char grey[3] = {110, 110, 110};
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        glGenTextures(1, &skin);
        glBindTexture(GL_TEXTURE_2D, skin);
        glTexImage2D(GL_TEXTURE_2D, 0, 3, 1, 1, 0, GL_RGB, GL_UNSIGNED_BYTE, grey);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    }

    void TearDown() override { delete program; }

    // From +z, without a turn: x to the right, y upward.
    static void LookAlong()
    {
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        const double right = 0.5 * width / pixelsPerUnit;
        const double top = 0.5 * height / pixelsPerUnit;
        glOrtho(-right, right, -top, top, -2, 2);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
    }

    // The show's fish is 2.2 times as large as the one two long that was modelled, round z = 0.75. All figures
    // here are of the modelled one.
    static void AsModelled()
    {
        glTranslatef(0, 0, 0.75f);
        glScalef(1 / 2.2f, 1 / 2.2f, 1 / 2.2f);
        glTranslatef(0, 0, -0.75f);
    }

    // The head is at the left. From above, +x is at the top.
    static void Above()
    {
        LookAlong();
        glRotatef(90, 1, 0, 0);
        glRotatef(90, 0, 1, 0);
        AsModelled();
    }

    // From the fish's left side.
    static void Aside()
    {
        LookAlong();
        glRotatef(90, 0, 1, 0);
        AsModelled();
    }

    Picture Draw(float time, float brightness)
    {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glEnable(GL_DEPTH_TEST);
        program->Bind();
        ShaderSampler(program, "sampler0").Set(0);
        ShaderFloatParam(program, "fTime0_X").Set(&time, 1);
        ShaderFloatParam(program, "vtxColor").Set(&brightness, 1);
        DrawModel(&fish);
        DrawModel(&eyes);
        ShaderProgram::Unbind();
        return Grab();
    }

    // The middle between the topmost and the lowest lit pixel of a column, upward. The column is so far to
    // the right of the picture's middle; both in units of the model.
    static float MiddleAt(const Picture& picture, float place)
    {
        const int x = int(0.5f * width + place * pixelsPerUnit);
        int top = -1;
        int low = -1;
        for (int y = 0; y < height; y++) {
            const unsigned char* pixel = picture.At(x, y);
            if (pixel[0] + pixel[1] + pixel[2] == 0)
                continue;
            top = top < 0 ? y : top;
            low = y;
        }
        EXPECT_GE(top, 0) << "nothing at " << place;
        return (0.5f * height - 0.5f * float(top + low + 1)) / pixelsPerUnit;
    }

    static double Sum(const Picture& picture)
    {
        double sum = 0.0;
        for (unsigned char channel : picture.pixels)
            sum += channel;
        return sum;
    }

    Model fish;
    Model eyes;
    ShaderProgram* program = nullptr;
    GLuint skin = 0;
};

static const float stroke = 8.5f;                // of fish.vp, radians a second
static const float period = 6.2831853f / stroke; // seconds

TEST_F(SwimmingFish, HasShadersThatCompileAndLinkAndTakeAllThatTheEffectSets)
{
    EXPECT_TRUE(boxes.empty()) << boxes[0].body;
    GLint linked = 0;
    glGetObjectParameterivARB(program->program, GL_OBJECT_LINK_STATUS_ARB, &linked);
    EXPECT_EQ(GL_TRUE, linked);
    for (const char* name : {"sampler0", "fTime0_X", "vtxColor"})
        EXPECT_GE(ShaderFloatParam(program, name).location, 0) << name;
    EXPECT_EQ(static_cast<GLenum>(GL_NO_ERROR), glGetError());
}

TEST_F(SwimmingFish, KeepsItsHeadNearlyStillWhileTheTailBeats)
{
    Above();
    float reach[3] = {};
    const float places[3] = {-0.9f, 0.1f, 0.8f};
    for (int i = 0; i < 3; i++) {
        float low = 1.0f;
        float high = -1.0f;
        for (int step = 0; step < 12; step++) {
            const float middle = MiddleAt(Draw(period * float(step) / 12.0f, 1.0f), places[i]);
            low = std::min(low, middle);
            high = std::max(high, middle);
        }
        reach[i] = 0.5f * (high - low);
    }
    EXPECT_LT(reach[0], 0.02f);
    EXPECT_NEAR(0.012f + 0.26f * 0.55f * 0.55f, reach[1], 0.02f);
    EXPECT_NEAR(0.012f + 0.26f * 0.90f * 0.90f, reach[2], 0.03f);
}

TEST_F(SwimmingFish, PaddlesWithTheFinsAtItsBreastAtHalfThePace)
{
    // From ahead: the lowest lit pixel of the columns in which only the tip of such a fin is.
    LookAlong();
    glRotatef(180, 0, 1, 0);
    AsModelled();
    const float tip = 0.36f;
    const float reach = 0.3f * (tip - 0.09f);
    const float atTip = 5.2f * 0.4f; // radians that the wave lags there: z is -0.2
    float low = 1.0f;
    float high = -1.0f;
    for (int quarter = 0; quarter < 4; quarter++) {
        const float time = (atTip + 3.14159265f * float(quarter)) / stroke;
        const float middle = MiddleAt(Draw(time, 1.0f), tip);
        low = std::min(low, middle);
        high = std::max(high, middle);
    }
    EXPECT_NEAR(reach, 0.5f * (high - low), 0.02f);
}

TEST_F(SwimmingFish, SendsItsWaveFromTheHeadToTheTail)
{
    Above();
    // When the middle of the body and the root of the tail are furthest to one side.
    float best[2] = {-1.0f, -1.0f};
    int when[2] = {};
    const int steps = 24;
    for (int step = 0; step < steps; step++) {
        const Picture picture = Draw(period * float(step) / steps, 1.0f);
        const float places[2] = {0.2f, 0.7f};
        for (int i = 0; i < 2; i++) {
            const float middle = MiddleAt(picture, places[i]);
            if (middle > best[i]) {
                best[i] = middle;
                when[i] = step;
            }
        }
    }
    // 5.2 radians over the whole length of 2: a quarter of it is 1.3, 5 steps of 24.
    EXPECT_NEAR(5, (when[1] - when[0] + steps) % steps, 1);
}

TEST_F(SwimmingFish, ComesBackToTheSamePictureAfterTwoBeats)
{
    Aside(); // two, since the fins at the breast paddle at half the pace
    const Picture first = Draw(0.1f, 1.0f);
    const Picture one = Draw(0.1f + period, 1.0f);
    const Picture two = Draw(0.1f + 2.0f * period, 1.0f);
    EXPECT_LT(Compare(first, two, 8).pixelsBeyond, 50);
    EXPECT_GT(Compare(first, one, 8).pixelsBeyond, Compare(first, two, 8).pixelsBeyond);
}

// The light goes with the square root of the parameter: a quarter leaves half of it, a twenty-fifth a fifth.
TEST_F(SwimmingFish, DimsMoreSlowlyThanItsParameterAndGoesOutWithIt)
{
    Aside();
    const Picture full = Draw(0.3f, 1.0f);
    EXPECT_GT(Sum(full), 1e6);
    const struct {
        float brightness;
        int divisor; // of the light
    } rows[] = {{0.25f, 2}, {0.04f, 5}};
    for (const auto& row : rows) {
        const Picture dimmed = Draw(0.3f, row.brightness);
        for (size_t i = 0; i < full.pixels.size(); i++) {
            if (full.pixels[i] < 255)
                ASSERT_NEAR(double(full.pixels[i]) / row.divisor, dimmed.pixels[i], 1.01) << i;
            else // the full light is clipped
                ASSERT_GE(dimmed.pixels[i], 255 / row.divisor) << i;
        }
    }
    EXPECT_EQ(0.0, Sum(Draw(0.3f, 0.0f)));
}

TEST_F(SwimmingFish, ShowsEachSurfaceInItsOwnColour)
{
    // On a skin of one grey, all that is red or golden comes from the shader.
    Aside();
    const Picture picture = Draw(0.3f, 1.0f);
    int rusty = 0;
    int bluish = 0;
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const unsigned char* pixel = picture.At(x, y);
            rusty += pixel[0] > 1.3 * pixel[2] ? 1 : 0;
            bluish += pixel[2] > pixel[0] + 5 ? 1 : 0;
        }
    EXPECT_GT(rusty, 4000) << "fins";
    EXPECT_GT(bluish, 4000) << "skin in a cold light";
}

// How bright the picture's upper left corner is, where the fish is not.
static int CornerOf(const Picture& picture)
{
    const unsigned char* pixel = picture.At(3, 3);
    return pixel[0] + pixel[1] + pixel[2];
}

TEST_F(SwimmingFish, HasTheNightBehindItWhereThereIsPerspective)
{
    Aside();
    EXPECT_EQ(0, CornerOf(Draw(0.3f, 1.0f)));
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45, double(width) / height, 0.1, 100);
    // The fish is seen under the tangent of an angle, to the right. It takes two thirds of the light along where it leaves
    // the picture there, and the eye gets used to the dark. On the left, where it comes in, nothing is dark.
    const struct {
        double tangent;
        bool dark;
    } rows[] = {{0, false}, {0.45, false}, {0.9, true}, {1.05, true}, {3, false}, {-0.9, false}};
    for (const auto& row : rows) {
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glTranslated(20 * row.tangent, -3, -20);
        const int corner = CornerOf(Draw(0.3f, 1.0f));
        EXPECT_GT(corner, 8) << row.tangent;
        EXPECT_LT(corner, 300) << "it stays a night";
        EXPECT_EQ(row.dark, corner < 45) << row.tangent << ": " << corner;
    }
}

TEST_F(SwimmingFish, HidesTheEndOfItsRopeInStreaksAlongIt)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45, double(width) / height, 1, 200);
    // In the show it is six times as large. White walls stand so far behind it, and this share of them is to be seen: the
    // streaks begin between 33 and 51 units.
    const struct {
        float behind;
        double share;
    } rows[] = {{30, 1}, {40, 0.60}, {45, 0.18}, {55, 0}};
    for (const auto& row : rows) {
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glTranslatef(0, -4, -30);
        glRotatef(180, 0, 1, 0);
        glScalef(6, 6, 6);
        Draw(0.3f, 1.0f);
        glLoadIdentity();
        const float away = -30 - row.behind;
        glColor3f(1, 1, 1);
        glDisable(GL_TEXTURE_2D);
        glBegin(GL_QUADS);
        for (const auto& [x, y] :
             {std::pair(-90.0f, -60.0f), {90.0f, -60.0f}, {90.0f, 60.0f}, {-90.0f, 60.0f}})
            glVertex3f(x, y, away);
        glEnd();
        glEnable(GL_TEXTURE_2D);
        const Picture picture = Grab();
        const int top = 40; // rows in which there is no fish
        const auto isWhite = [&picture](int x, int y) { return picture.At(x, y)[2] == 255; };
        int white = 0;
        int bordersAcross = 0;
        int bordersAlong = 0;
        for (int y = 0; y + 1 < top; y++)
            for (int x = 0; x + 1 < width; x++) {
                white += isWhite(x, y) ? 1 : 0;
                bordersAcross += isWhite(x, y) != isWhite(x + 1, y) ? 1 : 0;
                bordersAlong += isWhite(x, y) != isWhite(x, y + 1) ? 1 : 0;
            }
        EXPECT_NEAR(row.share, double(white) / ((top - 1) * (width - 1)), 0.08) << row.behind;
        // Its rope goes straight away, to the middle of the picture: upward from where the fish is seen.
        EXPECT_GE(bordersAcross, 10 * bordersAlong) << row.behind;
        EXPECT_EQ(row.share > 0 && row.share<1, bordersAcross> 500) << row.behind << ": " << bordersAcross;
    }
}

TEST_F(SwimmingFish, LooksAtTheViewerWithItsMouthOpen)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(18, double(width) / height, 0.1, 20);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(1.5, 0.33, -2.2, 0.05, 0.03, -0.62, 0, 1, 0);
    AsModelled();
    EXPECT_TRUE(MatchesGolden(Draw(0.3f, 1.0f), "FishMesh-face",
                              Tolerance("thin teeth and fins, whose edges move by single pixels")
                                  .Maximum(6)
                                  .Share(0.004)
                                  .Mean(0.5)));
}
