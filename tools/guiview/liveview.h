// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "quarn2/eventcatcher.h"
#include "quarn2/kernel.h"
#include "quarn2/memory.h"
#include "tools/guiview/filewatch.h"
#include "tools/guiview/headless.h"
#include "tools/guiview/layoutcheck.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Shows a layout in the game's window, answers mouse and keyboard as the toolkit does, and
/// starts anew when a file of the layout changes. Keys: o outlines with tags, i the widget under
/// the mouse, Escape ends.
class LiveView : public EventCatcher {
public:
    struct Options {
        std::string layout;
        SampleTexts texts;
        bool forGame = false;
    };

    LiveView(const Pointer<Kernel>& theKernel, Options theOptions);

    bool GotEvent(Event event) override;

    /// Whether the run ended because the layout changed and is to be shown anew. What the keys
    /// switched on is then left in the environment for the new start.
    bool StartAnew() const { return startAnew; }
    /// Whether the window was opened.
    bool Opened() const { return opened; }

private:
    void Open();
    bool Update(std::uint32_t milliseconds);
    void RememberKeys() const;
    void Render();
    /// @param x, y  window pixels from the top left
    void MoveMouse(float x, float y);
    void TakeKeys(const KeyboardEvent& keys);
    /// Null when there is none, and while nobody knows where the mouse is.
    const Node* UnderMouse(const Scene& scene) const;
    void PrintWidgetUnderMouse();
    enum class Report {
        Always,
        WhenBroken  ///< whoever starts anew says the rest
    };
    /// Checks the layout in a process of its own, for the toolkit is in use here.
    /// @return whether the toolkit can show it as it is written
    bool CheckFiles(Report report) const;

    Pointer<Kernel> kernel;
    Options options;
    FileWatch watch;
    std::optional<LayoutSource> shown;
    bool opened = false;
    bool startAnew = false;
    bool outlines = false;
    bool inspecting = false;
    std::uint32_t sinceLook = 0;  // milliseconds
    std::optional<Vector> mouse;  // in GUI units; unknown before the first move
    std::string inspected;        // the last widget that was named
};

}  // namespace guiview
