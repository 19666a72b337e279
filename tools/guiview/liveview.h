// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "quarn2/eventcatcher.h"
#include "quarn2/kernel.h"
#include "quarn2/memory.h"
#include "tools/guiview/filewatch.h"
#include "tools/guiview/layoutcheck.h"
#include "tools/guiview/layoutsource.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Shows a layout in the game's window, answers mouse and keyboard as the toolkit does, and
/// builds the layout again when one of its files changes. Keys: o outlines with tags, i the widget
/// under the mouse, Escape ends.
class LiveView : public EventCatcher {
public:
    struct Options {
        std::string layout;
        SampleTexts texts;
        bool forGame = false;  ///< also if the layout's tags do not say so
    };

    LiveView(const Pointer<Kernel>& theKernel, Options theOptions);

    bool GotEvent(Event event) override;

    /// Whether the window was opened.
    bool Opened() const { return opened; }

private:
    /// Checks the layout, prints what is found, and shows the layout if it has no error. If it has
    /// one, the window still shows the last layout without errors.
    void Load();
    void Build();
    void Update(std::uint32_t milliseconds);
    void Render();
    /// @param x, y  window pixels from the top left
    void MoveMouse(float x, float y);
    void TakeKeys(const KeyboardEvent& keys);
    /// Null when there is none, and before the first move of the mouse.
    const Node* UnderMouse(const Scene& scene) const;
    void PrintWidgetUnderMouse();

    Options options;
    FileWatch watch;
    std::optional<LayoutSource> shown;
    bool opened = false;
    bool withGameTexts = false;  // what is shown is a layout of the game
    bool outlines = false;
    bool inspecting = false;
    std::uint32_t sinceLook = 0;  // milliseconds
    std::optional<Vector> mouse;  // in GUI units; unknown before the first move
    std::string inspected;        // the last widget that was printed
};

}  // namespace guiview
