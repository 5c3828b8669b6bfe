// SPDX-License-Identifier: MIT
#include "tests/support/picture/ShaderFiles.h"

#include "resources/Texture.h"

#include <GL/glew.h>

#include <cmath>

void ShaderFiles::MakeTexture(Texture* texture, const Picture& picture)
{
    ImageData image;
    image.data = const_cast<unsigned char*>(picture.pixels.data());
    image.width = picture.width;
    image.height = picture.height;
    image.components = picture.components;
    ASSERT_TRUE(texture->Upload(&image, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT));
}

Picture ShaderFiles::Paint(int side, float (*brightness)(float x, float y))
{
    Picture picture = PlainPicture(side, side, 3, 0, 0, 0);
    for (int y = 0; y < side; y++)
        for (int x = 0; x < side; x++)
            for (int channel = 0; channel < 3; channel++)
                picture.pixels[size_t((y * side + x) * 3 + channel)] = static_cast<unsigned char>(
                    std::lround(255 * brightness((x + 0.5f) / side, (y + 0.5f) / side)));
    return picture;
}

void ShaderFiles::DrawQuad(float red, float green, float blue, float alpha)
{
    glDisable(GL_DEPTH_TEST);
    glColor4f(red, green, blue, alpha);
    DrawWindowQuad();
}

Picture ShaderFiles::DrawPlain(Texture* texture, float red, float green, float blue, float alpha) const
{
    glClear(GL_COLOR_BUFFER_BIT);
    texture->Bind();
    DrawQuad(red, green, blue, alpha);
    return Grab();
}

double ShaderFiles::MeanOf(const Picture& picture)
{
    double sum = 0;
    for (unsigned char value : picture.pixels)
        sum += value;
    return sum / double(picture.pixels.size());
}
