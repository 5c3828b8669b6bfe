// SPDX-License-Identifier: MIT
#include "effects/FX_RopeThing.h"

#include "tests/support/picture/ScenePictureFixture.h"

#include <GL/glew.h>

#include <GL/glu.h>
#include <cmath>

class FX_RopeThingPicture : public ScenePictureFixture
{
protected:
    // How many pixels of a square of 11 round this place of the world are on fire, under the camera that the effect has
    // left: bright for this picture, and four times as red as blue, which its image in the water is not.
    static int FireAt(const Picture& picture, const Vec3 place, float brightness)
    {
        GLdouble view[16], lens[16], x, y, depth;
        GLint port[4];
        glGetDoublev(GL_MODELVIEW_MATRIX, view);
        glGetDoublev(GL_PROJECTION_MATRIX, lens);
        glGetIntegerv(GL_VIEWPORT, port);
        gluProject(place[0], place[1], place[2], view, lens, port, &x, &y, &depth);
        const float red = 200 * std::sqrt(brightness);
        int sum = 0;
        for (int row = int(picture.height - y) - 5; row <= int(picture.height - y) + 5; row++)
            for (int column = int(x) - 5; column <= int(x) + 5; column++)
                if (row >= 0 && row < picture.height && column >= 0 && column < picture.width) {
                    const unsigned char* pixel = picture.At(column, row);
                    sum += float(pixel[0]) > red && 4 * pixel[2] < pixel[0] ? 1 : 0;
                }
        return sum;
    }
};

TEST_F(FX_RopeThingPicture, TheFishComesFromAfarFromBesideAndInTheFace)
{
    AddFiles(FX_RopeThing::files);
    FX_RopeThing fish;
    Prepare(&fish);
    GLWindow::SetPerspective(45);
    Send(&fish, "intro");
    Look(&fish, 2.5, "FX_RopeThing-intro");
    Send(&fish, "front");
    Look(&fish, 3.5, "FX_RopeThing-front");
    Send(&fish, "shock");
    Look(&fish, 3.609375, "FX_RopeThing-shock");
}

// Nobody tells the shader where the rope hangs: it finds that from camera and brightness, with figures of the effect. The
// rope itself is left out here, by a black spark.
TEST_F(FX_RopeThingPicture, TheFireInTheTailOfTheFishBesideFollowsTheRope)
{
    AddFiles(FX_RopeThing::files);
    Picture black;
    black.width = black.height = 4;
    black.pixels.assign(4 * 4 * 3, 0);
    AddPicture("partikel_2.jpg", black);
    FX_RopeThing fish;
    Prepare(&fish);
    GLWindow::SetPerspective(45);
    Send(&fish, "front");
    // Sums over the frames in which it hangs upward and downward from the tail. Weaving puts it on either side as well.
    int upward[2] = {}, downward[2] = {}; // on the rope, and where its mirror image would be
    for (int frame = 25; frame < 130; frame++) {
        PassTime(1.0 / 50);
        fish.AddLocalTime(FrameTimer::GetDelta());
        fish.Update();
        Frame(&fish);
        const Vec3& root = fish.ropes[0][0];
        const Vec3& link = fish.ropes[0][4];
        const float rise = link[1] - root[1];
        if (frame < 30 || std::fabs(rise) < 4)
            continue;
        const Picture picture = Grab();
        const Vec3 upsideDown = {link[0], root[1] - rise, link[2]};
        int* const sums = rise > 0 ? upward : downward;
        sums[0] += FireAt(picture, link, fish.fade);
        sums[1] += FireAt(picture, upsideDown, fish.fade);
    }
    EXPECT_GT(upward[0], 200);
    EXPECT_GT(upward[0], 5 * upward[1]);
    EXPECT_GT(downward[0], 50);
    EXPECT_GT(downward[0], 5 * downward[1]);
}
