// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Part of every program of tests. A test that ends the process would otherwise hide the tests after
// it, and with status 0 CTest would take that for success.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

namespace {

// A test that expects the end of a process forks, or starts the program again, which inherits this.
constexpr const char* kStarted = "MEROVINSKA_TESTS_STARTED";

pid_t process = 0;
bool running = false;

void ReportEarlyEnd() {
    if (!running || getpid() != process)
        return;
    std::cerr << "The process ended before the last test";
    if (const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info())
        std::cerr << ", in " << test->test_suite_name() << '.' << test->name();
    std::cerr << std::endl;
    _exit(EXIT_FAILURE);
}

class EarlyEnd : public testing::EmptyTestEventListener {
    void OnTestProgramStart(const testing::UnitTest&) override {
        if (std::getenv(kStarted) != nullptr)
            return;
        setenv(kStarted, "yes", 1);
        process = getpid();
        running = true;
        std::atexit(ReportEarlyEnd);
    }
    void OnTestProgramEnd(const testing::UnitTest&) override { running = false; }
};

[[maybe_unused]] const bool registered = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new EarlyEnd);
    return true;
}();

}  // namespace
