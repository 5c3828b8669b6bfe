// SPDX-License-Identifier: MIT
#include "display/RenderTarget.h"

#include "display/GLWindow.h"
#include "platform/WindowSystem.h"

#include <GL/glew.h>

#include <GL/glu.h>

using platform::Windows;

static const float returnLetterbox = 0.9f;
static const float targetNear = 0.1f;
static const float targetFar = 2000.0f;

static GLWindow* window = nullptr;
static platform::DeviceContext mainDeviceContext = nullptr;
static platform::ContextHandle mainContext = nullptr;
static platform::ContextHandle targetContext = nullptr;
static GLuint framebuffer = 0; // of the target's context, since framebuffer objects are not shared
static GLuint depthBuffer = 0;
static GLuint texture = 0;
static int width = 0;
static int height = 0;
static bool initialised = false;

// Discards the error that the show may have provoked before, so that what follows starts without one.
static void DiscardError()
{
    glGetError();
}

static bool FramebuffersAvailable()
{
    return glGenFramebuffers && glBindFramebuffer && glFramebufferTexture2D && glFramebufferRenderbuffer &&
           glCheckFramebufferStatus && glDeleteFramebuffers && glGenRenderbuffers && glBindRenderbuffer &&
           glRenderbufferStorage && glDeleteRenderbuffers;
}

static void MakeTexture()
{
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
}

// Call with the target's context current. The framebuffer stays bound in it.
static bool MakeFramebuffer()
{
    glGenRenderbuffers(1, &depthBuffer);
    glBindRenderbuffer(GL_RENDERBUFFER, depthBuffer);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT24, width, height);
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, depthBuffer);
    glViewport(0, 0, width, height); // a new context starts with the size of the window that it was made on
    return glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

bool RenderTarget::Create(GLWindow* newWindow, int newWidth, int newHeight)
{
    window = newWindow;
    if (initialised)
        Destroy();
    width = newWidth;
    height = newHeight;

    mainDeviceContext = Windows().getCurrentDevice();
    mainContext = Windows().getCurrentContext();
    if (!mainDeviceContext || !mainContext || !FramebuffersAvailable())
        return false;

    targetContext = Windows().createContext(mainDeviceContext, mainContext);
    if (!targetContext)
        return false;
    MakeTexture();
    glFlush(); // the texture must exist before the other context uses it

    if (!Windows().makeCurrent(mainDeviceContext, targetContext))
        return false;
    const bool complete = MakeFramebuffer();
    Windows().makeCurrent(mainDeviceContext, mainContext);
    initialised = complete;
    return complete;
}

void RenderTarget::Begin()
{
    DiscardError();
    if (!initialised)
        return;
    glFlush();
    Windows().makeCurrent(mainDeviceContext, targetContext);
    glDrawBuffer(GL_COLOR_ATTACHMENT0);
    glReadBuffer(GL_COLOR_ATTACHMENT0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    DiscardError();
}

void RenderTarget::SetProjection(int forWidth, int forHeight, float fovY)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(fovY, float(forWidth) / float(forHeight), targetNear, targetFar);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glViewport(0, 0, forWidth, forHeight);
}

void RenderTarget::End()
{
    if (!initialised)
        return;
    DiscardError();
    glFlush(); // the drawing must be done before the window samples it
    Windows().makeCurrent(mainDeviceContext, mainContext);
    DiscardError();
    glDrawBuffer(GL_BACK);
    glReadBuffer(GL_BACK);
    DiscardError();
    // This band is set whatever band was in force before Begin.
    window->SetLetterbox(returnLetterbox);
    DiscardError();
}

void RenderTarget::BindTexture()
{
    if (!initialised)
        return;
    DiscardError();
    glBindTexture(GL_TEXTURE_2D, texture);
    DiscardError();
}

void RenderTarget::ReleaseTexture()
{
    // The colour buffer of a framebuffer object is the texture itself, so there is nothing to release.
    // Other kinds of off-screen surfaces need the call, so callers keep to the order of use.
}

void RenderTarget::Destroy()
{
    if (!initialised)
        return;
    ReleaseTexture();
    Windows().makeCurrent(mainDeviceContext, targetContext);
    glDeleteFramebuffers(1, &framebuffer);
    glDeleteRenderbuffers(1, &depthBuffer);
    Windows().makeCurrent(mainDeviceContext, mainContext);
    initialised = false;
}
