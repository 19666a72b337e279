// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/event.h"

#include "quarn2/trace.h"

KeyboardEvent::KeyboardEvent() {
    TraceFrame frame("KeyboardEvent", "KeyboardEvent");
    down.fill(false);
    pressed.fill(false);
}
