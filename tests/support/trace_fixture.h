// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include "quarn2/trace.h"

/// Switches the call trace on as long as the object lives. The program itself cannot switch it off.
class TraceSwitch {
public:
    TraceSwitch() { trace::Start(); }
    ~TraceSwitch() {
        trace::tracing = false;
        trace::Frames().clear();
    }
    TraceSwitch(const TraceSwitch&) = delete;
    TraceSwitch& operator=(const TraceSwitch&) = delete;
};

/// A test with the call trace on.
class TracedTest : public testing::Test {
    TraceSwitch on;
};

/// What PrintStackTrace writes now.
inline std::string StackText() {
    testing::internal::CaptureStderr();
    PrintStackTrace();
    return testing::internal::GetCapturedStderr();
}
