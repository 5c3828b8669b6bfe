// SPDX-License-Identifier: MIT
// The uniforms of a GLSLShader, members of the effect. Init once, after the shader's Load; Set between
// Enable and Disable. They hold the location alone and keep no link to the shader. Before Init, or after one
// with a bad size, Set does nothing, which is why a shader that never loaded needs no test. A uniform that
// the program does not have gets location -1, which GL ignores.
#pragma once

#include "resources/GLSLShader.h"

#include <string>

class GLSLUniformFloat
{
public:
    void Init(GLSLShader* shader, std::string name, int size); // size: components, 1 to 4
    bool Set(const float* values);                             // size floats; false if nothing was set

    int valid = 0;
    int size = 0;
    GLint location = -1;
};

class GLSLUniformInt
{
public:
    void Init(GLSLShader* shader, std::string name, int size); // size: components, 1 to 4
    bool Set(const int* values);                               // size ints; false if nothing was set

    int valid = 0;
    int size = 0;
    GLint location = -1;
};

// Square matrices, column-major. size is one below the dimension: 1 for 2x2, 2 for 3x3, 3 for 4x4. Init takes
// 4, too, but nothing is set then.
class GLSLUniformMatrix
{
public:
    void Init(GLSLShader* shader, std::string name, int size);
    bool Set(const float* values); // false if nothing was set

    int valid = 0;
    int size = 0;
    GLint location = -1;
};

class GLSLUniformSampler
{
public:
    void Init(GLSLShader* shader, std::string name);
    void Set(int unit); // number of the texture unit, from 0

    int valid = 0;
    GLint location = -1;
};
