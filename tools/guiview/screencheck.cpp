// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/screencheck.h"

#include <cmath>

#include "glwidget/chart.h"
#include "glwidget/checkbox.h"
#include "glwidget/combobox.h"
#include "glwidget/drawing.h"
#include "glwidget/label.h"

namespace guiview {

namespace {

/// How many items a list is assumed to have if the layout gives it none: the program fills it,
/// the game with twelve countries.
constexpr std::size_t kItemsOfTheProgram = 12;

std::string Pixels(float length) {
    const long pixels = std::max(std::lround(length / kPixel), 1L);
    return std::to_string(pixels) + (pixels == 1 ? " pixel" : " pixels");
}

Box Screen() {
    return {-GLWidget::HalfWidth(), -GLWidget::guiScale, GLWidget::HalfWidth(), GLWidget::guiScale};
}

/// Whether the widget's position is as the layout says.
bool IsPlaced(const Node& node) {
    return node.declared != nullptr && !node.declared->misplaced && !node.doubtful;
}

struct Excess {
    float length = 0.0f;
    const char* side = "";
};

/// The side on which the inner box reaches furthest out of the outer one, and how far.
Excess ExcessOf(const Box& inner, const Box& outer) {
    const Excess sides[] = {{outer.left - inner.left, "left"},
                            {inner.right - outer.right, "right"},
                            {outer.bottom - inner.bottom, "lower"},
                            {inner.top - outer.top, "upper"}};
    Excess most;
    for (const Excess& side : sides) {
        if (side.length > most.length)
            most = side;
    }
    return most;
}

}  // namespace

void ScreenCheck::Run() {
    const auto& nodes = scene.Nodes();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (!IsPlaced(*nodes[i]))
            continue;
        CheckPlace(*nodes[i]);
        CheckText(*nodes[i]);
        if (nodes[i]->As<Combobox>() != nullptr)
            CheckList(*nodes[i]);
        if (const auto* const chart = nodes[i]->As<Chart>())
            CheckChart(*chart, *nodes[i]);
        CheckCentre(*nodes[i]);
        for (std::size_t j = 0; j < i; ++j)
            CheckSiblings(*nodes[j], *nodes[i]);
    }
}

void ScreenCheck::CheckPlace(const Node& node) {
    const Excess beyond = ExcessOf(node.drawn, Screen());
    if (beyond.length > kTolerance) {
        Warn(node, Quoted(node.Tag()) + " is outside the screen, " + Pixels(beyond.length)
                       + " beyond its " + beyond.side + " edge");
        return;
    }
    if (node.parent == nullptr || !IsPlaced(*node.parent))
        return;
    const Excess out = ExcessOf(node.drawn, node.parent->drawn);
    if (out.length > kTolerance) {
        Warn(node, Quoted(node.Tag()) + " is outside of " + Quoted(node.parent->Tag()) + ", "
                       + Pixels(out.length) + " beyond its " + out.side + " edge");
    }
}

bool ScreenCheck::IsBackgroundOf(const Node& earlier, const Node& later) {
    return earlier.Is(&Kind::isBackground) && earlier.parent == later.parent
           && Scene::SeenTogether(earlier, later) && Encloses(earlier.drawn, later.drawn);
}

void ScreenCheck::CheckSiblings(const Node& earlier, const Node& later) {
    if (!IsPlaced(earlier) || earlier.parent != later.parent || !Scene::SeenTogether(earlier, later)
        || IsBackgroundOf(earlier, later))
        return;
    const std::string with =
        Quoted(earlier.Tag()) + " of line " + std::to_string(earlier.declared->Where().line);
    if (Meet(earlier.drawn, later.drawn)) {
        const Box common = Common(earlier.drawn, later.drawn);
        Warn(later, Quoted(later.Tag()) + " overlaps " + with + " by " + Pixels(common.Width())
                        + " across and " + Pixels(common.Height()) + " down");
        return;
    }
    if (!IsPressable(earlier) || !IsPressable(later))
        return;
    if (Meet(earlier.clicks, later.drawn) || Meet(earlier.drawn, later.clicks))
        Warn(later, "one click can reach both " + Quoted(later.Tag()) + " and " + with);
}

void ScreenCheck::CheckText(const Node& node) {
    const Theme& theme = node.widget->GetTheme();
    const std::string& text = node.widget->GetText();
    if (node.As<Label>() != nullptr) {
        CheckLabel(node);
    } else if (node.As<Checkbox>() != nullptr) {
        if (!text.empty())
            CheckWidth(node, " " + text, node.box.Width() - theme.boxSize);
    } else if (node.As<Combobox>() != nullptr) {
        const float button = node.widget->GetChildren().front()->Getbbox().z;
        for (const std::string& item : node.widget->GetTexts()) {
            CheckWidth(node, item, node.box.Width() - button - theme.Margin() - theme.fontSize.x);
        }
    } else if (node.declared->GetKind().text == TextGround::Title) {
        CheckTitle(node);
    } else if (node.declared->GetKind().text == TextGround::Fill && !node.Is(&Kind::takesKeys)) {
        CheckWidth(node, text, node.box.Width() - theme.fontSize.x / 2.0f);
    }
}

