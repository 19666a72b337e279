// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "tools/guiview/finding.h"
#include "tools/guiview/headless.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// The folder of a path, with its "/"; empty for a name alone.
std::string FolderOf(const std::string& path);

/// A layout as it was read, and what its statements come to.
class LayoutSource {
public:
    /// @return nothing when the file cannot be read
    static std::optional<LayoutSource> Read(const std::string& path);

    // No copies: the declarations refer to the file's statements.
    LayoutSource(LayoutSource&&) = default;
    LayoutSource& operator=(LayoutSource&&) = default;
    LayoutSource(const LayoutSource&) = delete;
    LayoutSource& operator=(const LayoutSource&) = delete;

    /// Builds the widgets, as far as they can be, in the toolkit as it is. The current folder
    /// must be the layout's. What the toolkit says of it is not shown.
    void Build() const;

    const LayoutFile& File() const { return file; }
    const Declarations& Declared() const { return declarations; }
    /// The folder as the user named it, with its "/"; empty for the current one.
    const std::string& Folder() const { return folder; }
    /// What was found in reading it.
    const Findings& Found() const { return findings; }

private:
    LayoutSource(const std::string& path, const std::string& content);

    std::string folder;
    Findings findings;
    LayoutFile file;
    Declarations declarations;
};

/// The widgets of a layout in the toolkit, without a display. While it lives the folder of the
/// layout is the current one, as for a program that uses it.
class BuiltLayout {
public:
    explicit BuiltLayout(const LayoutSource& layout) : visit(layout.Folder()) { layout.Build(); }

private:
    FolderVisit visit;
    HeadlessToolkit toolkit;
};

/// Everything that is wrong with a layout and its files. Builds it.
/// @param forGame  also what the game needs of it, shown with the longest texts that it can show
/// @param texts    to show in place of the layout's own, after the game's
Findings CheckLayout(const LayoutSource& layout, bool forGame, const SampleTexts& texts);

}  // namespace guiview
