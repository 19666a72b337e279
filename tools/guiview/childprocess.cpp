// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/childprocess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace guiview {

namespace {

constexpr int kCannotStart = 127;

/// In the child: becomes the program, or ends.
[[noreturn]] void Become(char* const* arguments, int output, bool silent, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    // A parent that was gone before the call above sends no signal.
    if (getppid() == parent && nothing >= 0 && dup2(nothing, STDIN_FILENO) >= 0
        && dup2(output, STDOUT_FILENO) >= 0 && (!silent || dup2(nothing, STDERR_FILENO) >= 0))
        execvp(arguments[0], arguments);
    _exit(kCannotStart);
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, bool silent) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return;
    // Made before the fork, behind which nothing may be allocated.
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    const pid_t self = getpid();
    process = fork();
    if (process == 0)
        Become(pointers.data(), ends[1], silent, self);
    close(ends[1]);
    output = ends[0];
}

ChildProcess::~ChildProcess() {
    if (process > 0)
        kill(process, SIGTERM);
    Wait();
    if (output >= 0)
        close(output);
}

std::optional<std::string> ChildProcess::ReadLine(int milliseconds) {
    std::size_t end = 0;
    while ((end = read.find('\n')) == std::string::npos) {
        pollfd wanted{output, POLLIN, 0};
        if (poll(&wanted, 1, milliseconds) <= 0 || !ReadSome())
            return std::nullopt;
    }
    std::string line = read.substr(0, end);
    read.erase(0, end + 1);
    return line;
}

std::string ChildProcess::ReadAll() {
    while (ReadSome()) {
    }
    return std::move(read);
}

bool ChildProcess::ReadSome() {
    std::array<char, 4096> buffer;
    ssize_t count = 0;
    do {
        count = ::read(output, buffer.data(), buffer.size());
    } while (count < 0 && errno == EINTR);
    if (count <= 0)
        return false;
    read.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

std::optional<int> ChildProcess::Wait() {
    if (process <= 0)
        return std::nullopt;
    int status = 0;
    pid_t ended = 0;
    do {
        ended = waitpid(process, &status, 0);
    } while (ended < 0 && errno == EINTR);
    process = -1;
    return ended > 0 && WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

}  // namespace guiview
