// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/exitguard.h"

#include <cstdlib>

#include "tools/guiview/status.h"

namespace guiview {

namespace {

bool guarded = false;

void EndUnusable() {
    if (guarded)
        std::_Exit(kUnusable);
}

}  // namespace

ExitGuard::ExitGuard() {
    guarded = true;
    std::atexit(EndUnusable);
}

ExitGuard::~ExitGuard() {
    guarded = false;
}

}  // namespace guiview
