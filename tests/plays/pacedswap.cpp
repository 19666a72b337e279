// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// A library for LD_PRELOAD that limits how many pictures a game shows in a second. Without it the
// game draws as many as it can, and the games of plays that run at the same time would take the
// processor from each other.

#include <dlfcn.h>

#include <chrono>
#include <thread>

extern "C" __attribute__((visibility("default"))) void SDL_GL_SwapBuffers();

extern "C" void SDL_GL_SwapBuffers() {
    using Clock = std::chrono::steady_clock;
    using Swap = void (*)();
    static const Swap swap = reinterpret_cast<Swap>(dlsym(RTLD_NEXT, "SDL_GL_SwapBuffers"));
    constexpr std::chrono::milliseconds kPicture{50};
    static Clock::time_point last;
    swap();
    std::this_thread::sleep_until(last + kPicture);
    last = Clock::now();
}
