// SPDX-License-Identifier: MIT
// For tests of the shader files of a ShaderProgram, which draw two pictures with one number.
#pragma once

#include "resources/ShaderParams.h"
#include "resources/ShaderProgram.h"
#include "resources/Texture.h"
#include "tests/support/PictureKinds.h"
#include "tests/support/picture/ShaderFiles.h"

#include <GL/glew.h>

class TwoPicturesFixture : public ShaderFiles
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
        MakeTexture(&firstTexture, first);
        MakeTexture(&secondTexture, second);
    }

    ~TwoPicturesFixture() override
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