void ScreenCheck::CheckTitle(const Node& window) {
    const Theme& theme = window.widget->GetTheme();
    // The title begins where the cut corner ends.
    CheckWidth(window, window.widget->GetText(),
               window.box.Width() - theme.corner * window.box.Height());
}

void ScreenCheck::CheckLabel(const Node& node) {
    const Theme& theme = node.widget->GetTheme();
    auto& label = static_cast<Label&>(*node.widget);
    const std::string& wrapped = label.Wrapped();
    const auto lines = std::count(wrapped.begin(), wrapped.end(), '\n') + 1;
    // Lines that the toolkit breaks may be wider than the label, because it does not measure the
    // word that goes to the next line. CheckPlace checks where they reach.
    if (lines == std::count(label.GetText().begin(), label.GetText().end(), '\n') + 1)
        CheckWidth(node, wrapped, node.box.Width() - theme.fontSize.x / 2.0f);
    const float step = FontRender::kLineStep * theme.fontSize.y;
    if (static_cast<float>(lines) * step <= node.box.Height() + kTolerance)
        return;
    const auto room = static_cast<long>((node.box.Height() + kTolerance) / step);
    Warn(node, "the text of " + Quoted(node.Tag()) + " takes " + std::to_string(lines)
                   + " lines; the widget has room for " + std::to_string(room));
}

void ScreenCheck::CheckWidth(const Node& node, const std::string& text, float room) {
    const Theme& theme = node.widget->GetTheme();
    float widest = 0.0f;
    // Line by line: measured together, a short line after a longer one would count as longer.
    for (const std::string& line : SplitLines(text))
        widest = std::max(widest, MeasureText(theme, line));
    if (widest > room + kTolerance) {
        Warn(node, "the text of " + Quoted(node.Tag()) + " is " + Pixels(widest - room)
                       + " wider than the widget has room for");
    }
}

void ScreenCheck::CheckList(const Node& combo) {
    std::size_t items = combo.widget->GetTexts().size();
    if (items == 0)
        items = kItemsOfTheProgram;
    const float height = 2.0f * static_cast<float>(items) * combo.widget->GetTheme().fontSize.y;
    const Box list{combo.box.left, combo.box.bottom - height, combo.box.right, combo.box.bottom};
    const Excess beyond = ExcessOf(list, Screen());
    if (beyond.length > kTolerance) {
        Warn(combo, "the open list of " + Quoted(combo.Tag()) + " reaches " + Pixels(beyond.length)
                        + " beyond the screen's " + beyond.side + " edge");
    }
    for (const Node* node : scene.Nodes()) {
        if (node == &combo || !IsPlaced(*node) || !IsPressable(*node) || !Meet(node->clicks, list)
            || !Scene::SeenTogether(*node, combo))
            continue;
        Warn(*node, Quoted(node->Tag()) + " is under the open list of " + Quoted(combo.Tag())
                        + ": a click on the list reaches it too");
    }
}

void ScreenCheck::CheckChart(const Chart& chart, const Node& node) {
    const Vector missing = chart.MissingSize();
    for (const auto& [length, direction] :
         {std::pair(missing.x, " too narrow"), {missing.y, " too low"}}) {
        if (length > kTolerance) {
            Warn(node, Quoted(node.Tag()) + " is " + Pixels(length) + direction
                           + " for the lines and the texts of its chart");
        }
    }
}

void ScreenCheck::CheckCentre(const Node& node) {
    if (messageArea && IsPressable(node) && Meet(node.clicks, *messageArea)) {
        Warn(node, Quoted(node.Tag())
                       + " is at the centre of the screen: a click on a message box reaches it "
                         "too");
    }
}

bool ScreenCheck::IsPressable(const Node& node) const {
    return node.Is(&Kind::takesClicks) && !IsBackground(node) && isAnswered(node);
}

bool ScreenCheck::IsBackground(const Node& node) const {
    const auto& nodes = scene.Nodes();
    const auto itself = std::ranges::find(nodes, &node);
    return std::any_of(itself + 1, nodes.end(),
                       [&](const Node* later) { return IsBackgroundOf(node, *later); });
}

void ScreenCheck::Warn(const Node& node, std::string message) {
    findings.Warn(file, node.declared->Where(), std::move(message));
}

}  // namespace guiview
