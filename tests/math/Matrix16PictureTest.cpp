// SPDX-License-Identifier: MIT
#include "math/Matrix16.h"

#include "platform/WindowSystem.h"

#include <GL/glew.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

// A context of the software rasteriser; nothing is drawn.
class RotationOfTheDriver : public testing::Test
{
protected:
    void SetUp() override
    {
        setenv("SDL_VIDEODRIVER", "offscreen", 1);
        platform::UseSdlWindows();
        const platform::WindowSystem& system = platform::Windows();
        ASSERT_TRUE(system.registerClass("RotationOfTheDriver"));
        const platform::WindowHandle window = system.createWindow({"", 0, 0, 64, 64, false, 32, 0, 32});
        ASSERT_NE(nullptr, window);
        const platform::DeviceContext device = system.getDeviceContext(window);
        ASSERT_TRUE(system.makeCurrent(device, system.createContext(device, nullptr)));
    }

    void TearDown() override { platform::Windows().shutDown(); }
};

TEST_F(RotationOfTheDriver, IsWhatTheRotationFunctionsCompute)
{
    // The driver computes in floats as well, and the axis's length and the products add up their roundings.
    const float tolerance = 5e-7f;
    std::mt19937 random(29);
    std::uniform_real_distribution<float> any(-1, 1);
    for (int i = 0; i < 2000; i++) {
        const float degrees = any(random) * (i % 2 ? 360 : 5000);
        float x = any(random), y = any(random), z = any(random);
        Matrix16 expected, m;
        switch (i % 4) {
        case 0:
            MatrixRotationX(m, degrees);
            x = 1, y = 0, z = 0;
            break;
        case 1:
            MatrixRotationY(m, degrees);
            x = 0, y = 1, z = 0;
            break;
        case 2:
            MatrixRotationZ(m, degrees);
            x = 0, y = 0, z = 1;
            break;
        default:
            MatrixRotationAxis(m, degrees, x, y, z);
        }
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glRotatef(degrees, x, y, z);
        glGetFloatv(GL_MODELVIEW_MATRIX, expected);
        for (int k = 0; k < 16; k++)
            ASSERT_NEAR(expected[k], m[k], tolerance) << degrees << " about " << x << " " << y << " " << z;
    }
}
