// SPDX-License-Identifier: MIT
// For tests of the text archives: a file of the test's own, and records whose text is known.
#pragma once

#include "resources/Material.h"
#include "resources/Model.h"
#include "resources/TextArchive.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

class TextArchiveFixture : public testing::Test
{
protected:
    TextArchiveFixture() : path(testing::TempDir() + "TextArchive-" + std::to_string(getpid())) {}
    ~TextArchiveFixture() override { std::filesystem::remove_all(path); }

    void Put(const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

    std::string Get() { return ReadFile(path); }

    const std::string path;
};

inline Material BarkMaterial()
{
    Material material;
    material.name = "bark";
    material.ambient = Colour(0.01f, 0.02f, 0.03f, 0.04f);
    material.diffuse = Colour(0.05f, 0.06f, 0.07f, 0.08f);
    material.specular = Colour(0.09f, 0.1f, 0.11f, 0.12f);
    material.emission = Colour(0.13f, 0.14f, 0.15f, 0.16f);
    material.shininess = 12.5f;
    material.textureNames[0] = "a.jpg";
    material.textureNames[1] = "b.jpg";
    material.textureNames[2] = "c.png";
    material.textureNames[3] = "d.png";
    return material;
}

inline const char* const barkText = "bark 0.01 0.02 0.03 0.04 0.05 0.06 0.07 0.08 0.09 0.1 0.11 0.12 "
                                    "0.13 0.14 0.15 0.16 12.5 a.jpg b.jpg c.png d.png ";

inline Model PondModel()
{
    Model model;
    model.name = "pond";
    model.vertices = {Vector3(1, 2, 3), Vector3(4, 5, 6), Vector3(7, 8, 9), Vector3(-1, -2.5f, 0)};
    model.normals = {Vector3(0, 0, 1), Vector3(0, 1, 0)};
    model.texCoords = {Vec2(0.25f, 0.5f)};
    model.faces.resize(2);
    model.faces[0].type = 3;
    model.faces[0].vertexIndices = {0, 1, 2, 3};
    model.faces[0].normalIndices = {0, 1, 0, 1};
    model.faces[0].texCoordIndices = {0, 0, 0, 0};
    model.faces[1].vertexIndices = {2, 1, 0};
    model.faces[1].normalIndices = {1, 1, 1};
    model.faces[1].texCoordIndices = {0, 0, 0};
    return model;
}
