// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <streambuf>

/// One input, of any bytes. Each target defines it; libFuzzer and the tests call it. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the process in a way that counts as a find.
inline void Require(bool condition) {
    if (!condition)
        std::abort();
}

/// Drops what is written to standard error as long as it lives. Writing it would be most of
/// what a target does.
class QuietErrors {
public:
    QuietErrors();
    ~QuietErrors();
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    std::streambuf* before;
};

/// What a failed assertion of the system throws here, instead of ending the process: it is one
/// of the ways in which a bad file may end.
struct AssertionFailure {};
