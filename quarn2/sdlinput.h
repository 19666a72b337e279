// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "quarn2/event.h"
#include "quarn2/eventcatcher.h"
#include "quarn2/kernel.h"
#include "quarn2/memory.h"

/// Turns the window system's input into key and mouse events. While it handles an update event
/// it sends one key event, changed or not, and one mouse event if the mouse did anything.
class SDLInput : public EventCatcher {
public:
    /// Joins the kernel.
    /// @param newGrab  hides the pointer and holds it at one point, so that only motion counts
    SDLInput(const Pointer<Kernel>& newKernel, bool newGrab);

    bool GotEvent(Event ev) override;

    /// A failure is one line on standard error.
    [[nodiscard]] bool Init();
    /// @return false when a catcher failed on one of the events sent
    [[nodiscard]] bool Update(std::uint32_t milliseconds);
    /// @return true
    bool Close();

private:
    enum KeyState : std::int32_t { Up, Pressed, Held, Repeating };

    /// Times are milliseconds.
    struct Key {
        std::int32_t state = Up;
        std::int32_t held = 0;    ///< spent in state Held
        std::int32_t repeat = 0;  ///< since the last repeat, counted in every state but Up
    };

    bool DrainQueue();
    void TakeKey(std::size_t index, bool down);
    void TakeButton(int button, bool down);
    static bool Advance(Key& key, std::uint32_t milliseconds);
    bool SendKeys(std::uint32_t milliseconds);
    bool SendMouse();
    void HoldPointer();

    Pointer<Kernel> Kern;
    bool grab;
    std::int32_t lastx = -1, lasty = -1;  ///< as of the last mouse event; -1 before the first
    bool left = false, middle = false, right = false;
    std::int32_t curx = 0, cury = 0;
    std::array<Key, kKeyCount> keys;
    bool windowIsNew = false;  ///< a window was opened since the last update
};
