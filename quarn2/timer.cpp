// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/timer.h"

#include <SDL.h>

#include <iostream>

#include "quarn2/trace.h"

Timer::Timer() {
    TraceFrame frame("Timer", "Timer");
    if (SDL_WasInit(SDL_INIT_TIMER) == 0
        && SDL_InitSubSystem(SDL_INIT_TIMER | SDL_INIT_NOPARACHUTE) < 0) {
        std::cerr << "SDL_InitSubSystem() failed. SDL Error: " << SDL_GetError() << '\n';
        SDL_QuitSubSystem(SDL_INIT_TIMER);
    }
    start = SDL_GetTicks();
}

std::uint32_t Timer::GetTime() const {
    TraceFrame frame("GetTime", "Timer");
    return SDL_GetTicks() - start;
}
