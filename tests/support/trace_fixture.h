#pragma once

#include <gtest/gtest.h>

#include "quarn2/trace.h"

/// A test with the call trace on, which the program can switch on but never off.
class TracedTest : public testing::Test {
protected:
    TracedTest() { trace::Start(); }
    ~TracedTest() override {
        trace::tracing = false;
        trace::Frames().clear();
    }
};

/// What PrintStackTrace writes now.
inline std::string StackText() {
    testing::internal::CaptureStderr();
    PrintStackTrace();
    return testing::internal::GetCapturedStderr();
}
