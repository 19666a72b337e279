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
#include "tools/guiview/layoutorder.h"

namespace guiview {

/// A widget of the tree and where it is.
struct Node {
    GLWidget* widget = nullptr;          // not owned
    const Declared* declared = nullptr;  ///< null for what the toolkit makes itself; not owned
    const Node* parent = nullptr;        ///< null at the top; not owned
    std::optional<int> tab;              ///< of the parent, when it has tabs
    Box box;                             ///< the toolkit's own bounding box
    Box drawn;                           ///< what of it can be seen
    Box clicks;                          ///< where it answers a press; empty when it answers none
    bool shown = false;                  ///< not on a tab that another one covers

    std::string_view Tag() const;
    /// As a layout names it.
    std::string_view KindWord() const;
    /// What the table says of the layout's widgets; false of those that the toolkit makes.
    bool Is(bool Kind::*fact) const { return declared != nullptr && declared->GetKind().*fact; }
    /// A widget of the layout as one of its class, or null.
    template <typename Widget>
    Widget* As() const {
        return declared != nullptr ? dynamic_cast<Widget*>(widget) : nullptr;
    }
};

/// The widgets that the toolkit holds at this moment, in the order in which it goes over them:
/// a container before its children, tab buttons before what is on the tabs.
class Scene {
public:
    /// @param withFinalText  labels that will show no other text than now, so that their lines are
    ///     what can be seen of them; of other labels it is all the room that they keep
    explicit Scene(const Declarations& declarations, std::set<std::string> withFinalText = {});
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    const std::vector<const Node*>& Nodes() const { return order; }
    /// Null when the tree has no such widget.
    const Node* Find(std::string_view tag) const;
    /// The one on top among those shown, or null.
    const Node* At(float x, float y) const;

    /// Whether both can be on the screen at once: they are on no two tabs of one window.
    static bool SeenTogether(const Node& a, const Node& b);

private:
    void Add(GLWidget* widget, const Node* parent, std::optional<int> tab, const Vector& origin);
    void AddTabs(const Node& window, const Vector& origin, const Vector& inner);

    const Declarations& declared;
    std::set<std::string> labelsWithFinalText;
    std::vector<std::unique_ptr<Node>> owned;
    std::vector<const Node*> order;
};

/// One line per widget: tag, kind, parent and bounding box (left, bottom, right, top on the
/// screen, in GUI units), and the tab of what is on one.
std::string DescribeTree(const Scene& scene);

/// Left, bottom, right and top, as a tree is described with.
std::string DescribeBox(const Box& box);

/// The name by which layouts know a theme.
std::string ThemeName(const Theme& theme);

}  // namespace guiview
