// SPDX-License-Identifier: MIT
#include "tools/edit/ShowHost.h"

#include <cstring>

#include <unistd.h>

namespace edit
{

const char* const ShowHostArgument = "--show-host";

bool IsShowHost(int argumentCount, const char* const* arguments)
{
    return argumentCount == 2 && strcmp(arguments[1], ShowHostArgument) == 0;
}

void RunShowHost()
{
    _exit(0);
}

} // namespace edit
