// SPDX-License-Identifier: MIT
#include "platform/GLDebug.h"

#ifdef MARLINEX_DEBUG_GL

#include "platform/DebugChannel.h"

#include <GL/glew.h>
#include <SDL.h>
#include <elfutils/libdwfl.h>
#include <execinfo.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace platform
{

// The debug information of this process, read at the first error.
static Dwfl* OpenDebugInformation()
{
    static char* searchPath = nullptr;
    static const Dwfl_Callbacks callbacks = {dwfl_linux_proc_find_elf, dwfl_standard_find_debuginfo, nullptr,
                                             &searchPath};
    Dwfl* information = dwfl_begin(&callbacks);
    if (information) {
        dwfl_linux_proc_report(information, getpid());
        dwfl_report_end(information, nullptr, nullptr);
    }
    return information;
}

struct SourceLine {
    std::string file; // full path of the source file, or "" if that is not known
    int number = 0;
};

static SourceLine FindSourceLine(Dwfl* information, const void* returnAddress)
{
    const Dwarf_Addr call = reinterpret_cast<Dwarf_Addr>(returnAddress) - 1;
    SourceLine found;
    Dwfl_Line* const line = dwfl_getsrc(information, call);
    const char* const file =
        line ? dwfl_lineinfo(line, nullptr, &found.number, nullptr, nullptr, nullptr) : nullptr;
    if (!file)
        return found;
    // A relative path starts from the folder that the compiler ran in.
    const char* const folder = dwfl_line_comp_dir(line);
    found.file = (std::filesystem::path(folder ? folder : "") / file).lexically_normal().string();
    return found;
}

// Returns the innermost stack frame in a file of the project, such as "effects/FX_Clouds.cpp:120", or "" if
// that is not known. Frames of the driver and of libraries such as GLU lie between it and the error.
static std::string CallSite()
{
    static Dwfl* const information = OpenDebugInformation();
    if (!information)
        return "";
    void* addresses[64];
    const int count = backtrace(addresses, 64);
    const std::string own = FindSourceLine(information, addresses[0]).file;
    const size_t rootLength = own.rfind("platform/GLDebug.cpp");
    if (rootLength == std::string::npos)
        return "";
    for (int i = 1; i < count; ++i) {
        const SourceLine line = FindSourceLine(information, addresses[i]);
        if (line.file != own && line.file.compare(0, rootLength, own, 0, rootLength) == 0)
            return line.file.substr(rootLength) + ":" + std::to_string(line.number);
    }
    return "";
}

static void GLAPIENTRY ReportMessage(GLenum, GLenum type, GLuint, GLenum, GLsizei, const GLchar* text,
                                     const void*)
{
    if (type != GL_DEBUG_TYPE_ERROR)
        return;
    const std::string site = CallSite();
    OutputDebugText(("GL error" + (site.empty() ? "" : " at " + site) + ": " + text + "\n").c_str());
}

void ReportGLErrors()
{
    if (!SDL_GL_ExtensionSupported("GL_KHR_debug"))
        return;
    // GLEW's pointer may still be null: it is set when the window's context loads the extensions.
    const auto setCallback =
        reinterpret_cast<PFNGLDEBUGMESSAGECALLBACKPROC>(SDL_GL_GetProcAddress("glDebugMessageCallback"));
    if (!setCallback)
        return;
    glEnable(GL_DEBUG_OUTPUT);
    glEnable(GL_DEBUG_OUTPUT_SYNCHRONOUS); // keeps the failing call on the stack during the callback
    setCallback(ReportMessage, nullptr);
}

} // namespace platform

#else

namespace platform
{

void ReportGLErrors() {}

} // namespace platform

#endif
