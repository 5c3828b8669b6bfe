// SPDX-License-Identifier: MIT
// What the recorded tests of WhiteFlashOverlay and BlackFlashOverlay share.
#pragma once

#include "tests/support/recorder/EffectFixture.h"

class FlashOverlayRecorded : public EffectFixture
{
protected:
    // The grey of the quad that a frame draws now.
    double Grey(Effect* overlay)
    {
        Frame(overlay);
        EXPECT_EQ(1u, gl::Draws().size());
        const gl::Colour colour = gl::Draws().at(0).vertices.at(0).colour;
        EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {colour.r, colour.r, colour.r}));
        return colour.r;
    }
    void Step(Effect* overlay, double seconds)
    {
        PassTime(seconds);
        overlay->Update();
    }
    // One quad over the whole picture, in this grey and with this blending.
    void ExpectQuad(Effect* overlay, double grey, GLenum source, GLenum destination)
    {
        Frame(overlay);
        ASSERT_EQ(1u, gl::Draws().size());
        const gl::Draw& quad = gl::Draws()[0];
        EXPECT_EQ(GLenum(GL_QUADS), quad.mode);
        EXPECT_TRUE(gl::HasVertices(quad, {{-4, 4, 0}, {4, 4, 0}, {4, -4, 0}, {-4, -4, 0}}));
        EXPECT_TRUE(gl::HasColour(quad, {grey, grey, grey}));
        EXPECT_TRUE(gl::Blends(quad, source, destination));
        EXPECT_TRUE(gl::IsUntextured(quad));
        EXPECT_TRUE(gl::IsMatrix(quad.modelview, gl::Translation(0, 0, -1.5)));
        EXPECT_NEAR(2.414213562, quad.projection.m[5], 1e-6) << "1 / tan 22.5 degrees";
        EXPECT_TRUE(gl::NoErrors());
    }
    // Texturing and blending end switched off, and the depth state as it was.
    void ExpectStateLeft(Effect* overlay)
    {
        for (const bool depth : {false, true}) {
            glEnable(GL_TEXTURE_2D);
            glEnable(GL_BLEND);
            depth ? glEnable(GL_DEPTH_TEST) : glDisable(GL_DEPTH_TEST);
            glDepthMask(depth);
            Frame(overlay);
            EXPECT_FALSE(gl::Now().units[0].texture2D);
            EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
            EXPECT_EQ(depth, gl::Now().Enabled(GL_DEPTH_TEST));
            EXPECT_EQ(depth, gl::Now().depthWrites);
            EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
            EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
        }
    }
};
