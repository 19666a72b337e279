// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Part of every program of the sanitizer build. The OpenGL driver is unloaded together with its
// window, and a leak of an unloaded library cannot be told from one of ours. So this keeps every
// library loaded.
#include <dlfcn.h>

extern "C" int dlclose(void*) noexcept {
    return 0;
}
