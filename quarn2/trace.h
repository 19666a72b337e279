// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <vector>

/// The call trace: off until the program's first step switches it on, then on for the
/// rest of the run.
namespace trace {

/// One recorded call. Both names are string literals; they are joined only when printed.
struct Frame {
    const char* function;
    const char* className;  ///< empty for a free function
};

/// Whether calls are recorded.
inline bool tracing = false;

/// The frames, oldest first. Never destroyed, so that static objects may still be traced
/// while the process ends.
inline std::vector<Frame>& Frames() {
    static std::vector<Frame>& frames = *new std::vector<Frame>;
    return frames;
}

/// Switches tracing on. Calls that began earlier are not recorded, and their end removes nothing.
void Start();

}  // namespace trace

/// Records the enclosing call as long as it runs, however it ends.
/// Both arguments must be string literals. Allocates nothing.
class TraceFrame {
public:
    /// @param className  empty for a free function
    TraceFrame(const char* function, const char* className) {
        if (trace::tracing)
            trace::Frames().push_back({function, className});
    }
    ~TraceFrame() {
        if (trace::tracing && !trace::Frames().empty())
            trace::Frames().pop_back();
    }
    TraceFrame(const TraceFrame&) = delete;
    TraceFrame& operator=(const TraceFrame&) = delete;
};

/// Writes the frames to standard error, innermost first, as "#3: Kernel::MainLoop".
/// @return true
bool PrintStackTrace();

/// Installs the crash report for SIGQUIT, SIGHUP, SIGINT, SIGILL, SIGABRT and SIGSEGV.
/// @return true
bool InstallSignalHandlers();

/// Reports the signal and the stack on standard error and exits with status 1.
[[noreturn]] void SignalHandler(int signal);

[[noreturn]] void AssertFailed(const char* file, int line, const char* expression);

/// Ends the program with a report and status 0 unless `condition` holds. The file and line
/// are part of the message and are given as text, so that they stay when code moves.
inline void Assert(const char* file, int line, const char* expression, bool condition) {
    if (!condition) [[unlikely]]
        AssertFailed(file, line, expression);
}
