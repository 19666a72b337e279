// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/contrastcheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numeric>

#include "glwidget/glwindow.h"
#include "tools/guiview/layoutsource.h"
#include "tools/guiview/screencheck.h"

namespace guiview {

namespace {

/// A text with less contrast is hard to read (WCAG 2, success criterion 1.4.3).
constexpr double kMinRatio = 4.5;

/// A line with less contrast is hard to see (WCAG 2, success criterion 1.4.11).
constexpr double kMinRatioOfLines = 3.0;

/// This part of the pixels behind a text may have less contrast: small specks do not hide letters.
constexpr double kSpecks = 0.05;

constexpr float kOpaque = 0.999f;
constexpr const char* kIdle = "";
constexpr const char* kHighlighted = " under the mouse";

double Linear(float channel) {
    const double value = std::clamp(static_cast<double>(channel), 0.0, 1.0);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

Rgb Times(const Vector& colour, float brightness) {
    const auto channel = [&](float value) { return std::clamp(value * brightness, 0.0f, 1.0f); };
    return {channel(colour.x), channel(colour.y), channel(colour.z)};
}

Rgb MeanOf(const std::vector<Rgb>& colours) {
    Rgb mean{};
    for (std::size_t channel = 0; channel < mean.size(); ++channel) {
        const float sum = std::accumulate(
            colours.begin(), colours.end(), 0.0f,
            [&](float before, const Rgb& colour) { return before + colour[channel]; });
        mean[channel] = sum / static_cast<float>(colours.size());
    }
    return mean;
}

/// The contrast that all but the worst kSpecks of the colours reach.
double RatioTo(const Rgb& text, const std::vector<Rgb>& behind) {
    std::vector<double> ratios;
    ratios.reserve(behind.size());
    for (const Rgb& colour : behind)
        ratios.push_back(ContrastRatio(text, colour));
    const auto place =
        ratios.begin()
        + static_cast<std::ptrdiff_t>(kSpecks * static_cast<double>(ratios.size() - 1));
    std::ranges::nth_element(ratios, place);
    return *place;
}

/// The columns or rows of a picture between two positions on the button that shows it.
struct Span {
    int first;
    int last;
};

Span SpanOf(float from, float to, float begin, float length, int count) {
    const auto cell = [&](float place) {
        return static_cast<int>(std::floor((place - begin) / length * static_cast<float>(count)));
    };
    return {std::clamp(cell(from), 0, count - 1), std::clamp(cell(to), 0, count - 1)};
}

bool IsFilledContainer(const Node& node) {
    return node.Is(&Kind::holdsChildren)
           && node.declared->GetKind().draws.Has(ThemeLine::FillColour);
}

}  // namespace

double Luminance(const Rgb& colour) {
    return 0.2126 * Linear(colour[0]) + 0.7152 * Linear(colour[1]) + 0.0722 * Linear(colour[2]);
}

double ContrastRatio(const Rgb& a, const Rgb& b) {
    const double first = Luminance(a) + 0.05;
    const double second = Luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

void ContrastCheck::Run() {
    for (const Node* node : scene.Nodes()) {
        if (node->declared != nullptr && !node->doubtful)
            CheckNode(*node);
    }
}

void ContrastCheck::CheckNode(const Node& node) {
    const Theme& theme = node.widget->GetTheme();
    const std::string name = "'" + std::string(node.Tag()) + "'";
    const std::string what = "the text of " + name;
    const Location where = node.declared->Where();
    switch (node.declared->GetKind().text) {
    case TextGround::None:
        break;
    case TextGround::Fill:  // a list fills the row under the mouse as if it were highlighted
        CheckOwnFill(theme, what, file, where);
        break;
    case TextGround::Title:
        CheckTitle(node);
        break;
    case TextGround::Around:
        if (!node.widget->GetText().empty())
            CheckOnBackground(node);
        break;
    }
    if (const auto* const chart = node.As<Chart>())
        CheckSeries(*chart, node);
    if (!node.Is(&Kind::hasTabs))
        return;
    for (const Node* other : scene.Nodes()) {
        if (other->parent == &node && other->declared == nullptr)
            CheckOwnFill(other->widget->GetTheme(), "the row of tabs of " + name, file, where);
    }
}

void ContrastCheck::CheckOwnFill(const Theme& theme, const std::string& what,
                                 const std::string& path, Location where) {
    // A widget that does not fade is always as bright as under the mouse.
    if (theme.fade)
        Compare(theme, {Times(theme.fillColour, theme.dim)}, &theme, what, kIdle, path, where);
    Compare(theme, {Times(theme.fillColour, theme.bright)}, &theme, what,
            theme.fade ? kHighlighted : kIdle, path, where);
}

void ContrastCheck::CheckTitle(const Node& window) {
    if (window.widget->GetText().empty())
        return;
    const std::string what = "the title of '" + std::string(window.Tag()) + "'";
    for (const auto& [mouse, when] : {std::pair(Mouse::Away, kIdle), {Mouse::Over, kHighlighted}}) {
        Compare(window.widget->GetTheme(), *ColoursOf(window, window.drawn, mouse),
                &window.widget->GetTheme(), what, when, file, window.declared->Where());
    }
}

void ContrastCheck::CheckSeries(const Chart& chart, const Node& node) {
    const Theme& around = chart.GetTheme();
    const Location where = node.declared->Where();
    for (std::size_t index = 0; index < Chart::kMaxSeries; ++index) {
        const Theme& series = chart.SeriesTheme(index);
        const std::string what =
            "series " + std::to_string(index + 1) + " of '" + std::string(node.Tag()) + "'";
        for (const auto& [brightness, when] :
             {std::pair(around.fade ? around.dim : around.bright, kIdle),
              {around.bright, around.fade ? kHighlighted : kIdle}}) {
            Compare(series, {Times(around.fillColour, brightness)}, &around, "the name of " + what,
                    when, file, where);
            double least = std::numeric_limits<double>::infinity();
            for (const Vector& ground : chart.Grounds(brightness)) {
                least = std::min(
                    least, ContrastRatio(Times(series.lineColour, 1.0f), Times(ground, 1.0f)));
            }
            Judge(least, kMinRatioOfLines, series, &chart, "the line of " + what, when, file,
                  where);
        }
    }
}

void ContrastCheck::CheckOnBackground(const Node& node) {
    const Node* const background = BackgroundOf(node);
    if (background == nullptr || background->doubtful)
        return;
    const Theme& around = background->widget->GetTheme();
    const void* const identity = background->Is(&Kind::isBackground)
                                     ? static_cast<const void*>(background)
                                     : static_cast<const void*>(&around);
    for (const auto& [mouse, when] : {std::pair(Mouse::Away, kIdle), {Mouse::Over, kHighlighted}}) {
        if (const auto behind = ColoursOf(*background, node.drawn, mouse)) {
            Compare(node.widget->GetTheme(), *behind, identity,
                    "the text of '" + std::string(node.Tag()) + "'", when, file,
                    node.declared->Where());
        }
    }
}

void ContrastCheck::Compare(const Theme& text, const Colours& behind, const void* identity,
                            const std::string& what, const std::string& when,
                            const std::string& path, Location where) {
    Judge(RatioTo(Times(text.textColour, 1.0f), behind), kMinRatio, text, identity, what, when,
          path, where);
}

void ContrastCheck::Judge(double ratio, double least, const Theme& theme, const void* identity,
                          const std::string& what, const std::string& when, const std::string& path,
                          Location where) {
    if (ratio >= least)
        return;
    std::array<char, 32> digits;
    // rounded down: 4.499 must not be printed as 4.50
    std::snprintf(digits.data(), digits.size(), "%.2f", std::floor(ratio * 100.0) / 100.0);
    if (!reported.emplace(&theme, identity, digits.data()).second)
        return;
    std::array<char, 32> limit;
    std::snprintf(limit.data(), limit.size(), "%.1f", least);
    findings.Warn(path, where,
                  what + " has a contrast of " + digits.data() + ":1" + when + ", below "
                      + limit.data() + ":1 (theme '" + ThemeName(theme) + "')");
}

const Node* ContrastCheck::BackgroundOf(const Node& node) const {
    const auto& nodes = scene.Nodes();
    for (const Node* inner = &node; inner != nullptr; inner = inner->parent) {
        if (inner != &node && IsFilledContainer(*inner))
            return inner;
        // Of the widgets that are drawn before it, the last one is on top.
        for (auto each = std::ranges::find(nodes, inner); each != nodes.begin();) {
            --each;
            if (ScreenCheck::IsBackgroundOf(**each, *inner))
                return *each;
        }
    }
    return nullptr;
}

auto ContrastCheck::ColoursOf(const Node& background, const Box& area, Mouse mouse)
    -> std::optional<Colours> {
    const Theme& theme = background.widget->GetTheme();
    if (background.Is(&Kind::isBackground))
        return PictureColours(background, area, mouse);
    const auto* const window = dynamic_cast<GLWindow*>(background.widget);
    const bool answers = window != nullptr && window->IsMovable() && mouse == Mouse::Over;
    return Colours{Times(theme.fillColour, answers || !theme.fade ? theme.bright : theme.dim)};
}

auto ContrastCheck::PictureColours(const Node& button, const Box& area, Mouse mouse)
    -> std::optional<Colours> {
    const Theme& theme = button.widget->GetTheme();
    const bool bright = mouse == Mouse::Over || !theme.fade;
    const Rgb tint = Times(theme.fillColour, bright ? theme.bright : theme.dim);
    const TextureData* const picture = PictureOf(theme);
    if (picture == nullptr)
        return Colours{tint};

    const Box& box = button.drawn;
    const Span columns = SpanOf(area.left, area.right, box.left, box.Width(), picture->GetWidth());
    // The array's first row is drawn at the bottom.
    const Span rows = SpanOf(area.bottom, area.top, box.bottom, box.Height(), picture->GetHeight());
    std::optional<Rgb> beneath;
    if (const Node* const below = BackgroundOf(button)) {
        if (const auto colours = ColoursOf(*below, area, Mouse::Away))
            beneath = MeanOf(*colours);
    }
    Colours seen;
    for (int row = rows.first; row <= rows.last; ++row) {
        const float* const line =
            picture->GetData() + static_cast<std::ptrdiff_t>(row) * picture->GetWidth() * 4;
        for (int column = columns.first; column <= columns.last; ++column) {
            const float* const pixel = line + static_cast<std::ptrdiff_t>(column) * 4;
            const float alpha = pixel[3];
            if (alpha < kOpaque && !beneath)
                return std::nullopt;
            Rgb& colour = seen.emplace_back();
            for (std::size_t i = 0; i < colour.size(); ++i) {
                colour[i] = pixel[i] * tint[i];
                if (alpha < kOpaque)
                    colour[i] = colour[i] * alpha + (*beneath)[i] * (1.0f - alpha);
            }
        }
    }
    return seen;
}

const TextureData* ContrastCheck::PictureOf(const Theme& theme) {
    if (theme.textureName == kNone)
        return nullptr;
    auto found = pictures.find(theme.textureName);
    if (found == pictures.end()) {
        found = pictures.emplace(theme.textureName, std::nullopt).first;
        const ErrorStreamCapture silence;  // ResourceCheck reports the picture
        TextureData picture;
        if (picture.Load(theme.textureName))
            found->second = std::move(picture);
    }
    return found->second ? &*found->second : nullptr;
}

}  // namespace guiview
