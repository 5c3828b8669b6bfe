// SPDX-License-Identifier: MIT
// Stands in front of three functions of the image library: this executable's definitions win over the
// library's.
#include "tests/resources/ImageLibrary.h"

#include <IL/il.h>
#include <IL/ilu.h>
#include <dlfcn.h>

#include <gtest/gtest.h>

#include <csignal>

#include <sys/mman.h>
#include <unistd.h>

static int ilVersion = 0;
static int iluVersion = 0;
static ChildFate childFate = ChildLives;

static pid_t* SharedProcess()
{
    static void* const page =
        mmap(nullptr, sizeof(pid_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return static_cast<pid_t*>(page);
}

void SetImageLibraryVersions(int il, int ilu)
{
    ilVersion = il;
    iluVersion = ilu;
}

void SetChildFate(ChildFate fate)
{
    SharedProcess(); // made before there is a child
    childFate = fate;
}

pid_t LastForeignDecoder()
{
    return *SharedProcess();
}

typedef ILint (*GetInteger)(ILenum);

extern "C" {

ILint ilGetInteger(ILenum mode)
{
    static const GetInteger real = reinterpret_cast<GetInteger>(dlsym(RTLD_NEXT, "ilGetInteger"));
    return mode == 0xDE2 && ilVersion ? ilVersion : real(mode);
}

ILint iluGetInteger(ILenum mode)
{
    static const GetInteger real = reinterpret_cast<GetInteger>(dlsym(RTLD_NEXT, "iluGetInteger"));
    return mode == 0xDE2 && iluVersion ? iluVersion : real(mode);
}

ILenum ilDetermineType(ILconst_string path)
{
    typedef ILenum (*Function)(ILconst_string);
    static const Function real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "ilDetermineType"));
    *SharedProcess() = getpid();
    switch (childFate) {
    case ChildLives:
        break;
    case ChildCrashes:
        raise(SIGKILL);
        break;
    case ChildExits:
        _exit(0);
    case ChildHangs:
        for (;;)
            pause();
    }
    return real(path);
}

} // extern "C"

TEST(ImageLibrary, TheOneThatIsLinkedIsRecentEnough)
{
    EXPECT_GE(ilGetInteger(IL_VERSION_NUM), 167);
    EXPECT_GE(iluGetInteger(ILU_VERSION_NUM), 167);
}
