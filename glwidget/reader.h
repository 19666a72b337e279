// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <istream>
#include <string>

#include "quarn2/vector.h"

/// Reads the toolkit's text files: layouts, themes and the configuration. Words and numbers
/// are separated by white space, line ends included. A read that fails leaves its argument
/// alone, and so do all that follow until EndLine.
class GuiReader {
public:
    explicit GuiReader(std::istream& file) : stream(file) {}

    /// @return false at the end of the file
    [[nodiscard]] bool Word(std::string& word);

    /// A number, or a flag written as 0 or 1. @return whether it was one
    template <typename T>
    bool Read(T& value) {
        T read{};
        if (!(stream >> read))
            return false;
        value = read;
        return true;
    }
    /// Three numbers; the fourth component stays.
    void ReadThree(Vector& value);
    void ReadFour(Vector& value);

    /// What is left of the line, without the blanks before it; at most kFieldLimit characters.
    std::string Rest();

    /// Forgets a failure and skips the rest of the line, which is a comment.
    void EndLine();

    /// Skips lines that begin with "//".
    void SkipComments();

    static constexpr std::size_t kFieldLimit = 511;
    static constexpr std::streamsize kSkipLimit = 10000;

private:
    std::istream& stream;
};
