// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "glwidget/toolkit.h"
#include "tools/guiview/declarations.h"
#include "tools/guiview/finding.h"

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

/// Makes a folder the current one while it lives: the toolkit looks for all files there.
class FolderVisit {
public:
    explicit FolderVisit(const std::string& folder);
    ~FolderVisit();
    FolderVisit(const FolderVisit&) = delete;
    FolderVisit& operator=(const FolderVisit&) = delete;

private:
    int before;  // an open directory, which can be entered again even if it was moved
};

/// Texts to show instead of those that the layout gives, by tag.
using SampleTexts = std::vector<std::pair<std::string, std::string>>;

/// Shows sample texts as a program would: a Combo gets an item for each line. Texts for tags that
/// no widget has are left out.
void FillTexts(const SampleTexts& texts);

/// A layout as it was read, and the widgets that it declares.
class LayoutSource {
public:
    /// @param texts  to show later; their tags must be the layout's
    /// @return nothing, after one line on standard error, when the file cannot be read or has not
    ///     all these tags
    static std::optional<LayoutSource> Read(const std::string& path, const SampleTexts& texts = {});

    // No copies: the declarations refer to the file's statements.
    LayoutSource(LayoutSource&&) = default;
    LayoutSource& operator=(LayoutSource&&) = default;
    LayoutSource(const LayoutSource&) = delete;
    LayoutSource& operator=(const LayoutSource&) = delete;

    /// Builds the widgets that have no errors in the toolkit. The current folder must be the
    /// layout's. Messages of the toolkit are not shown. Charts show an example.
    void Build() const;

    const LayoutFile& File() const { return file; }
    const Declarations& Declared() const { return declarations; }
    /// The folder as the user named it, with its "/"; empty for the current one.
    const std::string& Folder() const { return folder; }
    /// The errors and warnings of its lines.
    const Findings& Found() const { return findings; }

private:
    LayoutSource(const std::string& path, const std::string& content);

    std::string folder;
    Findings findings;
    LayoutFile file;
    Declarations declarations;
};

/// The widgets of a layout in the toolkit, on a screen of 800 by 600 pixels, without a window.
/// While it lives the folder of the layout is the current one, as for a program that uses it. At
/// its end the toolkit is as it was before.
class BuiltLayout {
public:
    explicit BuiltLayout(const LayoutSource& layout);
    ~BuiltLayout();
    BuiltLayout(const BuiltLayout&) = delete;
    BuiltLayout& operator=(const BuiltLayout&) = delete;

private:
    FolderVisit visit;
    Toolkit before;
};

}  // namespace guiview
