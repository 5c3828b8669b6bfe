// SPDX-License-Identifier: MIT
// The uniforms of a GLSLShader, members of the effect. Init once, after the shader's Load; Set between
// Enable and Disable. They hold the location alone and keep no link to the shader. Before Init, or after one
// with a bad size, Set does nothing, which is why a shader that never loaded needs no test. A uniform that
// the program does not have gets location -1, which GL ignores.
#pragma once

#include "resources/GLSLShader.h"

#include <string>

class GLSLUniform
{
public:
    // size: components, 1 to 4; what it is of a matrix stands there.
    void Init(GLSLShader* shader, std::string name, int size);

    int valid = 0;
    int size = 0;
    GLint location = -1;

protected:
    bool CanSet(const void* values, int largestSize) const;
};

// Set takes as many numbers as components; false if nothing was set.
class GLSLUniformFloat : public GLSLUniform
{
public:
    bool Set(const float* values);
};

class GLSLUniformInt : public GLSLUniform
{
public:
    bool Set(const int* values);
};

// Square matrices, column-major. size is one below the dimension: 1 for 2x2, 2 for 3x3, 3 for 4x4. Init takes
// 4, too, but nothing is set then.
class GLSLUniformMatrix : public GLSLUniform
{
public:
    bool Set(const float* values);
};

class GLSLUniformSampler
{
public:
    void Init(GLSLShader* shader, std::string name);
    void Set(int unit); // number of the texture unit, from 0

    int valid = 0;
    GLint location = -1;
};
