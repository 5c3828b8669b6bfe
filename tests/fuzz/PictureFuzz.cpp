// SPDX-License-Identifier: MIT
// Pictures of every format through the decoder, and through the reader of Windows bitmaps.
#include "platform/Paths.h"
#include "resources/DibReader.h"
#include "resources/TextureLoader.h"
#include "tests/fuzz/FuzzInput.h"

#include <IL/il.h>
#include <dlfcn.h>

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

static const pid_t fuzzer = getpid();

// The first call that the decoding process makes. The library's readers are known to fail there, which is why
// there is such a process: that must not look as if the show had failed.
extern "C" ILenum ilDetermineType(ILconst_string path)
{
    typedef ILenum (*Function)(ILconst_string);
    static const Function real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "ilDetermineType"));
    if (getpid() != fuzzer) {
        for (int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
            std::signal(signal, SIG_DFL);
        if (__sanitizer_set_death_callback)
            __sanitizer_set_death_callback(nullptr);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        alarm(1); // where the library never comes back; the show gives it ten seconds
    }
    return real(path);
}

// Every byte that an upload reads is there.
static void Use(ImageData image)
{
    unsigned sum = 0;
    const size_t bytes =
        image.data ? size_t(image.width) * size_t(image.height) * size_t(image.components) : 0;
    for (size_t i = 0; i < bytes; i += i < 100000 ? 1 : 4093)
        sum += image.data[i];
    if (bytes > 0)
        sum += image.data[bytes - 1];
    if (sum == 0xFFFFFFFF)
        abort();
    FreeImage(&image);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::vector<platform::MessageBox>& boxes = StartFuzzInput();
    TextureLoader* loader = TextureLoader::GetInstance();
    WriteFuzzInput("picture", data, size);
    const ImageData image = loader->LoadImage("picture");
    if (boxes.size() != (image.data ? 0u : 1u))
        abort();
    Use(image);
    const ILuint name = ILuint(ilGetInteger(IL_CUR_IMAGE)); // the show keeps it; thousands are too many
    ilDeleteImages(1, &name);

    ImageData bitmap;
    if (ReadDib(data, size, &bitmap))
        Use(bitmap);
    return 0;
}
