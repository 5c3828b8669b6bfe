// SPDX-License-Identifier: MIT
// Sources of both shader families, as far as our own hands touch them: the GL is the recorder.
#include "platform/Paths.h"
#include "resources/GLSLShader.h"
#include "resources/ShaderProgram.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/support/recorder/GLRecorder.h"

#include <unistd.h>

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
        const int first = dup(STDIN_FILENO);
        const int second = dup(STDIN_FILENO);
        close(first);
        close(second);
        GLSLShader shader;
        shader.Load("fuzz", "fuzz");
        shader.Enable();
        close(first);
        close(second);
    }
    return 0;
}
