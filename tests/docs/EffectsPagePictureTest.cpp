// SPDX-License-Identifier: MIT
// What docs/EFFECTS.md shows, seen: the whole effect, and the pieces of its other blocks.
#include "FX_Lantern.h"

#include "math/Vector3.h"
#include "resources/Material.h"
#include "resources/VertexArray.h"
#include "tests/support/picture/PictureFixture.h"

#include <GL/glew.h>

#include <cmath>
#include <memory>

// The functions of the page's blocks.
class Texture;
void FrameThePicture(GLWindow* window);
Texture* LoadWall();
void DrawWall(Texture* wall);
void DrawCubeIntoPicture();
void DrawPictureOverTheBand();
GLuint CompileFish();
void TakeLight(const Material& material);
bool StoreMaterial(const Material& material);
bool FetchMaterial(Material* material);
VertexArray* MakeTriangle();
void DrawTriangle(VertexArray* array);
void PlaceScene(Vector3 place, float degrees);
bool LoadPath(const char* path);

class EffectsPagePicture : public PictureFixture
{
protected:
    void SetUp() override { ASSERT_TRUE(Open(320, 240)); }

    static int CountLit(const Picture& picture)
    {
        int count = 0;
        for (size_t i = 0; i < picture.pixels.size(); i += 3)
            count += picture.pixels[i] + picture.pixels[i + 1] + picture.pixels[i + 2] > 0;
        return count;
    }
    void Clear()
    {
        window.ClearFrame();
        glColor3f(1, 1, 1);
    }
};

// A ball of warm light.
static Picture LanternPicture()
{
    const int side = 64;
    Picture picture = PlainPicture(side, side, 3, 0, 0, 0);
    for (int y = 0; y < side; y++)
        for (int x = 0; x < side; x++) {
            const double away = std::hypot(x - 31.5, y - 31.5) / 31.5;
            const double light = away < 1 ? (1 - away) * (1 - away) : 0;
            unsigned char* const pixel = &picture.pixels[size_t(y * side + x) * 3];
            pixel[0] = (unsigned char)(std::lround(255 * std::sqrt(light)));
            pixel[1] = (unsigned char)(std::lround(200 * light));
            pixel[2] = (unsigned char)(std::lround(90 * light * light));
        }
    return picture;
}

TEST_F(EffectsPagePicture, ItsLanternGlowsAtTheEndOfItsSwing)
{
    UseOwnData();
    AddPicture("lantern.png", LanternPicture());
    FX_Lantern lantern;
    Prepare(&lantern);
    Send(&lantern, "light");
    lantern.SetLocalTime(0.785f);
    Frame(&lantern);
    EXPECT_TRUE(MatchesGolden(Grab(), "FX_Lantern-lit",
                              Tolerance("a smooth glow, magnified: filtering rounds either way").Maximum(2)));
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(EffectsPagePicture, ItsWallIsDrawn)
{
    Clear();
    FrameThePicture(&window);
    DrawWall(LoadWall());
    EXPECT_GT(CountLit(Grab()), 1000);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(EffectsPagePicture, ItsPictureOfACubeLiesOverTheBand)
{
    DrawCubeIntoPicture();
    Clear();
    DrawPictureOverTheBand();
    const Picture picture = Grab();
    EXPECT_EQ(255, picture.At(160, 120)[0]) << "the cube is in the middle";
    EXPECT_EQ(0, picture.At(5, 120)[0]);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(EffectsPagePicture, ItsFishAndItsTriangleAreDrawn)
{
    Clear();
    glTranslatef(0, 0, -3);
    glCallList(CompileFish());
    const int fish = CountLit(Grab());
    EXPECT_GT(fish, 100);
    Clear();
    PlaceScene(Vector3(0, 0, -3), 180);
    const std::unique_ptr<VertexArray> triangle(MakeTriangle());
    DrawTriangle(triangle.get());
    const Picture picture = Grab();
    EXPECT_GT(CountLit(picture), 1000);
    EXPECT_GT(picture.At(160, 150)[2], 100) << "upside down: the blue corner is below";
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(EffectsPagePicture, ItsMaterialComesBackFromTheArchive)
{
    Material material;
    material.name = "paper";
    material.diffuse = Colour(0.25f, 0.5f, 0.75f, 1);
    for (std::string& name : material.textureNames)
        name = "none";
    Material read;
    ASSERT_TRUE(StoreMaterial(material));
    EXPECT_TRUE(FetchMaterial(&read));
    EXPECT_EQ(0.5f, read.diffuse.g);
    TakeLight(read);
    float diffuse[4];
    glGetMaterialfv(GL_FRONT, GL_DIFFUSE, diffuse);
    EXPECT_EQ(0.75f, diffuse[2]);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    remove("material.txt");
}

TEST_F(EffectsPagePicture, ItsPathReportsWhatIsMissingAndWhatIsEmpty)
{
    UseOwnData();
    AddFile("path.txt", "3 0 0 0");
    AddFile("empty.txt", "");
    EXPECT_TRUE(LoadPath("data/path.txt"));
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(LoadPath("data/empty.txt"));
    EXPECT_FALSE(LoadPath("data/missing.txt"));
    ASSERT_EQ(2u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Lantern", boxes[0].caption);
    EXPECT_EQ("Marlinex 1.5 Error: File Not Found!", boxes[1].caption);
    EXPECT_TRUE(QuitWasPosted());
}
