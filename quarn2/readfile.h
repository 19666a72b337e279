// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Why a file was not read.
enum class FileProblem {
    None,
    Missing,
    NotAFile,  ///< a folder, a device, a pipe or a socket
    CannotBeOpened,
    TooLarge,
    CannotBeRead,
};

/// Reads a regular file whole. Anything else is refused without being read, so that neither an
/// endless device nor a pipe that nobody writes to holds up the program.
/// @param maxBytes  a longer file is refused
/// @param bytes  empty unless the file was read
[[nodiscard]] FileProblem ReadWholeFile(const std::string& path, std::uintmax_t maxBytes,
                                        std::vector<std::uint8_t>& bytes);
[[nodiscard]] FileProblem ReadWholeFile(const std::string& path, std::uintmax_t maxBytes,
                                        std::string& text);

/// A sentence without its full stop, such as "my.theme is missing".
/// @param maxBytes  as given to ReadWholeFile
std::string Describe(const std::string& path, FileProblem problem, std::uintmax_t maxBytes);
