// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/library_calls.h"

#include <SDL.h>

#include <sstream>

// The linker's --wrap sends a call of F to __wrap_F and one of __real_F to the library.
#define WRAPPED(result, function, ...)                               \
    result Real_##function(__VA_ARGS__) asm("__real_" #function);    \
    result Wrapped_##function(__VA_ARGS__) asm("__wrap_" #function); \
    result Wrapped_##function(__VA_ARGS__)

LibraryCalls& Calls() {
    static LibraryCalls calls;
    return calls;
}

namespace {

template <typename... Arguments>
void Note(const char* function, const Arguments&... arguments) {
    std::ostringstream entry;
    [[maybe_unused]] const char* separator = "";
    entry << function << '(';
    ((entry << separator << arguments, separator = ", "), ...);
    entry << ')';
    Calls().journal.push_back(entry.str());
}

bool Fails(const char* function) {
    if (!Calls().failing.contains(function))
        return false;
    SDL_SetError("%s", kFailure);
    return true;
}

}  // namespace

extern "C" {

WRAPPED(Uint32, SDL_GetTicks) {
    return Calls().ticks ? *Calls().ticks : Real_SDL_GetTicks();
}

WRAPPED(int, SDL_Init, Uint32 flags) {
    Note("SDL_Init", flags);
    return Fails("SDL_Init") ? -1 : Real_SDL_Init(flags);
}

WRAPPED(int, SDL_InitSubSystem, Uint32 flags) {
    Note("SDL_InitSubSystem", flags);
    return Fails("SDL_InitSubSystem") ? -1 : Real_SDL_InitSubSystem(flags);
}

WRAPPED(void, SDL_QuitSubSystem, Uint32 flags) {
    Note("SDL_QuitSubSystem", flags);
    Real_SDL_QuitSubSystem(flags);
}

WRAPPED(void, SDL_Quit) {
    Note("SDL_Quit");
    Real_SDL_Quit();
}

WRAPPED(int, SDL_EnableUNICODE, int enable) {
    Note("SDL_EnableUNICODE", enable);
    return Real_SDL_EnableUNICODE(enable);
}

WRAPPED(int, SDL_ShowCursor, int toggle) {
    Note("SDL_ShowCursor", toggle);
    return Real_SDL_ShowCursor(toggle);
}

WRAPPED(void, SDL_WarpMouse, Uint16 x, Uint16 y) {
    Note("SDL_WarpMouse", x, y);
    Real_SDL_WarpMouse(x, y);
}

WRAPPED(const SDL_VideoInfo*, SDL_GetVideoInfo) {
    Note("SDL_GetVideoInfo");
    if (Fails("SDL_GetVideoInfo"))
        return nullptr;
    static SDL_VideoInfo info;
    info = *Real_SDL_GetVideoInfo();
    info.blit_hw = Calls().hardwareBlits ? 1 : 0;
    return &info;
}

WRAPPED(int, SDL_GL_SetAttribute, SDL_GLattr attribute, int value) {
    Note("SDL_GL_SetAttribute", attribute, value);
    return Real_SDL_GL_SetAttribute(attribute, value);
}

WRAPPED(SDL_Surface*, SDL_SetVideoMode, int width, int height, int bpp, Uint32 flags) {
    Note("SDL_SetVideoMode", width, height, bpp, flags);
    if (Fails("SDL_SetVideoMode"))
        return nullptr;
    SDL_Surface* const surface = Real_SDL_SetVideoMode(width, height, bpp, flags);
    if (surface != nullptr && Calls().afterVideoMode)
        Calls().afterVideoMode();
    return surface;
}

WRAPPED(Uint8, SDL_EventState, Uint8 type, int state) {
    Note("SDL_EventState", static_cast<int>(type), state);
    return Real_SDL_EventState(type, state);
}

WRAPPED(void, SDL_WM_SetCaption, const char* title, const char* icon) {
    Note("SDL_WM_SetCaption", title, icon == nullptr ? "null" : icon);
    Real_SDL_WM_SetCaption(title, icon);
}

WRAPPED(void, SDL_GL_SwapBuffers) {
    Note("SDL_GL_SwapBuffers");
    Real_SDL_GL_SwapBuffers();
}

WRAPPED(unsigned, glewInit) {
    Note("glewInit");
    return Calls().loaderResult ? *Calls().loaderResult : Real_glewInit();
}

}  // extern "C"
