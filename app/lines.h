// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>

class Label;

/// Lines of a label. A label grows upwards from its last line and breaks long lines itself, but it
/// does not measure the words that go to the next line. These functions break a text exactly and
/// fill the label from its top.
namespace lines {

/// The distance between two lines.
float StepOf(const Label& label);

/// How many lines the label has room for.
std::size_t RoomOf(Label& label);

/// How many lines the text has.
std::size_t CountOf(const std::string& text);

/// Breaks a text without line breaks at its blanks, so that its lines fit in the label.
void Break(std::string& text, Label& label);

/// Adds empty lines, so that the text has at least so many.
void FillUp(std::string& text, std::size_t count);

}  // namespace lines
