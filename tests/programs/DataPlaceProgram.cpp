// SPDX-License-Identifier: MIT
// Says on stdout which data directory the show would take if it were started from here.
#include "platform/Paths.h"

#include <cstdio>

int main()
{
    platform::FindDataDirectory("moonwaltz");
    puts(platform::GetDataDirectory().c_str());
    return 0;
}
