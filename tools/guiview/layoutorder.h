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
    /// By which the toolkit can find it: the tag, or one made up for a widget without.
    std::string handle;
    /// Its size or place comes from an error that is reported, and says nothing by itself.
    bool misplaced = false;

    const Kind& GetKind() const { return *statement->kind; }
    Place Where() const { return statement->Find("tag")->place; }
};

/// What a layout's statements come to, one after the other.
struct Declarations {
    std::vector<Declared> widgets;
    /// The layout with every statement left empty that the toolkit would stop at or read
    /// otherwise than it is written, and with a tag for every widget.
    std::string buildable;
};

/// Follows the statements in their order and reports those that do not fit what came before.
Declarations FollowOrder(const LayoutFile& layout, Findings& findings);

}  // namespace guiview
