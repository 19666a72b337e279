// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include <cstdint>
#include <vector>

/// One pass over the window system's event queue by a component that uses some events and
/// leaves the others to the components after it.
class QueuePass {
public:
    QueuePass();

    /// Takes the oldest event off the queue.
    /// @return false when there is none
    [[nodiscard]] bool Next(SDL_Event& event);

    /// Remembers an event for PutBack.
    void Keep(const SDL_Event& event) { kept.push_back(event); }

    /// Puts the kept events at the end of the queue, in their order.
    void PutBack();

    /// How many expose events all passes have taken. One that is put back counts each time.
    static std::uint32_t Exposures() { return exposures; }

private:
    static std::uint32_t exposures;
    std::vector<SDL_Event> kept;
    int lastType = SDL_NOEVENT;
};
