// SPDX-License-Identifier: MIT
// Sources of both shader families, as far as our own hands touch them: the GL is the recorder.
#include "platform/Paths.h"
#include "resources/GLSLShader.h"
#include "resources/ShaderProgram.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/support/recorder/GLRecorder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StartFuzzInput();
    gl::Reset();
    const uint32_t choice = TakeFuzzNumber(data, &size);
    const size_t half = size / 2;
    WriteFuzzInput("fuzz.vp", data, half);
    WriteFuzzInput("fuzz.fp", data + half, size - half);
    delete ShaderProgram::Load(choice & 1 ? "" : "data/fuzz.vp", choice & 2 ? "" : "data/fuzz.fp");
    if (choice % 64 == 5) { // it leaves its files open on purpose, so not too often
        GLSLShader shader;
        shader.Load("fuzz", "fuzz");
        shader.Enable();
    }
    return 0;
}
