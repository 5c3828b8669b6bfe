// SPDX-License-Identifier: MIT
#include "tools/edit/RecoveryFile.h"

#include <cstdlib>

namespace edit
{

RecoveryFile::RecoveryFile() : lock(-1) {}

RecoveryFile::~RecoveryFile()
{
    Remove();
}

std::string RecoveryFile::Folder()
{
    const char* const state = getenv("XDG_STATE_HOME");
    if (state && state[0] == '/')
        return std::string(state) + "/marlinex";
    const char* const home = getenv("HOME");
    return std::string(home ? home : "") + "/.local/state/marlinex";
}

bool RecoveryFile::Open(const std::string&, std::string*)
{
    return true;
}

bool RecoveryFile::Write(const std::string&, std::string*)
{
    return true;
}

void RecoveryFile::Clear() {}

void RecoveryFile::Remove() {}

bool RecoveryFile::Find(const std::string&, Recovery*)
{
    return false;
}

void RecoveryFile::Discard(const Recovery&) {}

} // namespace edit
