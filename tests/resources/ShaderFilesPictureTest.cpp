// SPDX-License-Identifier: MIT
// The production's shader files, drawn by the software rasteriser.
#include "resources/GLSLUniforms.h"
#include "resources/ShaderParams.h"
#include "resources/Texture.h"

#include "tests/support/PictureKinds.h"
#include "tests/support/picture/PictureFixture.h"

#include <GL/glu.h>

#include <algorithm>
#include <cmath>

typedef std::vector<unsigned char> Bytes;

class ShaderFiles : public PictureFixture
{
protected:
    // A texture of these pixels, as the loader would make it; repeating like those of the effects.
    void Make(Texture* texture, const Picture& picture)
    {
        ImageData image;
        image.data = const_cast<unsigned char*>(picture.pixels.data());
        image.width = picture.width;
        image.height = picture.height;
        image.components = picture.components;
        ASSERT_TRUE(texture->Upload(&image, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
    }

    // White where the function says so.
    static Picture Paint(int side, float (*brightness)(float x, float y))
    {
        Picture picture = PlainPicture(side, side, 3, 0, 0, 0);
        for (int y = 0; y < side; y++)
            for (int x = 0; x < side; x++)
                for (int channel = 0; channel < 3; channel++)
                    picture.pixels[size_t((y * side + x) * 3 + channel)] = static_cast<unsigned char>(
                        std::lround(255 * brightness((x + 0.5f) / side, (y + 0.5f) / side)));
        return picture;
    }

    // A quad over the whole window, t = 0 at the top, in this colour.
    static void DrawQuad(float red = 1, float green = 1, float blue = 1, float alpha = 1)
    {
        glDisable(GL_DEPTH_TEST);
        glColor4f(red, green, blue, alpha);
        DrawWindowQuad();
    }

    // What the fixed pipeline makes of it.
    Picture DrawPlain(Texture* texture, float red = 1, float green = 1, float blue = 1, float alpha = 1)
    {
        glClear(GL_COLOR_BUFFER_BIT);
        texture->Bind();
        DrawQuad(red, green, blue, alpha);
        return Grab();
    }

    static int LargestStep(const Picture& picture)
    {
        int largest = 0;
        for (int y = 0; y < picture.height; y++)
            for (int x = 0; x < picture.width; x++) {
                if (x > 0)
                    largest = std::max(largest, abs(*picture.At(x, y) - *picture.At(x - 1, y)));
                if (y > 0)
                    largest = std::max(largest, abs(*picture.At(x, y) - *picture.At(x, y - 1)));
            }
        return largest;
    }

    static double MeanOf(const Picture& picture)
    {
        double sum = 0;
        for (unsigned char value : picture.pixels)
            sum += value;
        return sum / double(picture.pixels.size());
    }
};

// ---- The blur

class BlurFile : public ShaderFiles
{
protected:
    void Start(int side)
    {
        ASSERT_TRUE(Open(side, side));
        ASSERT_TRUE(shader.Load("standard_projection", "postprocessing_blur"));
        intensity.Init(&shader, "blur_intensity", 1);
        ASSERT_TRUE(boxes.empty());
        ASSERT_GE(intensity.location, 0);
    }

    // With an alpha of one half the picture has no night behind it. Without blending the colours show nothing
    // else of it.
    Picture DrawBlurred(Texture* texture, float strength, float red = 1, float green = 1, float blue = 1,
                        float alpha = 0.5f)
    {
        glClear(GL_COLOR_BUFFER_BIT);
        texture->Bind();
        shader.Enable();
        intensity.Set(&strength);
        DrawQuad(red, green, blue, alpha);
        shader.Disable();
        return Grab();
    }

    // A scene over the whole screen, as the names have it.
    Picture DrawScene(Texture* texture, float strength) { return DrawBlurred(texture, strength, 1, 1, 1, 1); }

    static double MeanOf(const Picture& picture, int left, int right, int low, int high, int channel)
    {
        double sum = 0;
        for (int y = low; y < high; y++)
            for (int x = left; x < right; x++)
                sum += picture.At(x, y)[channel];
        return sum / ((right - left) * (high - low));
    }

    using ShaderFiles::MeanOf;

    static double MeanOfRow(const Picture& picture, int y, int channel)
    {
        double sum = 0;
        for (int x = 0; x < picture.width; x++)
            sum += picture.At(x, y)[channel];
        return sum / picture.width;
    }

    // At which the mist of a young scene is all but gone and that of an old one has hardly come.
    static constexpr float clearest = 0.4f;

    GLSLShader shader;
    GLSLUniformFloat intensity;
};

TEST_F(BlurFile, ShowsThePlainPictureAtZeroAndBelow)
{
    Start(64);
    Texture texture;
    Make(&texture, SlopePicture(64, 64));
    const Picture plain = DrawPlain(&texture, 1, 0.5f, 0.25f);
    for (float strength : {0.0f, -0.25f, -100.0f})
        EXPECT_EQ(plain.pixels, DrawBlurred(&texture, strength, 1, 0.5f, 0.25f).pixels) << strength;
    EXPECT_NE(plain.pixels, DrawBlurred(&texture, 0.5f, 1, 0.5f, 0.25f).pixels);
}

TEST_F(BlurFile, KeepsAPlainColourAndAppliesColourAndAlpha)
{
    Start(64);
    Texture texture;
    Make(&texture, PlainPicture(8, 8, 4, 200, 100, 40, 128));
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    const Picture plain = DrawPlain(&texture, 1, 0.5f, 0.25f, 0.5f);
    EXPECT_NEAR(50, *plain.At(30, 30), 2); // 200 at a quarter: both alphas count
    for (float strength : {0.25f, 1.0f}) {
        const Picture blurred = DrawBlurred(&texture, strength, 1, 0.5f, 0.25f, 0.5f);
        for (size_t i = 0; i < plain.pixels.size(); i++)
            ASSERT_NEAR(plain.pixels[i], blurred.pixels[i], 1) << strength;
    }
}

TEST_F(BlurFile, HasNoVisibleStepsAt512By512)
{
    Start(512);
    float (*const edges[])(float, float) = {
        [](float x, float) { return x < 0.5f ? 0.0f : 1.0f; },
        [](float, float y) { return y < 0.5f ? 0.0f : 1.0f; },
        [](float x, float y) { return x + 0.7f * y < 0.8f ? 0.0f : 1.0f; },
    };
    for (auto edge : edges) {
        Texture texture;
        Make(&texture, Paint(512, edge));
        EXPECT_EQ(255, LargestStep(DrawPlain(&texture)));
        // The stronger the blur, the more pixels share the edge: about 5 at the resting strength, 22 at 1.
        EXPECT_LE(LargestStep(DrawBlurred(&texture, 0.25f)), 85);
        EXPECT_LE(LargestStep(DrawBlurred(&texture, 0.5f)), 55);
        EXPECT_LE(LargestStep(DrawBlurred(&texture, 1)), 42);
    }
}

TEST_F(BlurFile, SpreadsABrightLineByAFiftiethOfTheSideAndKeepsItsLight)
{
    Start(512);
    Texture texture;
    Make(&texture, Paint(512, [](float x, float) { return x > 0.49f && x < 0.51f ? 1.0f : 0.0f; }));
    const double light = MeanOf(DrawPlain(&texture));
    const Picture blurred = DrawBlurred(&texture, 1);
    EXPECT_NEAR(light, MeanOf(blurred), 0.15);
    int left = 0;
    while (*blurred.At(left, 256) == 0)
        left++;
    EXPECT_NEAR(0.49 - 0.022, left / 512.0, 0.004); // where the disc's rim ends
    const Picture half = DrawBlurred(&texture, 0.5f);
    EXPECT_NEAR(light, MeanOf(half), 0.15);
    left = 0;
    while (*half.At(left, 256) == 0)
        left++;
    EXPECT_NEAR(0.49 - 0.011, left / 512.0, 0.004);
    EXPECT_GT(*half.At(256, 256), *blurred.At(256, 256));
}

TEST_F(BlurFile, GrowsWithoutAJumpFromThePlainPicture)
{
    Start(128);
    Texture texture;
    Make(&texture, SlopePicture(64, 40));
    const Picture plain = DrawPlain(&texture);
    const Picture faint = DrawBlurred(&texture, 0.002f);
    for (int y = 4; y < 124; y++) // the border is another matter: the wrap repeats, the blur does not
        for (int x = 4; x < 124; x++)
            ASSERT_NEAR(*plain.At(x, y), *faint.At(x, y), 2) << x << " " << y;
}

TEST_F(BlurFile, LetsNothingInFromTheOtherSide)
{
    Start(256);
    Texture texture;
    Make(&texture, Paint(1024, [](float x, float y) { return x > 0.5f && y > 0.5f ? 1.0f : 0.0f; }));
    const Picture blurred = DrawBlurred(&texture, 1);
    for (int i = 0; i < 256; i++) {
        ASSERT_EQ(0, *blurred.At(0, i));
        ASSERT_EQ(0, *blurred.At(i, 0));
    }
    EXPECT_EQ(255, *blurred.At(255, 255));
}

TEST_F(BlurFile, ShowsALandWithoutLightAsNightAndLeavesBoneAsItIs)
{
    Start(64);
    Texture black, bone;
    Make(&black, PlainPicture(8, 8, 4, 0, 0, 0, 255));
    Make(&bone, PlainPicture(8, 8, 4, 239, 230, 210, 255));
    for (float strength : {0.0f, 0.25f, 1.0f}) {
        const Picture night = DrawScene(&black, strength);
        // Above all mist, a seventeenth below the top.
        const double lifted[3] = {20, 25, 48}, kept[3] = {239, 230, 210};
        const Picture paper = DrawScene(&bone, strength);
        for (int channel = 0; channel < 3; channel++) {
            EXPECT_NEAR(lifted[channel], MeanOfRow(night, 60, channel), 3) << strength;
            EXPECT_NEAR(kept[channel], MeanOfRow(paper, 60, channel), 8) << strength; // the paper's grain
        }
        EXPECT_EQ(0, MeanOf(DrawBlurred(&black, strength))) << "a picture that is laid over a scene";
    }
}

// Land in the lower rows and nothing above it. Texture coordinate t is the height: row 0 has t = 0.
static Picture LandBelowTheSky(int side, int horizon, unsigned char light)
{
    Picture land = PlainPicture(side, side, 4, 0, 0, 0, 0);
    for (int i = 0; i < side * horizon; i++) {
        unsigned char* const pixel = &land.pixels[size_t(i) * 4];
        pixel[0] = pixel[1] = pixel[2] = light;
        pixel[3] = 255;
    }
    return land;
}

static void Fill(Picture* picture, int left, int right, int low, int high, unsigned char red,
                 unsigned char green, unsigned char blue)
{
    for (int y = low; y < high; y++)
        for (int x = left; x < right; x++) {
            unsigned char* const pixel = &picture->pixels[size_t(y * picture->width + x) * 4];
            pixel[0] = red;
            pixel[1] = green;
            pixel[2] = blue;
            pixel[3] = 255;
        }
}

TEST_F(BlurFile, LetsANightSkyRiseFromALineOfMistWhereNothingWasDrawn)
{
    Start(128);
    Texture texture;
    Make(&texture, LandBelowTheSky(128, 40, 140));
    for (float strength : {0.35f, clearest}) {
        const Picture scene = DrawScene(&texture, strength);
        const double drawn = MeanOfRow(scene, 20, 2), mist = MeanOfRow(scene, 46, 2),
                     night = MeanOfRow(scene, 75, 2), top = MeanOfRow(scene, 124, 2);
        EXPECT_NEAR(140, drawn, 18) << "behind a little mist";
        EXPECT_GT(mist, night + 10) << "close over the land";
        EXPECT_GT(night, top + 8) << "and then ever darker";
        EXPECT_GT(top, 30) << "but never black";
        EXPECT_LT(mist, 0.45 * 255);
        const Picture laid = DrawBlurred(&texture, strength);
        EXPECT_EQ(0, MeanOfRow(laid, 75, 2)) << "not behind a picture that is laid over another";
    }
}

TEST_F(BlurFile, HidesTheBorderOfALandThatHasNoLight)
{
    Start(128);
    Texture land, nothing;
    Make(&land, LandBelowTheSky(128, 40, 0));
    Make(&nothing, PlainPicture(8, 8, 4, 0, 0, 0, 0));
    for (float strength : {-0.75f, 0.25f}) {
        const Picture scene = DrawScene(&land, strength), night = DrawScene(&nothing, strength);
        for (int row = 4; row < 128; row += 8)
            for (int channel = 0; channel < 3; channel++)
                EXPECT_NEAR(MeanOfRow(night, row, channel), MeanOfRow(scene, row, channel), 1.5) << row;
    }
}

// The patch of lit bark lies apart from all black, whose shade looks for it.
TEST_F(BlurFile, DarkensBarkWithTheLand)
{
    Start(128);
    for (unsigned char light : {0, 140}) {
        Picture land = LandBelowTheSky(128, 128, light);
        Fill(&land, 40, 80, 112, 120, 200, 120, 40);
        Texture texture;
        Make(&texture, land);
        const Picture scene = DrawScene(&texture, clearest);
        EXPECT_NEAR(light == 0 ? 20 : 200, MeanOf(scene, 50, 70, 114, 118, 0), 12) << int(light);
    }
}

// Lit land up to a height, and on it a shadow or a tree's side: how much darker than the land beside it that is.
class MistOfAYoungScene : public BlurFile
{
protected:
    void Stand(int foot, int head)
    {
        Picture land = LandBelowTheSky(128, 118, 140);
        Fill(&land, 40, 88, foot, head, 0, 0, 0);
        Make(&texture, land);
        low = foot + 6;
        high = head - 6;
    }

    double Contrast(float strength)
    {
        const Picture scene = DrawScene(&texture, strength);
        return (MeanOf(scene, 6, 34, low, high, 0) + MeanOf(scene, 94, 122, low, high, 0)) / 2 -
               MeanOf(scene, 46, 82, low, high, 0);
    }

    Texture texture;
    int low = 0, high = 0;
};

TEST_F(MistOfAYoungScene, HidesWhatStandsOnTheLandAndLiftsAsTheIntensityGrows)
{
    Start(128);
    Stand(20, 60);
    const double newest = Contrast(-0.75f), young = Contrast(-0.4f), growing = Contrast(0),
                 resting = Contrast(0.25f), clear = Contrast(clearest);
    EXPECT_LT(newest, 20);
    EXPECT_LT(young, 20) << "it does not lift below -0.1";
    EXPECT_LT(newest, growing);
    EXPECT_LT(growing, 0.5 * clear);
    EXPECT_NEAR(0.75 * clear, resting, 0.12 * clear) << "a little is left at the resting strength";
    EXPECT_GT(clear, 50);
}

TEST_F(MistOfAYoungScene, ClosesAboutTheFootOfAnOldSceneOnly)
{
    Start(128);
    Stand(10, 50);
    EXPECT_LT(Contrast(0.9f), 0.4 * Contrast(clearest)) << "at its foot";
    Stand(86, 100);
    EXPECT_NEAR(Contrast(clearest), Contrast(0.9f), 15) << "above the banks";
    EXPECT_LT(Contrast(-0.75f), 0.6 * Contrast(0.9f)) << "which reach higher over a young one";
}

TEST_F(BlurFile, LetsACrownComeBeforeTheBanksAsTheyLift)
{
    Start(128);
    Picture trunk = LandBelowTheSky(128, 40, 140);
    Fill(&trunk, 40, 88, 20, 110, 0, 0, 0);
    Texture texture;
    Make(&texture, trunk);
    const auto shade = [&](float strength) {
        return MeanOf(DrawScene(&texture, strength), 46, 82, 78, 88, 0);
    };
    EXPECT_NEAR(shade(clearest), shade(0.25f), 10);
    EXPECT_GT(shade(-0.4f), shade(0.25f) + 20);
}

TEST_F(MistOfAYoungScene, IsBanksWithMoonlitEdgesThatDrift)
{
    Start(128);
    Stand(20, 60);
    const Picture mist = DrawScene(&texture, -0.75f);
    double darkest = 255, lightest = 0;
    for (int y = 10; y < 105; y += 4) {
        const double blue = MeanOf(mist, 8, 24, y, y + 4, 2);
        darkest = std::min(darkest, blue);
        lightest = std::max(lightest, blue);
    }
    EXPECT_GT(lightest, darkest + 35);
    EXPECT_LT(lightest, 190) << "names stand on it in bone";
    EXPECT_GT(MeanOf(mist, 0, 128, 0, 128, 2), MeanOf(mist, 0, 128, 0, 128, 0) + 20) << "it is cold";
    EXPECT_GT(Compare(mist, DrawScene(&texture, -0.6f), 0).maximum, 15) << "it drifts";
}

TEST_F(BlurFile, DrawsTheEdgesOfASceneUnevenlyButNotThoseOfAPhotograph)
{
    Start(256);
    Texture texture;
    Make(&texture, Paint(256, [](float x, float) { return x < 0.5f ? 0.6f : 0.9f; }));
    const auto edge = [](const Picture& picture, int y) {
        int x = 0;
        while (picture.At(x, y)[0] < 191)
            x++;
        return x;
    };
    const Picture scene = DrawScene(&texture, clearest), photograph = DrawBlurred(&texture, 0);
    int leftmost = 256, rightmost = 0;
    for (int y = 222; y < 256; y++) { // above all mist
        EXPECT_EQ(128, edge(photograph, y));
        leftmost = std::min(leftmost, edge(scene, y));
        rightmost = std::max(rightmost, edge(scene, y));
    }
    // By half of 0.016 and 0.007 of the side at most, which is 3 pixels, and 2 of the blur and the grain.
    EXPECT_GE(leftmost, 123);
    EXPECT_LE(rightmost, 133);
    EXPECT_GE(rightmost, leftmost + 3);
}

TEST_F(BlurFile, TellsATreesOwnShadeFromItsShadowOnTheLand)
{
    Start(256);
    Picture wood = LandBelowTheSky(256, 150, 140);
    Fill(&wood, 40, 90, 80, 110, 0, 0, 0);        // a shadow
    Fill(&wood, 150, 180, 80, 220, 0, 0, 0);      // a trunk that rises before the sky,
    Fill(&wood, 126, 150, 80, 150, 200, 120, 40); // with bark in the light at its foot
    Texture texture;
    Make(&texture, wood);
    const Picture scene = DrawScene(&texture, clearest);
    const auto mean = [&](int x, int y, int channel) {
        double sum = 0;
        for (int i = 0; i < 36; i++)
            sum += scene.At(x + i % 6, y + i / 6)[channel];
        return sum / 36;
    };
    EXPECT_GT(mean(62, 92, 2), mean(62, 92, 0) + 15) << "a shadow is blue,";
    EXPECT_GT(mean(62, 92, 2), mean(162, 200, 2) + 30) << "lighter than the trunk before the sky,";
    EXPECT_GT(mean(62, 92, 2) - mean(62, 92, 0), mean(156, 92, 2) - mean(156, 92, 0) + 10)
        << "bluer than the trunk before the land";
    EXPECT_GT(mean(156, 92, 0), mean(162, 200, 0) + 6) << "beside lit bark the shade is warm";
}

// ---- The two pictures of a ShaderProgram

class TwoPictures : public ShaderFiles
{
protected:
    void Start(const char* fragmentPath, const Picture& first, const Picture& second, int side = 64)
    {
        ASSERT_TRUE(Open(side, side));
        program = ShaderProgram::Load("data/glowmask.vp", fragmentPath);
        ASSERT_TRUE(boxes.empty());
        sampler0 = new ShaderSampler(program, "sampler0");
        sampler1 = new ShaderSampler(program, "sampler1");
        deltaParam = new ShaderFloatParam(program, "delta");
        ASSERT_GE(sampler0->location, 0);
        ASSERT_GE(sampler1->location, 0);
        ASSERT_GE(deltaParam->location, 0);
        Make(&firstTexture, first);
        Make(&secondTexture, second);
    }

    ~TwoPictures() override
    {
        delete sampler0;
        delete sampler1;
        delete deltaParam;
        delete program;
    }

    Picture Draw(float delta, float red = 1, float green = 1, float blue = 1, float alpha = 1)
    {
        glClear(GL_COLOR_BUFFER_BIT);
        program->Bind();
        sampler0->Set(0);
        sampler1->Set(1);
        deltaParam->Set(&delta, 1);
        glActiveTexture(GL_TEXTURE1);
        secondTexture.Bind();
        glActiveTexture(GL_TEXTURE0);
        firstTexture.Bind();
        DrawQuad(red, green, blue, alpha);
        program->Unbind();
        glActiveTexture(GL_TEXTURE1);
        Texture::Unbind();
        glDisable(GL_TEXTURE_2D);
        glActiveTexture(GL_TEXTURE0);
        return Grab();
    }

    ShaderProgram* program = nullptr;
    ShaderSampler* sampler0 = nullptr;
    ShaderSampler* sampler1 = nullptr;
    ShaderFloatParam* deltaParam = nullptr;
    Texture firstTexture;
    Texture secondTexture;
};

TEST_F(TwoPictures, CrossFadeFromTheFirstToTheSecond)
{
    Picture second = SlopePicture(64, 64);
    std::reverse(second.pixels.begin(), second.pixels.end());
    Start("data/mix.fp", SlopePicture(64, 64), second);
    const Picture atZero = DrawPlain(&firstTexture, 1, 0.5f, 0.25f);
    const Picture atOne = DrawPlain(&secondTexture, 1, 0.5f, 0.25f);
    for (float delta : {0.0f, 0.25f, 1.0f}) {
        const Picture mixed = Draw(delta, 1, 0.5f, 0.25f);
        for (size_t i = 0; i < mixed.pixels.size(); i++)
            ASSERT_NEAR((1 - delta) * atZero.pixels[i] + delta * atOne.pixels[i], mixed.pixels[i], 1.01)
                << delta;
    }
}

TEST_F(TwoPictures, CrossFadeWithTheirAlphaAndThatOfTheVertices)
{
    Start("data/mix.fp", PlainPicture(4, 4, 4, 200, 200, 200, 255), PlainPicture(4, 4, 4, 200, 200, 200, 0));
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    EXPECT_NEAR(200, *Draw(0).At(30, 30), 1);
    EXPECT_NEAR(150, *Draw(0.25f).At(30, 30), 1);
    EXPECT_NEAR(0, *Draw(1).At(30, 30), 1);
    EXPECT_NEAR(100, *Draw(0, 1, 1, 1, 0.5f).At(30, 30), 1);
    EXPECT_NEAR(75, *Draw(0.25f, 1, 1, 1, 0.5f).At(30, 30), 1);
}

// ---- The painting and its light: bands of the mask from black on the left to white on the right. A grey mask is
// all way.

class GlowFile : public TwoPictures
{
protected:
    static const int side = 120;

    static float Bands(float x, float) { return std::floor(x * 6) / 5; }

    void StartBands()
    {
        Start("data/glowmask.fp", PlainPicture(8, 8, 3, 100, 80, 60), Paint(side, Bands), side);
    }

    // The red of band 0 (black) to 5 (white), in its middle.
    static int Red(const Picture& picture, int band)
    {
        return *picture.At(band * side / 6 + side / 12, side / 2);
    }
};

TEST_F(GlowFile, ShowsThePlainPaintingAtZeroAndBelow)
{
    Start("data/glowmask.fp", SlopePicture(64, 64), SlopePicture(64, 64));
    const Picture plain = DrawPlain(&firstTexture, 1, 0.5f, 0.25f);
    for (float delta : {0.0f, -1.0f, -1e6f})
        EXPECT_EQ(plain.pixels, Draw(delta, 1, 0.5f, 0.25f).pixels) << delta;
    EXPECT_NE(plain.pixels, Draw(1, 1, 0.5f, 0.25f).pixels);
}

TEST_F(GlowFile, StartsWithoutAJump)
{
    StartBands();
    const Picture plain = Draw(0);
    const Picture first = Draw(0.5f / 60); // a frame later
    for (size_t i = 0; i < plain.pixels.size(); i++)
        ASSERT_NEAR(plain.pixels[i], first.pixels[i], 1);
}

TEST_F(GlowFile, LetsTheLightReachTheDarkerBandsFirst)
{
    StartBands();
    // The light comes by a band of the mask's value m at delta = 2 m, and 0.16 later it is at its brightest.
    for (int band = 1; band <= 5; band++) {
        const float arrival = 2 * float(band) / 5;
        const int early = Red(Draw(arrival - 0.05f), band);
        const Picture peak = Draw(arrival + 0.16f);
        EXPECT_GT(Red(peak, band), early + 30) << band;
        for (int later = band + 1; later <= 5; later++)
            EXPECT_LT(Red(peak, later), Red(peak, band) - 30) << band << " " << later;
    }
}

TEST_F(GlowFile, NeverLightsWhatIsBlackInTheMask)
{
    StartBands();
    for (float delta = 0.1f; delta <= 10; delta += 0.3f)
        EXPECT_LE(Red(Draw(delta), 0), 100) << delta;
}

TEST_F(GlowFile, SendsWaveAfterWaveForAsLongAsDeltaGrows)
{
    StartBands();
    const float again = 2 * 1.35f; // delta from one wave to the next
    for (int band = 1; band <= 5; band++) {
        const float peak = 2 * float(band) / 5 + 0.16f + again;
        for (int wave = 1; peak + again * float(wave) <= 10; wave++)
            EXPECT_NEAR(Red(Draw(peak), band), Red(Draw(peak + again * float(wave)), band), 2);
        EXPECT_GT(Red(Draw(peak), band), Red(Draw(peak + again * 0.9f), band) + 20);
    }
}

TEST_F(GlowFile, IsWarmAndNeverBurnsOut)
{
    StartBands();
    for (float delta = 0.5f; delta <= 10; delta += 0.5f) {
        const Picture picture = Draw(delta);
        for (int i = 0; i < picture.width * picture.height; i++) {
            const unsigned char* const pixel = &picture.pixels[size_t(i) * 3];
            ASSERT_GT(pixel[0], pixel[1]) << delta;
            ASSERT_GT(pixel[1], pixel[2]) << delta;
            ASSERT_LT(pixel[0], 255) << delta;
            ASSERT_LT(pixel[2], 210) << delta;
        }
    }
}

TEST_F(GlowFile, MovesWithoutAJumpFromFrameToFrame)
{
    StartBands();
    Picture last = Draw(0.5f);
    for (float delta = 0.5f; delta <= 10; delta += 0.5f / 60) {
        const Picture next = Draw(delta);
        for (int band = 0; band < 6; band++)
            ASSERT_NEAR(Red(last, band), Red(next, band), 22) << band << " " << delta;
        last = next;
    }
}

// Masks of one colour over a plain painting. The light comes by at 0.4 and is brightest at 0.56: there it is at
// 1.125, at 0.59 of what it will be once the painting has sunk into its dusk, 0.55 parts of it from the way and 0.75
// from the halo. The painting's red of 100 is then 92 unlit.
TEST_F(GlowFile, TakesTheWaysFromRedTheirHaloFromGreenAndTheTimeFromBlue)
{
    const struct {
        int red, green, blue;
        int more; // red than unlit
    } masks[] = {
        {51, 51, 51, 127}, {0, 51, 51, 84}, {51, 0, 51, 65}, {0, 25, 51, 45}, {0, 0, 51, 0}, {51, 51, 0, 0},
    };
    Start("data/glowmask.fp", PlainPicture(4, 4, 3, 100, 80, 60), PlainPicture(4, 4, 3, 0, 0, 0));
    const int unlitBefore = *Draw(0.35f).At(30, 30), unlit = *Draw(0.56f).At(30, 30);
    EXPECT_NEAR(92, unlit, 1);
    for (const auto& mask : masks) {
        Make(&secondTexture, PlainPicture(4, 4, 3, mask.red, mask.green, mask.blue));
        EXPECT_EQ(unlitBefore, *Draw(0.35f).At(30, 30)) << "not before its time";
        EXPECT_NEAR(mask.more, *Draw(0.56f).At(30, 30) - unlit, 2)
            << mask.red << " " << mask.green << " " << mask.blue;
    }
}

TEST_F(GlowFile, KeepsTheAlphaOfPaintingAndVertices)
{
    Start("data/glowmask.fp", PlainPicture(4, 4, 4, 100, 100, 100, 128), PlainPicture(4, 4, 3, 0, 0, 0));
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    const int whole = *Draw(5).At(30, 30);
    const int half = *Draw(5, 1, 1, 1, 0.5f).At(30, 30);
    EXPECT_NEAR(100 * 0.86 * 0.5, whole, 2);
    EXPECT_NEAR(whole * 0.5, half, 1);
}

// Golden images: a ring that the light runs round, and a line and a dot out of focus.

static float FromRing(float x, float y)
{
    const float dx = x - 0.5f, dy = y - 0.5f;
    return std::fabs(std::sqrt(dx * dx + dy * dy) - 0.33f) / 0.011f;
}

static float RingTime(float x, float y)
{
    const float time = 0.2f + 0.8f * (std::atan2(y - 0.5f, x - 0.5f) + 3.1415927f) / 6.2831853f;
    return FromRing(x, y) < 3 ? time : 0;
}

static float Ring(float x, float y)
{
    return RingTime(x, y) * std::max(0.0f, 1 - FromRing(x, y));
}

static float RingHalo(float x, float y)
{
    return RingTime(x, y) * 0.5f * std::max(0.0f, 1 - FromRing(x, y) / 2);
}

TEST_F(GlowFile, RunsRoundARing)
{
    Picture ring = Paint(256, Ring);
    const Picture halo = Paint(256, RingHalo), time = Paint(256, RingTime);
    for (size_t i = 0; i < ring.pixels.size(); i += 3) {
        ring.pixels[i + 1] = halo.pixels[i];
        ring.pixels[i + 2] = time.pixels[i];
    }
    Start("data/glowmask.fp", SlopePicture(60, 40), ring, 192);
    const char* const names[] = {"GlowShader-arriving", "GlowShader-halfway", "GlowShader-late"};
    const float deltas[] = {0.7f, 1.3f, 9.1f};
    for (int i = 0; i < 3; i++)
        EXPECT_TRUE(MatchesGolden(Draw(deltas[i]), names[i],
                                  Tolerance("exp and smoothstep are approximated").Maximum(3)));
}

TEST_F(BlurFile, PutsALineAndADotOutOfFocus)
{
    Start(128);
    Texture texture;
    Make(&texture, Paint(512, [](float x, float y) {
        const float dx = x - 0.7f, dy = y - 0.3f;
        return std::fabs(x + 2 * y - 1.1f) < 0.02f || dx * dx + dy * dy < 0.006f ? 1.0f : 0.1f;
    }));
    EXPECT_TRUE(MatchesGolden(DrawBlurred(&texture, 0.25f), "BlurShader-resting",
                              Tolerance("the taps' places are rounded").Maximum(3)));
    EXPECT_TRUE(MatchesGolden(DrawBlurred(&texture, 1), "BlurShader-strong",
                              Tolerance("the taps' places are rounded").Maximum(3)));
}
