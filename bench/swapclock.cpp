// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// A library for LD_PRELOAD that times a program without changing it: after each presented picture
// it appends the monotonic clock in nanoseconds, eight bytes, to the file that SWAPCLOCK names.

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>

namespace {

int OpenLog() {
    const char* path = std::getenv("SWAPCLOCK");
    return path == nullptr ? -1 : open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) void SDL_GL_SwapBuffers();

extern "C" void SDL_GL_SwapBuffers() {
    using Swap = void (*)();
    static const Swap swap = reinterpret_cast<Swap>(dlsym(RTLD_NEXT, "SDL_GL_SwapBuffers"));
    static const int log = OpenLog();
    swap();
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const std::int64_t nanoseconds = now.tv_sec * std::int64_t{1'000'000'000} + now.tv_nsec;
    if (write(log, &nanoseconds, sizeof nanoseconds) != sizeof nanoseconds)
        std::abort();
}
