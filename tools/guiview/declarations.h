// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/guiview/layoutfile.h"

namespace guiview {

/// A widget that a layout creates.
struct Declared {
    const Statement* statement;
    std::string tag;     ///< "NULL" for a widget that has none
    std::string parent;  ///< "NULL" at the top
    std::optional<int> tab;
    /// The tag with which it is built: its own, or an invented one if it has none.
    std::string handle;
    /// A reported error gives it a wrong size or position, so that these are not checked.
    bool misplaced = false;
    /// A reported error leaves open which theme it has.
    bool themeUnknown = false;
    bool centred = false;  ///< its position depends on the size of its parent

    const Kind& GetKind() const { return *statement->kind; }
    Location Where() const { return statement->Find("tag")->location; }
};

/// What the statements of a layout declare.
struct Declarations {
    std::vector<Declared> widgets;
    /// The layout for the toolkit: with a tag for every widget, with words that a misspelt one
    /// probably means, and with an empty line instead of every statement that would stop the
    /// toolkit or that it would understand differently.
    std::string buildable;
};

/// Goes through the statements in their order and reports those that do not fit the ones before.
Declarations FollowStatements(const LayoutFile& layout, Findings& findings);

}  // namespace guiview
