// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/glrender.h"

#include <GL/gl.h>
#include <GL/glu.h>
#include <SDL.h>

#include <iostream>

#include "quarn2/extensionloader.h"
#include "quarn2/queuepass.h"
#include "quarn2/trace.h"

namespace {

constexpr std::uint32_t kChannels = 0x32;  // 1, 4 and 5
constexpr std::uint32_t kPriority = 700;

constexpr double kFieldOfView = 45.0;  // degrees, vertical
constexpr double kNearPlane = 1.0;
constexpr double kFarPlane = 10000.0;

bool FailWith(const char* what) {
    std::cerr << what << SDL_GetError() << '\n';
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    return false;
}

/// Switches off the events that nobody reads. Every pass would put them back, until they fill
/// the queue and leave no room for input. Opening a window switches them on again.
void IgnoreUnreadEvents() {
    constexpr Uint8 kUnread[] = {SDL_ACTIVEEVENT,  SDL_JOYAXISMOTION, SDL_JOYBALLMOTION,
                                 SDL_JOYHATMOTION, SDL_JOYBUTTONDOWN, SDL_JOYBUTTONUP,
                                 SDL_SYSWMEVENT,   SDL_VIDEORESIZE};
    for (const Uint8 type : kUnread)
        SDL_EventState(type, SDL_IGNORE);
}

void SetUpOpenGL(std::int32_t width, std::int32_t height) {
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    // A new context starts with the identity.
    gluPerspective(kFieldOfView, static_cast<double>(width) / height, kNearPlane, kFarPlane);
    glMatrixMode(GL_MODELVIEW);
    // Pure blue shows where nothing was drawn.
    glClearColor(0.0f, 0.0f, 1.0f, 0.0f);
}

}  // namespace

GLRender::GLRender(const Pointer<Kernel>& newKernel) : EventCatcher(nullptr) {
    TraceFrame frame("GLRender", "GLRender");
    Assert("glrender", 158, "k", !!newKernel);
    newKernel->AddChild(this, kChannels, kPriority);
}

bool GLRender::GotEvent(Event ev) {
    TraceFrame frame("GotEvent", "GLRender");
    switch (ev.type) {
    case UpdateEvent:
        return Update();
    case RenderEvent:
        return Render();
    case OpenWindowEvent:
        return OpenWindow(ev.caption, ev.width, ev.height, ev.bpp, ev.fullscreen);
    case QuitEvent:
        return Close();
    default:
        return true;
    }
}

bool GLRender::OpenWindow(const std::string& caption, std::int32_t width, std::int32_t height,
                          std::int32_t bpp, bool fullscreen) {
    TraceFrame frame("OpenWindow", "GLRender");
    if (SDL_WasInit(SDL_INIT_VIDEO) == 0
        && SDL_InitSubSystem(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE) < 0)
        return FailWith("SDL_Init() failed. SDL Error: ");
    SDL_ShowCursor(fullscreen ? SDL_DISABLE : SDL_ENABLE);
    const SDL_VideoInfo* const info = SDL_GetVideoInfo();
    if (info == nullptr)
        return FailWith("SDL_GetVideoInfo() failed. SDL Error: ");

    std::uint32_t flags = SDL_OPENGL | SDL_HWSURFACE | SDL_ASYNCBLIT | SDL_HWPALETTE;
    if (fullscreen)
        flags |= SDL_FULLSCREEN;
    if (info->blit_hw != 0)
        flags |= SDL_HWACCEL;
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    if (SDL_SetVideoMode(width, height, bpp, flags) == nullptr)
        return FailWith("SDL_SetVideoMode() Failed. SDL_Error: ");
    IgnoreUnreadEvents();
    SDL_WM_SetCaption(caption.c_str(), nullptr);
    SetUpOpenGL(width, height);
    return InitExtensionLoader();
}

bool GLRender::Update() {
    TraceFrame frame("Update", "GLRender");
    QueuePass pass;
    for (SDL_Event event; pass.Next(event);) {
        if (event.type == SDL_QUIT)
            return false;  // kept: the events taken before it are lost
        pass.Keep(event);
    }
    pass.PutBack();
    return true;
}

bool GLRender::Render() {
    TraceFrame frame("Render", "GLRender");
    // There is no window after a quit event that did not end the run.
    if (SDL_GetVideoSurface() != nullptr)
        SDL_GL_SwapBuffers();
    return true;
}

std::uint32_t GLRender::Exposures() {
    return QueuePass::Exposures();
}

bool GLRender::Close() {
    TraceFrame frame("Close", "GLRender");
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    return true;
}
