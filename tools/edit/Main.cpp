// SPDX-License-Identifier: MIT
// marlinex-edit: the show where it is written, as picture, sound and timeline.
#include "tools/edit/Program.h"

int main(int argc, char** argv)
{
    return edit::RunProgram(argc, argv);
}
