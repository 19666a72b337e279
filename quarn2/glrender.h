// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>

#include "quarn2/event.h"
#include "quarn2/eventcatcher.h"
#include "quarn2/kernel.h"
#include "quarn2/memory.h"

/// Owns the window and its OpenGL context, presents each picture and notices the request to
/// close the window. It draws nothing.
class GLRender : public EventCatcher {
public:
    /// Joins the kernel.
    explicit GLRender(const Pointer<Kernel>& newKernel);

    bool GotEvent(Event ev) override;

    /// A failure is one line on standard error.
    [[nodiscard]] bool OpenWindow(const std::string& caption, std::int32_t width,
                                  std::int32_t height, std::int32_t bpp, bool fullscreen);
    /// @return false when the user asked to close the window
    [[nodiscard]] bool Update();
    /// Presents what was drawn since the last call.
    /// @return true
    bool Render();
    /// Closes the window.
    /// @return true
    bool Close();

    /// How many times a covered part of a window has become visible. Where it was covered, OpenGL
    /// need not have drawn.
    static std::uint32_t Exposures();
};
