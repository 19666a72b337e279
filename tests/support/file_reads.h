// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>

/// How the code under test reads files. Linking `test_file_reads` puts this between its calls
/// of read(2) and the system.
struct FileReads {
    std::optional<std::size_t> bytesUntilError;  ///< after these, every read fails with EIO
    std::size_t maxBytesAtOnce = static_cast<std::size_t>(-1);
    bool everySecondIsInterrupted = false;  ///< as by a signal
};

FileReads& Reads();

/// While the object lives, reading fails after that number of bytes.
class FailingReads {
public:
    explicit FailingReads(std::size_t bytes) { Reads().bytesUntilError = bytes; }
    ~FailingReads() { Reads() = {}; }
    FailingReads(const FailingReads&) = delete;
    FailingReads& operator=(const FailingReads&) = delete;
};
