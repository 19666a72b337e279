// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <sstream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "glwidget/glwidget.h"
#include "glwidget/theme.h"

namespace guiview {

/// Keeps what is written on the error stream while it lives.
class ErrorStreamCapture {
public:
    ErrorStreamCapture();
    ~ErrorStreamCapture();
    ErrorStreamCapture(const ErrorStreamCapture&) = delete;
    ErrorStreamCapture& operator=(const ErrorStreamCapture&) = delete;

    std::string Text() const { return text.str(); }

private:
    std::ostringstream text;
    std::streambuf* usual;  // not owned
};

/// The toolkit on a screen of 800 by 600 pixels that is nowhere: nothing is drawn and no display
/// is needed, yet every widget has the size that it has in the game. Empty at both ends of its
/// life; only one may live at a time.
class HeadlessToolkit {
public:
    HeadlessToolkit();
    ~HeadlessToolkit();
    HeadlessToolkit(const HeadlessToolkit&) = delete;
    HeadlessToolkit& operator=(const HeadlessToolkit&) = delete;
};

/// Enters a folder for as long as it lives: the toolkit looks for all files in the current one.
class FolderVisit {
public:
    explicit FolderVisit(const std::string& folder);
    ~FolderVisit();
    FolderVisit(const FolderVisit&) = delete;
    FolderVisit& operator=(const FolderVisit&) = delete;

private:
    int before;  // an open directory, which can be returned to even when it was moved
};

/// Texts to show in place of those that the layout gives, by tag.
using SampleTexts = std::vector<std::pair<std::string, std::string>>;

/// Fills in sample texts as a program would: a Combo gets an item for each line.
/// @return the first tag that no widget has, or nothing
std::string FillTexts(const SampleTexts& texts);

}  // namespace guiview
