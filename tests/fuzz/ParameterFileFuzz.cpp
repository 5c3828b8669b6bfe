// SPDX-License-Identifier: MIT
// A store that somebody has been at: every kind of value read from it, then written and read again.
#include "script/ParameterFile.h"
#include "tests/fuzz/FuzzInput.h"

#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StartFuzzInput();
    const std::string path = WriteFuzzInput("store.dep", data, size);
    ParameterFile store(path.substr(0, path.size() - 4));
    for (const char* key : {"speed", "name", "", "x"})
        for (int type = 0; type <= 4; ++type) {
            char text[ParameterTextSize] = "default";
            char shortText[7] = "short";
            store.Read(text, key, type);
            store.Read(shortText, key, ParameterText, sizeof(shortText));
            if (strlen(text) >= sizeof(text) || strlen(shortText) >= sizeof(shortText))
                abort();
        }
    int speed = 5;
    float size2 = 0.5f;
    char name[ParameterTextSize] = "waltz";
    store.ReadOrAdd(&speed, "speed", ParameterInteger);
    store.ReadOrAdd(&size2, "size", ParameterFloat);
    store.ReadOrAdd(name, "name", ParameterText);
    store.Reopen();
    store.ReadOrAdd(&speed, "speed", ParameterInteger);
    return 0;
}
