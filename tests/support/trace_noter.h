// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "quarn2/trace.h"

/// The call trace now, innermost call first, such as "Texture::Load".
inline std::vector<std::string> CurrentCalls() {
    std::vector<std::string> calls;
    for (const trace::Frame& frame : trace::Frames())
        calls.insert(calls.begin(), std::string(frame.className) + "::" + frame.function);
    return calls;
}

/// Replaces the buffer of standard error and records the call trace of the first write.
class TraceNoter : public std::streambuf {
public:
    TraceNoter() : before(std::cerr.rdbuf(this)) {}
    ~TraceNoter() override { std::cerr.rdbuf(before); }

    std::vector<std::string> calls;

protected:
    std::streamsize xsputn(const char*, std::streamsize count) override {
        if (calls.empty())
            calls = CurrentCalls();
        return count;
    }
    int overflow(int character) override { return character; }

private:
    std::streambuf* before;  // not owned
};
