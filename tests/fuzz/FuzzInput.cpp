// SPDX-License-Identifier: MIT
#include "tests/fuzz/FuzzInput.h"

#include "platform/Events.h"
#include "platform/Paths.h"
#include "platform/dialogs/MessageBoxHooks.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

struct FuzzFolder {
    FuzzFolder()
    {
        // In memory where that can be had: it is written thousands of times.
        const std::string memory = "/dev/shm";
        const bool hasMemory = access(memory.c_str(), W_OK) == 0;
        path =
            (hasMemory ? memory : std::filesystem::temp_directory_path().string()) + "/marlinex-fuzz-XXXXXX";
        if (!mkdtemp(path.data())) {
            perror(path.c_str());
            abort();
        }
        platform::SetDataDirectory(path);
    }
    ~FuzzFolder() { std::filesystem::remove_all(path); }

    std::string path;
};

std::string WriteFuzzInput(const std::string& name, const void* data, size_t size)
{
    static const FuzzFolder folder;
    const std::string path = folder.path + "/" + name;
    FILE* file = fopen(path.c_str(), "wb");
    // An empty input may come as a null pointer, which fwrite must not be given.
    if (!file || (size > 0 && fwrite(data, 1, size, file) != size) || fclose(file) != 0) {
        perror(path.c_str());
        abort();
    }
    return path;
}

std::vector<platform::MessageBox>& StartFuzzInput()
{
    static std::vector<platform::MessageBox> boxes;
    boxes.clear();
    platform::CollectMessageBoxes(&boxes);
    while (platform::TakeEvent().kind != platform::EventNone) {
    }
    return boxes;
}

uint32_t TakeFuzzNumber(const uint8_t* data, size_t* size)
{
    uint32_t number = 0;
    for (int i = 0; i < 4 && *size > 0; ++i)
        number = number << 8 | data[--*size];
    return number;
}
