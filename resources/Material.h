// SPDX-License-Identifier: MIT
#pragma once

#include "math/Colour.h"
#include "resources/SceneObject.h"

#include <string>

// How a surface takes the light. The engine stores and reads it; nothing in this production draws with it.
class Material : public SceneObject
{
public:
    Material(); // named "Material", with the values below

    int GetType() const override; // 2
    ~Material() override;

    Colour ambient;              // (0, 0, 0, 0)
    Colour diffuse;              // (1, 1, 1, 1)
    Colour specular;             // (0, 0, 0, 0)
    Colour emission;             // (0, 0, 0, 0)
    float shininess = 0.0f;      // the exponent of the highlight
    std::string textureNames[4]; // empty: none. Non-empty and without blanks before it goes to an archive
};
