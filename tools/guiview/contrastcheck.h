// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "quarn2/texturedata.h"
#include "tools/guiview/contrast.h"
#include "tools/guiview/finding.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Reports texts that do not stand out from what they are drawn on, with the mouse away and
/// over it. Behind a text is the widget's own fill, the image button below it or the window
/// around it; where there is none of them, nobody knows what the program draws there.
///
/// What shares its themes is one finding, at the first widget.
class ContrastCheck {
public:
    ContrastCheck(const Scene& widgets, const std::string& path, Findings& list)
        : scene(widgets), file(path), findings(list) {}

    void Run();

    /// Checks a theme whose text is drawn on its own fill.
    /// @param what   whose text it is
    void CheckOwnFill(const Theme& theme, const std::string& what, const std::string& path,
                      Place where);

private:
    enum class Mouse { Away, Over };
    /// Seen behind a text: those of its pixels, or one for all of them.
    using Colours = std::vector<Rgb>;

    void CheckNode(const Node& node);
    void CheckTitle(const Node& window);
    void CheckOnBackground(const Node& node);
    /// @param identity  the theme or the widget that the colours come from
    void Compare(const Theme& text, const Colours& behind, const void* identity,
                 const std::string& what, const std::string& when, const std::string& path,
                 Place where);

    const Node* BackgroundOf(const Node& node) const;
    std::optional<Colours> ColoursOf(const Node& background, const Box& area, Mouse mouse);
    std::optional<Colours> PictureColours(const Node& button, const Box& area, Mouse mouse);
    /// Null when there is none or it cannot be read.
    const TextureData* PictureOf(const Theme& theme);

    const Scene& scene;
    const std::string& file;
    Findings& findings;
    std::map<std::string, std::optional<TextureData>> pictures;
    std::set<std::tuple<const Theme*, const void*, std::string>> reported;
};

}  // namespace guiview
