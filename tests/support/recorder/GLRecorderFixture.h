// SPDX-License-Identifier: MIT
// What tests of the recorder itself begin with: a GL in its start state, and the shortest batch to draw.
#pragma once

#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

class GLRecorderFixture : public testing::Test
{
protected:
    GLRecorderFixture() { gl::Reset(800, 600); }

    static void DrawPoint(float x = 1, float y = 2, float z = 3)
    {
        glBegin(GL_POINTS);
        glVertex3f(x, y, z);
        glEnd();
    }
};
