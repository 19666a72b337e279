// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "fuzz/target.h"

#include <sys/mman.h>
#include <unistd.h>

#include <iostream>
#include <streambuf>

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

MemoryFile::MemoryFile()
    : descriptor(memfd_create("input", MFD_CLOEXEC)),
      path("/proc/self/fd/" + std::to_string(descriptor)) {
    Require(descriptor >= 0);
}

MemoryFile::~MemoryFile() {
    close(descriptor);
}

void MemoryFile::Write(std::span<const std::uint8_t> bytes) const {
    Require(ftruncate(descriptor, 0) == 0);
    Require(pwrite(descriptor, bytes.data(), bytes.size(), 0)
            == static_cast<ssize_t>(bytes.size()));
}
