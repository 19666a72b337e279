// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <sstream>
#include <string>

#include "quarn2/vector.h"

/// Opens a layout, theme or configuration file. If it cannot be read, one line on standard error
/// says why, and the stream is empty.
std::istringstream OpenGuiFile(const std::string& path);

/// Reads the toolkit's text files: layouts, themes and the configuration. Words and numbers
/// are separated by white space, line ends included. A read that fails does not change its
/// argument, and neither do the reads after it until EndLine.
class GuiReader {
public:
    explicit GuiReader(std::istream& file) : stream(file) {}

    /// @return false at the end of the file
    [[nodiscard]] bool Word(std::string& word);

    /// Reads a number, or a flag written as 0 or 1. @return whether there was one
    template <typename T>
    bool Read(T& value) {
        T read{};
        if (!(stream >> read))
            return false;
        value = read;
        return true;
    }
    /// Reads three numbers; the fourth component stays.
    void ReadThree(Vector& value);
    void ReadFour(Vector& value);

    /// The rest of the line, without the blanks before it; at most kFieldLimit characters.
    std::string Rest();

    /// Clears a failure and skips the rest of the line, which is a comment.
    void EndLine();

    /// Skips lines that begin with "//".
    void SkipComments();

    /// A longer file is not read.
    static constexpr std::uintmax_t kMaxFileBytes = std::uintmax_t{16} << 20;
    static constexpr std::size_t kFieldLimit = 511;
    static constexpr std::streamsize kSkipLimit = 10000;

private:
    std::istream& stream;
};

/// A layout's text as it is shown: "%" means itself, backslash n a line break.
std::string ReplaceEscapes(const std::string& text);
