// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace guiview {

/// A program that runs beside this one, whose standard output is read here. It ends with this
/// process, whatever way that ends.
class ChildProcess {
public:
    /// @param arguments  the program, looked for on the path, and what it is given
    /// @param silent     its error stream is not shown
    ChildProcess(const std::vector<std::string>& arguments, bool silent);
    /// Ends it.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The next line, without its end.
    /// @return nothing when there is none within that time, or ever
    std::optional<std::string> ReadLine(int milliseconds);
    /// All that it writes until it ends.
    std::string ReadAll();
    /// Waits for the end. @return the exit status, or nothing when a signal ended it
    std::optional<int> Wait();

private:
    /// @return false at the end of the output
    bool ReadSome();

    pid_t process = -1;
    int output = -1;
    std::string read;
};

}  // namespace guiview
