// SPDX-License-Identifier: MIT
// For tests of the blur's shader files, which also draw the night and the mist about a scene.
#pragma once

#include "resources/GLSLShader.h"
#include "resources/GLSLUniforms.h"
#include "resources/Texture.h"
#include "tests/support/PictureKinds.h"
#include "tests/support/picture/ShaderFiles.h"

#include <GL/glew.h>

class BlurFixture : public ShaderFiles
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

    GLSLShader shader;
    GLSLUniformFloat intensity;
};
