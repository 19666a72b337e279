// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "fuzz/target.h"

#include <iostream>

namespace {

class Nowhere : public std::streambuf {
protected:
    int overflow(int character) override { return character == EOF ? 0 : character; }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

}  // namespace

QuietErrors::QuietErrors() {
    static Nowhere nowhere;
    before = std::cerr.rdbuf(&nowhere);
}

QuietErrors::~QuietErrors() {
    std::cerr.rdbuf(before);
}
