#pragma once

#include <memory>
#include <optional>
#include <string>

#include "tools/guiview/finding.h"
#include "tools/guiview/headless.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// A layout whose widgets stand in the toolkit, as far as they can be built, without a display.
/// While it lives the folder of the layout is the current one, as for a program that uses it.
class BuiltLayout {
public:
    /// @return null when the file cannot be read
    static std::unique_ptr<BuiltLayout> Read(const std::string& path);

    const LayoutFile& File() const { return file; }
    const Declarations& Declared() const { return declarations; }
    /// The folder as the user named it, with its "/"; empty for the current one.
    const std::string& Folder() const { return folder; }
    const Findings& FromReading() const { return findings; }

private:
    BuiltLayout(const std::string& path, const std::string& content);

    std::string folder;
    Findings findings;
    LayoutFile file;
    Declarations declarations;
    FolderVisit visit;
    HeadlessToolkit toolkit;
};

/// Everything that is wrong with a layout and its files.
/// @param forGame  also what the game needs of it, shown with the longest texts that it can show
/// @param texts    to show in place of the layout's own, after the game's
Findings CheckLayout(const BuiltLayout& layout, bool forGame, const SampleTexts& texts);

}  // namespace guiview
