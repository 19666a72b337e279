// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include "tools/guiview/finding.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Reports what does not fit: widgets outside the screen or their window, siblings that overlap,
/// texts wider than their widgets, and widgets that a click reaches though another covers them.
class ScreenCheck {
public:
    /// @param path      as which the layout is reported
    /// @param answers   whether the program does anything when this widget is pressed
    /// @param boxCentre the message box at the centre of the screen
    ScreenCheck(const Scene& widgets, const std::string& path,
                std::function<bool(const Node&)> answers, const Box& boxCentre, Findings& list)
        : scene(widgets),
          file(path),
          isAnswered(std::move(answers)),
          messageBox(boxCentre),
          findings(list) {}

    void Run();

    /// An image button that lies behind a later sibling is what the sibling is drawn on.
    static bool IsBackgroundOf(const Node& earlier, const Node& later);

private:
    void CheckPlace(const Node& node);
    void CheckSiblings(const Node& earlier, const Node& later);
    void CheckText(const Node& node);
    void CheckTitle(const Node& window);
    void CheckLabel(const Node& label);
    void CheckList(const Node& combo);
    void CheckCentre(const Node& node);
    void CheckWidth(const Node& node, const std::string& text, float room);

    bool IsPressable(const Node& node) const;
    bool IsBackground(const Node& node) const;
    void Warn(const Node& node, std::string message);

    const Scene& scene;
    const std::string& file;
    std::function<bool(const Node&)> isAnswered;
    Box messageBox;
    Findings& findings;
};

}  // namespace guiview
