// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <string>

class Label;

/// Lines of a label. A label grows upwards from its last line and breaks long lines itself, but it
/// does not measure the words that go to the next line. It also measures a line together with the
/// end of a longer one above it, and so may break a line that has room. These functions break a
/// text exactly and fill the label from its top.
namespace lines {

/// The distance between two lines.
float StepOf(const Label& label);

/// How many lines the label has room for.
std::size_t RoomOf(Label& label);

/// How many lines the text has.
std::size_t CountOf(const std::string& text);

/// Breaks a text without line breaks at its blanks, so that no line is wider than this part of the
/// label.
void Break(std::string& text, Label& label, float part);

/// Whether the label shows the text as it is, without breaking it again.
bool IsShownAsItIs(const std::string& text, Label& label);

/// Parts of the label's width for Break, to be tried in this order until the label shows the text
/// as it is.
inline constexpr std::array<float, 5> kParts{0.95f, 0.9f, 0.8f, 0.7f, 0.6f};

/// Breaks a text without line breaks so that the label shows it as it is.
void BreakToFit(std::string& text, Label& label);

/// Adds empty lines, so that the text has at least so many.
void FillUp(std::string& text, std::size_t count);

}  // namespace lines
