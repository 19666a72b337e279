// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Part of every program of the sanitizer build. The OpenGL driver is unloaded with its window, and
// what it leaked could no longer be told from our own leaks: no library is unloaded there.
#include <dlfcn.h>

extern "C" int dlclose(void*) noexcept {
    return 0;
}
