// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>

#include "glwidget/chart.h"
#include "tools/guiview/finding.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Reports widgets outside of the screen or their window, siblings that overlap, texts that are
/// larger than their widgets, and widgets that also get clicks on a list or message box over them.
class ScreenCheck {
public:
    /// @param path        the layout's name in reports
    /// @param answers     whether the program does anything when this widget is pressed
    /// @param area        where message boxes appear; nothing if that is not known
    ScreenCheck(const Scene& widgets, const std::string& path,
                std::function<bool(const Node&)> answers, const std::optional<Box>& area,
                Findings& list)
        : scene(widgets),
          file(path),
          isAnswered(std::move(answers)),
          messageArea(area),
          findings(list) {}

    void Run();

    /// An image button that contains a later sibling is the background of that sibling.
    static bool IsBackgroundOf(const Node& earlier, const Node& later);

private:
    void CheckPlace(const Node& node);
    void CheckSiblings(const Node& earlier, const Node& later);
    void CheckText(const Node& node);
    void CheckTitle(const Node& window);
    void CheckLabel(const Node& label);
    void CheckList(const Node& combo);
    void CheckChart(const Chart& chart, const Node& node);
    void CheckCentre(const Node& node);
    void CheckWidth(const Node& node, const std::string& text, float room);

    bool IsPressable(const Node& node) const;
    bool IsBackground(const Node& node) const;
    void Warn(const Node& node, std::string message);

    const Scene& scene;
    const std::string& file;
    std::function<bool(const Node&)> isAnswered;
    std::optional<Box> messageArea;
    Findings& findings;
};

}  // namespace guiview
