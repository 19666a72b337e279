// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "glwidget/chart.h"
#include "quarn2/texturedata.h"
#include "tools/guiview/finding.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Red, green and blue as OpenGL draws them, 0 to 1.
using Rgb = std::array<float, 3>;

/// Relative luminance of an sRGB colour (WCAG 2).
double Luminance(const Rgb& colour);

/// From 1, for equal colours, to 21, for black and white (WCAG 2).
double ContrastRatio(const Rgb& a, const Rgb& b);

/// Reports texts, and lines of charts, with too little contrast to their background, with and
/// without the mouse over it.
/// The background is the widget's own fill, the image button below it or the window around it. If
/// there is none of these, it is unknown and the text is not checked.
///
/// Widgets with the same themes are one finding, at the first of them.
class ContrastCheck {
public:
    ContrastCheck(const Scene& widgets, const std::string& path, Findings& list)
        : scene(widgets), file(path), findings(list) {}

    void Run();

    /// Checks a theme whose text is drawn on its own fill.
    /// @param what   the text's name in reports
    void CheckOwnFill(const Theme& theme, const std::string& what, const std::string& path,
                      Location where);

private:
    enum class Mouse { Away, Over };
    /// The colours of the pixels behind a text, or one colour for all of them.
    using Colours = std::vector<Rgb>;

    void CheckNode(const Node& node);
    void CheckTitle(const Node& window);
    void CheckSeries(const Chart& chart, const Node& node);
    void CheckOnBackground(const Node& node);
    /// @param identity  the theme or the widget that gives the colours
    void Compare(const Theme& text, const Colours& behind, const void* identity,
                 const std::string& what, const std::string& when, const std::string& path,
                 Location where);
    /// Reports a contrast that is too low.
    void Judge(double ratio, double least, const Theme& theme, const void* identity,
               const std::string& what, const std::string& when, const std::string& path,
               Location where);

    const Node* BackgroundOf(const Node& node) const;
    std::optional<Colours> ColoursOf(const Node& background, const Box& area, Mouse mouse);
    std::optional<Colours> PictureColours(const Node& button, const Box& area, Mouse mouse);
    /// Null if there is none or it cannot be read.
    const TextureData* PictureOf(const Theme& theme);

    const Scene& scene;
    const std::string& file;
    Findings& findings;
    std::map<std::string, std::optional<TextureData>> pictures;
    std::set<std::tuple<const Theme*, const void*, std::string>> reported;
};

}  // namespace guiview
