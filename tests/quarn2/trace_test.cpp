// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/trace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

#include "tests/support/allocations.h"
#include "tests/support/trace_fixture.h"

namespace {

class TraceTest : public TracedTest {};

TEST(TraceOffTest, NothingIsRecordedOrPrintedBeforeTracingIsOn) {
    const TraceFrame frame("Init", "App");
    EXPECT_EQ(StackText(), "");
    EXPECT_TRUE(trace::Frames().empty());
}

TEST_F(TraceTest, StackIsPrintedWithTheInnermostCallFirstAndNumberedByDepth) {
    const TraceFrame program("main", "");
    const TraceFrame init("Init", "App");
    const TraceFrame loop("MainLoop", "Kernel");
    EXPECT_EQ(StackText(), "#3: Kernel::MainLoop\n#2: App::Init\n#1: ::main\n");
}

TEST_F(TraceTest, PrintingTheStackSucceedsAndLeavesItAlone) {
    const TraceFrame program("main", "");
    testing::internal::CaptureStderr();
    EXPECT_TRUE(PrintStackTrace());
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(StackText(), "#1: ::main\n");
}

TEST_F(TraceTest, ReturningPopsTheFrame) {
    const TraceFrame program("main", "");
    { const TraceFrame left("Init", "App"); }
    const TraceFrame next("Quit", "App");
    EXPECT_EQ(StackText(), "#2: App::Quit\n#1: ::main\n");
}

TEST_F(TraceTest, FunctionThatThrowsPopsItsFrame) {
    const TraceFrame program("main", "");
    try {
        const TraceFrame thrower("Load", "Texture");
        throw std::runtime_error("left");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(StackText(), "#1: ::main\n");
}

void Recurse(int depth) {
    const TraceFrame frame("Recurse", "");
    if (depth > 1) {
        Recurse(depth - 1);
    } else {
        PrintStackTrace();
    }
}

TEST_F(TraceTest, RecursionIsOnTheStackOncePerActiveCall) {
    testing::internal::CaptureStderr();
    Recurse(3);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "#3: ::Recurse\n#2: ::Recurse\n#1: ::Recurse\n");
    EXPECT_EQ(StackText(), "");
}

TEST(TraceOffTest, FramesOpenedBeforeTracingIsOnPopNothing) {
    {
        const TraceFrame early("main", "");
        trace::Start();
        { const TraceFrame inner("Init", "App"); }
        EXPECT_TRUE(trace::Frames().empty());
    }
    EXPECT_TRUE(trace::Frames().empty());
    trace::tracing = false;
}

TEST_F(TraceTest, FramesAndAssertionsThatHoldAllocateNothing) {
    const std::size_t before = AllocationCount();
    for (int call = 0; call < 100; ++call) {
        const TraceFrame outer("a function whose name is too long for a short string", "Class");
        const TraceFrame inner("MainLoop", "Kernel");
        Assert("a file whose name is too long for a short string", 1, "expression", true);
    }
    EXPECT_EQ(AllocationCount(), before);
}

TEST_F(TraceTest, DeepRecursionIsRecordedCompletely) {
    std::string expected;
    for (int number = 5000; number > 0; --number)
        expected += "#" + std::to_string(number) + ": ::Recurse\n";
    testing::internal::CaptureStderr();
    Recurse(5000);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), expected);
}

TEST(AssertTest, HoldingAssertionDoesNothing) {
    testing::internal::CaptureStderr();
    Assert("kernel", 177, "ev", true);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(AssertTest, FailureBeforeTracingIsOnPrintsOneLineAndExitsWithStatusZero) {
    EXPECT_EXIT(Assert("sdlinput", 107, "Kern", false), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on sdlinput:107 - \"Kern\"\n"));
}

TEST_F(TraceTest, FailedAssertionPrintsTheStackWithoutAHeading) {
    const TraceFrame program("main", "");
    const TraceFrame init("Init", "App");
    EXPECT_EXIT(Assert("quarn2/memory", 34, "!shutdown", false), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on quarn2/memory:34 - \"!shutdown\"\n"
                            "#2: App::Init\n"
                            "#1: ::main\n"));
}

TEST(AssertTest, QuotesInTheExpressionArePrintedAsTheyAre) {
    EXPECT_EXIT(Assert("kernel", 177, "\"Undefined event\" && 0", false),
                testing::ExitedWithCode(0),
                testing::Eq("Assert failed on kernel:177 - \"\"Undefined event\" && 0\"\n"));
}

struct CaughtSignal {
    int number;
    const char* name;
    const char* line;
};

class CaughtSignalTest : public testing::TestWithParam<CaughtSignal> {};

TEST_P(CaughtSignalTest, IsReportedWithTheStackAndEndsWithStatusOne) {
    const auto crash = [] {
        trace::Start();
        const TraceFrame program("main", "");
        const TraceFrame init("Init", "App");
        if (!InstallSignalHandlers())
            std::_Exit(2);
        const TraceFrame loop("MainLoop", "Kernel");
        std::raise(GetParam().number);
    };
    EXPECT_EXIT(crash(), testing::ExitedWithCode(1),
                testing::Eq(std::string(GetParam().line)
                            + "\nStack Trace:\n#3: Kernel::MainLoop\n#2: App::Init\n#1: ::main\n"));
}

