// SPDX-License-Identifier: MIT
#include "tools/edit/ProcessLimits.h"

#include <cstdio>

#include <sys/resource.h>

namespace edit
{

static const int niceness = 10; // behind the window's process, which shall answer at once

void LimitProcess(uint64_t memoryLimit)
{
    if (memoryLimit > 0) {
        const rlimit memory = {rlim_t(memoryLimit), rlim_t(memoryLimit)};
        setrlimit(RLIMIT_DATA, &memory);
    }
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    setpriority(PRIO_PROCESS, 0, niceness);
    if (FILE* const file = fopen("/proc/self/oom_score_adj", "w")) {
        fputs("1000", file);
        fclose(file);
    }
}

} // namespace edit
