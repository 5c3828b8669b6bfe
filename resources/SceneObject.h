// SPDX-License-Identifier: MIT
// What the text archives store as a whole: a model, a material.
#pragma once

#include <string>

class SceneObject
{
public:
    // Tells the kinds apart: 1 a Model, 2 a Material.
    virtual int GetType() const = 0;
    virtual ~SceneObject() = default;

    std::string name; // no white space, or the archive's tokens fall out of step
};