INSTANTIATE_TEST_SUITE_P(
    All, CaughtSignalTest,
    testing::Values(
        CaughtSignal{SIGQUIT, "Quit", "Caught signal SIGQUIT - Terminal quit (POSIX)"},
        CaughtSignal{SIGHUP, "Hangup", "Caught signal SIGHUP - Hangup (POSIX)"},
        CaughtSignal{SIGINT, "Interrupt", "Caught signal SIGINT - Terminal interrupt (ANSI)"},
        CaughtSignal{SIGILL, "Illegal", "Caught signal SIGILL - Illegal instruction (ANSI)"},
        CaughtSignal{SIGABRT, "Abort", "Caught signal SIGIOT - IOT Trap (4.2 BSD)"},
        CaughtSignal{SIGSEGV, "Segment",
                     "Caught signal SIGSEGV - Invalid memory segment access (ANSI)"}),
    [](const auto& signal) { return signal.param.name; });

TEST(SignalTest, ForbiddenMemoryAccessIsReported) {
    const auto crash = [] {
        InstallSignalHandlers();
        void* const page = mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        *static_cast<volatile char*>(page) = 1;
    };
    EXPECT_EXIT(crash(), testing::ExitedWithCode(1),
                testing::Eq("Caught signal SIGSEGV - Invalid memory segment access (ANSI)\n"));
}

TEST(SignalTest, AbortIsReportedAsSigiot) {
    const auto crash = [] {
        InstallSignalHandlers();
        std::abort();
    };
    EXPECT_EXIT(crash(), testing::ExitedWithCode(1),
                testing::Eq("Caught signal SIGIOT - IOT Trap (4.2 BSD)\n"));
}

// An exit handler may wait for a lock that the interrupted code holds.
TEST(SignalTest, ExitHandlersDoNotRunAfterASignal) {
    const auto crash = [] {
        std::atexit([] { std::cerr << "exit handler\n"; });
        InstallSignalHandlers();
        std::raise(SIGINT);
    };
    EXPECT_EXIT(crash(), testing::ExitedWithCode(1),
                testing::Eq("Caught signal SIGINT - Terminal interrupt (ANSI)\n"));
}

TEST(SignalTest, OtherSignalsKeepTheirDefaultAction) {
    const auto end = [](int number) {
        InstallSignalHandlers();
        std::raise(number);
    };
    EXPECT_EXIT(end(SIGTERM), testing::KilledBySignal(SIGTERM), testing::Eq(""));
    EXPECT_EXIT(end(SIGUSR1), testing::KilledBySignal(SIGUSR1), testing::Eq(""));
    EXPECT_EXIT(end(SIGPIPE), testing::KilledBySignal(SIGPIPE), testing::Eq(""));
}

TEST_F(TraceTest, SignalWithoutANamePrintsOnlyTheStack) {
    const TraceFrame program("main", "");
    EXPECT_EXIT(SignalHandler(31), testing::ExitedWithCode(1),
                testing::Eq("Stack Trace:\n#1: ::main\n"));
    EXPECT_EXIT(SignalHandler(0), testing::ExitedWithCode(1),
                testing::Eq("Stack Trace:\n#1: ::main\n"));
}

TEST(SignalTest, EverySignalHasItsNameAndDescription) {
    const char* const kSignals[] = {
        "SIGHUP - Hangup (POSIX)",
        "SIGINT - Terminal interrupt (ANSI)",
        "SIGQUIT - Terminal quit (POSIX)",
        "SIGILL - Illegal instruction (ANSI)",
        "SIGTRAP - Trace trap (POSIX)",
        "SIGIOT - IOT Trap (4.2 BSD)",
        "SIGBUS - BUS error (4.2 BSD)",
        "SIGFPE - Floating point exception (ANSI)",
        "SIGKILL - Kill(can't be caught or ignored) (POSIX)",
        "SIGUSR1 - User defined signal 1 (POSIX)",
        "SIGSEGV - Invalid memory segment access (ANSI)",
        "SIGUSR2 - User defined signal 2 (POSIX)",
        "SIGPIPE - Write on a pipe with no reader, Broken pipe (POSIX)",
        "SIGALRM - Alarm clock (POSIX)",
        "SIGTERM - Termination (ANSI)",
        "SIGSTKFLT - Stack fault",
        "SIGCHLD - Child process has stopped or exited, changed (POSIX)",
        "SIGCONT - Continue executing, if stopped (POSIX)",
        "SIGSTOP - Stop executing(can't be caught or ignored) (POSIX)",
        "SIGTSTP - Terminal stop signal (POSIX)",
        "SIGTTIN - Background process trying to read, from TTY (POSIX)",
        "SIGTTOU - Background process trying to write, to TTY (POSIX)",
        "SIGURG - Urgent condition on socket (4.2 BSD)",
        "SIGXCPU - CPU limit exceeded (4.2 BSD)",
        "SIGXFSZ - File size limit exceeded (4.2 BSD)",
        "SIGVTALRM - Virtual alarm clock (4.2 BSD)",
        "SIGPROF - Profiling alarm clock (4.2 BSD)",
        "SIGWINCH - Window size change (4.3 BSD, Sun)",
        "SIGIO - I/O now possible (4.2 BSD)",
        "SIGPWR - Power failure restart (System V)",
    };
    int number = 1;
    for (const char* const signal : kSignals) {
        EXPECT_EXIT(SignalHandler(number), testing::ExitedWithCode(1),
                    testing::Eq(std::string("Caught signal ") + signal + '\n'));
        ++number;
    }
    EXPECT_EQ(number, 31);
}

}  // namespace
