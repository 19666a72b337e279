// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "fuzz/target.h"

// Replaces AssertFailed, by the linker's --wrap.

// NOLINTNEXTLINE(bugprone-reserved-identifier): the linker chooses the name
extern "C" [[noreturn]] void __wrap__Z12AssertFailedPKciS0_(const char*, int, const char*) {
    throw AssertionFailure{};
}
