// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/scene.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "glwidget/button.h"
#include "glwidget/drawing.h"
#include "glwidget/frame.h"
#include "glwidget/glwindow.h"
#include "glwidget/label.h"
#include "glwidget/slider.h"
#include "glwidget/tabwindow.h"

namespace guiview {

namespace {

/// Where a widget's children have their origin, in the coordinates of the widget's parent.
Vector InnerOrigin(GLWidget& widget) {
    if (const auto* window = dynamic_cast<GLWindow*>(&widget))
        return window->InnerOrigin();
    if (const auto* frame = dynamic_cast<Frame*>(&widget))
        return frame->InnerOrigin();
    const Vector box = widget.Getbbox();
    return {box.x, box.y};
}

/// Where the lines of a label's text are. The last one is at the label's lower edge, even if the
/// label is higher than its lines.
Box LinesBox(const Node& node) {
    const Theme& theme = node.widget->GetTheme();
    const std::string& text = static_cast<Label&>(*node.widget).Wrapped();
    float widest = 0.0f;
    float lines = 0.0f;
    float lowest = 0.0f;  // number of the lowest line that is not empty
    for (const std::string& line : SplitLines(text + '\n')) {
        widest = std::max(widest, MeasureText(theme, line));
        ++lines;
        if (!line.empty())
            lowest = lines;
    }
    const float step = FontRender::kLineStep * theme.fontSize.y;
    const float left = node.box.left + theme.fontSize.x / 2.0f;
    return {left, node.box.bottom + (lines - lowest) * step, left + widest,
            node.box.bottom + lines * step};
}

}  // namespace

std::string_view Node::Tag() const {
    return declared != nullptr ? std::string_view(declared->tag) : widget->GetName();
}

std::string_view Node::KindWord() const {
    const Kind* const kind =
        declared != nullptr ? &declared->GetKind() : KindOfType(widget->GetType());
    return kind != nullptr ? kind->word : kNone;
}

Scene::Scene(const Declarations& declarations, std::set<std::string> withFinalText,
             const std::set<const Theme*>& broken)
    : declared(declarations), labelsWithFinalText(std::move(withFinalText)) {
    for (GLWidget* widget : GLWidget::widgets)
        Add(widget, nullptr, std::nullopt, Vector(0.0f, 0.0f));
    MarkDoubtful(broken);
}

void Scene::MarkDoubtful(const std::set<const Theme*>& broken) {
    const auto inDoubt = [&](const Node& node) {
        return broken.contains(&node.widget->GetTheme())
               || (node.declared != nullptr && node.declared->themeUnknown);
    };
    // A container comes before its children. Its theme decides where they are, and their sizes
    // decide its own.
    for (const auto& node : owned) {
        for (const Node* each = node.get(); each != nullptr; each = each->parent)
            node->doubtful = node->doubtful || inDoubt(*each);
    }
    std::set<const Node*> around;
    for (auto node = owned.rbegin(); node != owned.rend(); ++node) {
        (*node)->doubtful = (*node)->doubtful || around.contains(node->get());
        if ((*node)->doubtful)
            around.insert((*node)->parent);
    }
    for (const auto& node : owned) {
        const bool centred = node->declared != nullptr && node->declared->centred;
        if (centred && node->parent != nullptr && node->parent->doubtful)
            node->doubtful = true;
    }
}

void Scene::Add(GLWidget* widget, const Node* parent, std::optional<int> tab,
                const Vector& origin) {
    const auto found = std::ranges::find(declared.widgets, widget->GetName(), &Declared::handle);
    const Declared* const entry = found == declared.widgets.end() ? nullptr : &*found;
    Node& node = *owned.emplace_back(std::make_unique<Node>());
    node.widget = widget;
    node.declared = entry;
    node.parent = parent;
    node.tab = tab;
    node.box = BoxOf(widget->Getbbox(), origin);
    const bool hasFinalText =
        node.As<Label>() != nullptr && labelsWithFinalText.contains(entry->tag);
    const auto* const slider = node.As<Slider>();
    node.drawn = slider != nullptr ? BoxOf(slider->DrawnBox(), origin) : node.box;
    if (hasFinalText)
        node.drawn = LinesBox(node);
    if (node.Is(&Kind::takesClicks))
        node.clicks = slider != nullptr ? BoxOf(slider->GrabBox(), origin) : node.box;
    node.shown = parent == nullptr || parent->shown;
    if (parent != nullptr && tab)
        node.shown = node.shown && std::ranges::count(parent->widget->GetChildren(), widget) > 0;
    order.push_back(&node);

    const Vector inner = origin + InnerOrigin(*widget);
    const auto* const window = dynamic_cast<TabWindow*>(widget);
    if (window != nullptr && !window->GetTabs().empty()) {
        AddTabs(node, origin, inner);
        return;
    }
    for (GLWidget* child : widget->GetChildren())
        Add(child, &node, std::nullopt, inner);
}

void Scene::AddTabs(const Node& node, const Vector& origin, const Vector& inner) {
    const auto& tabs = static_cast<TabWindow&>(*node.widget).GetTabs();
    for (const TabWindow::Tab& tab : tabs) {
        if (tab.button)
            Add(tab.button.get(), &node, std::nullopt, origin);
    }
    int number = 0;
    for (const TabWindow::Tab& tab : tabs) {
        for (GLWidget* child : tab.widgets)
            Add(child, &node, number, inner);
        ++number;
    }
}

const Node* Scene::Find(std::string_view tag) const {
    const auto found = std::ranges::find(order, tag, &Node::Tag);
    return found == order.end() ? nullptr : *found;
}

bool Scene::SeenTogether(const Node& a, const Node& b) {
    for (const Node* left = &a; left != nullptr; left = left->parent) {
        for (const Node* right = &b; right != nullptr; right = right->parent) {
            if (left->parent == right->parent && left->tab && right->tab)
                return left->tab == right->tab;
        }
    }
    return true;
}

const Node* Scene::At(float x, float y) const {
    const auto contains = [&](const Node* node) {
        const Box& box = node->box;
        return node->shown && x >= box.left && x <= box.right && y >= box.bottom && y <= box.top;
    };
    const auto found = std::find_if(order.rbegin(), order.rend(), contains);
    return found == order.rend() ? nullptr : *found;
}

std::string ThemeName(const Theme& theme) {
    const auto found = std::ranges::find_if(
        GLWidget::themes, [&](const auto& entry) { return entry.second == &theme; });
    return found == GLWidget::themes.end() ? std::string() : found->first;
}

std::string DescribeBox(const Box& box) {
    std::string text;
    for (const float edge : {box.left, box.bottom, box.right, box.top}) {
        std::array<char, 48> number;
        // adding zero turns a negative zero into zero
        std::snprintf(number.data(), number.size(), " %8.4f", static_cast<double>(edge) + 0.0);
        text += number.data();
    }
    return text;
}

std::string DescribeTree(const Scene& scene) {
    std::size_t kindWidth = 5;
    std::size_t tagWidth = 0;
    std::size_t parentWidth = 0;
    for (const Node* node : scene.Nodes()) {
        kindWidth = std::max(kindWidth, node->KindWord().size());
        tagWidth = std::max(tagWidth, node->Tag().size());
        parentWidth = std::max(parentWidth,
                               node->parent == nullptr ? kNone.size() : node->parent->Tag().size());
    }
    std::string text;
    for (const Node* node : scene.Nodes()) {
        const std::string tag(node->Tag());
        const std::string kind(node->KindWord());
        const std::string parent(node->parent == nullptr ? kNone : node->parent->Tag());
        text += tag + std::string(tagWidth - tag.size() + 1, ' ');
        text += kind + std::string(kindWidth - kind.size() + 1, ' ');
        text += parent + std::string(parentWidth - parent.size(), ' ');
        text += DescribeBox(node->box);
        if (node->tab)
            text += "  tab " + std::to_string(*node->tab);
        text += '\n';
    }
    return text;
}

}  // namespace guiview
