// SPDX-License-Identifier: MIT
#include "tools/edit/ProcessLimits.h"

#include <cstdio>

#include <sys/resource.h>

namespace edit
{

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// The shadow memory of a sanitizer counts as data: terabytes, so that under any limit nothing more could be had.
static void LimitMemory(uint64_t) {}
#else
static void LimitMemory(uint64_t bytes)
{
    const rlimit memory = {rlim_t(bytes), rlim_t(bytes)};
    setrlimit(RLIMIT_DATA, &memory);
}
#endif

void LimitProcess(uint64_t memoryLimit)
{
    if (memoryLimit > 0)
        LimitMemory(memoryLimit);
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    if (FILE* const file = fopen("/proc/self/oom_score_adj", "w")) {
        fputs("1000", file);
        fclose(file);
    }
}

} // namespace edit
