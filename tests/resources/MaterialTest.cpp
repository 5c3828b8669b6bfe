// SPDX-License-Identifier: MIT
#include "resources/Material.h"

#include "resources/Model.h"

#include <gtest/gtest.h>

static std::vector<float> Channels(const Colour& colour)
{
    return {colour.r, colour.g, colour.b, colour.a};
}

TEST(Material, StartsAsWhiteDiffuseOnTransparentBlackWithoutTextures)
{
    const Material material;
    EXPECT_EQ("Material", material.name);
    EXPECT_EQ(std::vector<float>({0, 0, 0, 0}), Channels(material.ambient));
    EXPECT_EQ(std::vector<float>({1, 1, 1, 1}), Channels(material.diffuse));
    EXPECT_EQ(std::vector<float>({0, 0, 0, 0}), Channels(material.specular));
    EXPECT_EQ(std::vector<float>({0, 0, 0, 0}), Channels(material.emission));
    EXPECT_EQ(0.0f, material.shininess);
    for (const std::string& textureName : material.textureNames)
        EXPECT_EQ("", textureName);
}

TEST(Material, IsOfType2AndAModelOfType1)
{
    Material material;
    Model model;
    SceneObject* const objects[] = {&model, &material};
    EXPECT_EQ(1, objects[0]->GetType());
    EXPECT_EQ(2, objects[1]->GetType());
    EXPECT_EQ(1, model.GetType());
    EXPECT_EQ(2, material.GetType());
}

class WatchedMaterial : public Material
{
public:
    explicit WatchedMaterial(bool* flag) : destroyed(flag) {}
    ~WatchedMaterial() override { *destroyed = true; }

private:
    bool* destroyed;
};

TEST(Material, IsDestroyedThroughItsBase)
{
    bool destroyed = false;
    SceneObject* const object = new WatchedMaterial(&destroyed);
    delete object;
    EXPECT_TRUE(destroyed);
}

TEST(SceneObject, OfAModelStartsWithoutAName)
{
    EXPECT_EQ("", Model().name);
}
