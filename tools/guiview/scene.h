// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/glwidget.h"
#include "tools/guiview/box.h"
#include "tools/guiview/declarations.h"

namespace guiview {

/// A widget that the toolkit holds, and its boxes on the screen.
struct Node {
    GLWidget* widget = nullptr;          // not owned
    const Declared* declared = nullptr;  ///< null for widgets that the toolkit makes; not owned
    const Node* parent = nullptr;        ///< null at the top; not owned
    std::optional<int> tab;              ///< of the parent, if it has tabs
    Box box;                             ///< the toolkit's own bounding box
    Box drawn;                           ///< what of it can be seen
    Box clicks;                          ///< where it reacts to clicks; empty if nowhere
    bool shown = false;                  ///< it is not on a closed tab
    /// Its size, its position or its colours depend on a theme that has an error.
    bool doubtful = false;

    std::string_view Tag() const;
    /// The word for its kind in layouts.
    std::string_view KindWord() const;
    /// What the table of kinds says about the widget; false for widgets that the toolkit makes.
    bool Is(bool Kind::*fact) const { return declared != nullptr && declared->GetKind().*fact; }
    /// The widget if it is one of the layout's and of that class, otherwise null.
    template <typename Widget>
    Widget* As() const {
        return declared != nullptr ? dynamic_cast<Widget*>(widget) : nullptr;
    }
};

/// The widgets that the toolkit holds at this moment, in the order in which it draws them: a
/// container before its children, tab buttons before the widgets on the tabs.
class Scene {
public:
    /// @param withFinalText  tags of labels whose text does not change: only their lines are drawn.
    ///     Other labels may later use their whole box.
    /// @param broken  themes that have an error
    explicit Scene(const Declarations& declarations, std::set<std::string> withFinalText = {},
                   const std::set<const Theme*>& broken = {});
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    const std::vector<const Node*>& Nodes() const { return order; }
    /// Null if there is no such widget.
    const Node* Find(std::string_view tag) const;
    /// The shown widget that is on top there, or null.
    const Node* At(float x, float y) const;

    /// Whether both can be on the screen at the same time: they are not on different tabs of one
    /// window.
    static bool SeenTogether(const Node& a, const Node& b);

private:
    void Add(GLWidget* widget, const Node* parent, std::optional<int> tab, const Vector& origin);
    void AddTabs(const Node& window, const Vector& origin, const Vector& inner);
    void MarkDoubtful(const std::set<const Theme*>& broken);

    const Declarations& declared;
    std::set<std::string> labelsWithFinalText;
    std::vector<std::unique_ptr<Node>> owned;
    std::vector<const Node*> order;
};

/// One line per widget: tag, kind, parent, bounding box on the screen, and tab, if there is one.
std::string DescribeTree(const Scene& scene);

/// Left, bottom, right and top in GUI units.
std::string DescribeBox(const Box& box);

/// The name of a theme in layouts.
std::string ThemeName(const Theme& theme);

}  // namespace guiview
