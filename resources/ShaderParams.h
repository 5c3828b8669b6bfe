// SPDX-License-Identifier: MIT
// The uniforms of a ShaderProgram, made with new by the effect, after the program's Load. The program must
// be bound when they are set; they hold the location alone and keep no link to it. A null program, and a
// uniform that the program does not have, give location -1, which GL ignores.
#pragma once

#include "resources/ShaderProgram.h"

class ShaderFloatParam
{
public:
    ShaderFloatParam(ShaderProgram* program, const char* name);

    // count is the number of components, 1 to 4, and it is also what GL is told as the length of the array:
    // values must have room for count * count. With 1, as everywhere in this production, that is the same.
    // Null values do nothing.
    void Set(const float* values, int count);

    int size = 0; // the last count
    GLint location;
};

class ShaderIntParam
{
public:
    ShaderIntParam(ShaderProgram* program, const char* name);
    void Set(const int* values, int count); // as in ShaderFloatParam

    int size = 0;
    GLint location;
};

// Square matrices, column-major.
class ShaderMatrixParam
{
public:
    ShaderMatrixParam(ShaderProgram* program, const char* name);

    // size is the dimension, 2 to 4, and also the length of the array that GL is told: values must have
    // room for size matrices. Null values do nothing.
    void Set(const float* values, int size);

    int rows = 0; // the last size, both
    int columns = 0;
    GLint location;
};

class ShaderSampler
{
public:
    ShaderSampler(ShaderProgram* program, const char* name);
    void Set(int unit); // number of the texture unit, from 0

    GLint location;
};
