// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/eventcatcher.h"

#include "quarn2/kernel.h"
#include "quarn2/trace.h"

EventCatcher::EventCatcher(const Pointer<Kernel>& newKernel) : kernel(newKernel) {
    TraceFrame frame("EventCatcher", "EventCatcher");
}

EventCatcher::~EventCatcher() {
    TraceFrame frame("~EventCatcher", "EventCatcher");
}
