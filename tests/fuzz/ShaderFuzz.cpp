// SPDX-License-Identifier: MIT
// Sources of both shader families, as far as our own hands touch them: the GL is the recorder.
#include "platform/Paths.h"
#include "resources/GLSLShader.h"
#include "resources/ShaderProgram.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/support/recorder/GLRecorder.h"

#include <cstdio>
#include <vector>

static bool keepsStreams = false;
static std::vector<FILE*> streams;

// The linker calls this in place of fdopen.
extern "C" FILE* __real_fdopen(int descriptor, const char* mode);
extern "C" FILE* __wrap_fdopen(int descriptor, const char* mode);
extern "C" FILE* __wrap_fdopen(int descriptor, const char* mode)
{
    FILE* const file = __real_fdopen(descriptor, mode);
    if (file && keepsStreams)
        streams.push_back(file);
    return file;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StartFuzzInput();
    gl::Reset();
    const uint32_t choice = TakeFuzzNumber(data, &size);
    const size_t half = size / 2;
    WriteFuzzInput("fuzz.vp", data, half);
    WriteFuzzInput("fuzz.fp", data + half, size - half);
    delete ShaderProgram::Load(choice & 1 ? "" : "data/fuzz.vp", choice & 2 ? "" : "data/fuzz.fp");
    if (choice % 64 == 5) {
        // It leaves its two files open on purpose, which a process can't bear thousands of times.
        keepsStreams = true;
        GLSLShader shader;
        shader.Load("fuzz", "fuzz");
        shader.Enable();
        keepsStreams = false;
        for (FILE* const stream : streams)
            fclose(stream);
        streams.clear();
    }
    return 0;
}
