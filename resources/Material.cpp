// SPDX-License-Identifier: MIT
#include "resources/Material.h"

// All four are set here: a Colour of its own is opaque black, and these are transparent but for one.
Material::Material()
    : ambient(0.0f, 0.0f, 0.0f, 0.0f), diffuse(1.0f, 1.0f, 1.0f, 1.0f), specular(0.0f, 0.0f, 0.0f, 0.0f),
      emission(0.0f, 0.0f, 0.0f, 0.0f)
{
    name = "Material";
}

Material::~Material() = default;

int Material::GetType() const
{
    return 2;
}
