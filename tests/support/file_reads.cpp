// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/file_reads.h"

#include <sys/types.h>

#include <algorithm>
#include <cerrno>

FileReads& Reads() {
    static FileReads reads;
    return reads;
}

// The linker's --wrap sends a call of read to __wrap_read and one of __real_read to the system.
extern "C" {
ssize_t RealRead(int descriptor, void* bytes, std::size_t count) asm("__real_read");
ssize_t WrappedRead(int descriptor, void* bytes, std::size_t count) asm("__wrap_read");
ssize_t WrappedRead(int descriptor, void* bytes, std::size_t count) {
    static bool interrupted = false;
    FileReads& reads = Reads();
    interrupted = reads.everySecondIsInterrupted && !interrupted;
    if (interrupted) {
        errno = EINTR;
        return -1;
    }
    count = std::min(count, reads.maxBytesAtOnce);
    if (reads.bytesUntilError) {
        if (*reads.bytesUntilError == 0) {
            errno = EIO;
            return -1;
        }
        count = std::min(count, *reads.bytesUntilError);
    }
    const ssize_t got = RealRead(descriptor, bytes, count);
    if (reads.bytesUntilError && got > 0)
        *reads.bytesUntilError -= static_cast<std::size_t>(got);
    return got;
}
}
