// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <streambuf>

/// One input, of any bytes. Each target defines it; libFuzzer and the tests call it. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the process so that libFuzzer reports the input.
inline void Require(bool condition) {
    if (!condition)
        std::abort();
}

/// Drops what is written to standard error as long as the object lives. Writing it would take
/// most of the time.
class QuietErrors {
public:
    QuietErrors();
    ~QuietErrors();
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    std::streambuf* before;
};

/// Thrown by a failed assertion instead of ending the process, because a bad file may lead to one.
struct AssertionFailure {};
