// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Registers the widget of docs/ENGINE.md before the main function of guiview begins.

#include "meter.h"

namespace {

[[maybe_unused]] const bool kRegistered = [] {
    RegisterKind(kMeterKind);
    return true;
}();

}  // namespace
