// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <vector>

/// SDL's event queue without a display: it has only the events that a test puts there.
class EventQueue {
public:
    EventQueue() {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        EXPECT_EQ(SDL_InitSubSystem(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE), 0) << SDL_GetError();
        unsetenv("SDL_VIDEODRIVER");
        Take();
    }
    ~EventQueue() { SDL_QuitSubSystem(SDL_INIT_VIDEO); }
    EventQueue(const EventQueue&) = delete;
    EventQueue& operator=(const EventQueue&) = delete;

    static void Push(SDL_Event event) { EXPECT_EQ(SDL_PushEvent(&event), 0); }

    static void Push(SDL_EventType type) {
        SDL_Event event{};
        event.type = type;
        Push(event);
    }

    static void PushUser(int code) {
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        event.user.code = code;
        Push(event);
    }

    static void PushKey(bool down, int symbol, int character = 0) {
        SDL_Event event{};
        event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
        event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
        // Copied, because the number may be outside the enumeration.
        std::memcpy(&event.key.keysym.sym, &symbol, sizeof symbol);
        event.key.keysym.unicode = static_cast<Uint16>(character);
        Push(event);
    }

    static void PushMotion(int x, int y) {
        SDL_Event event{};
        event.type = SDL_MOUSEMOTION;
        event.motion.x = static_cast<Uint16>(x);
        event.motion.y = static_cast<Uint16>(y);
        Push(event);
    }

    static void PushButton(bool down, int button, int x, int y) {
        SDL_Event event{};
        event.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        event.button.state = down ? SDL_PRESSED : SDL_RELEASED;
        event.button.button = static_cast<Uint8>(button);
        event.button.x = static_cast<Uint16>(x);
        event.button.y = static_cast<Uint16>(y);
        Push(event);
    }

    /// Empties the queue.
    /// @return the codes of user events and the negative types of other events
    static std::vector<int> Take() {
        std::vector<int> taken;
        for (SDL_Event event; SDL_PollEvent(&event) != 0;)
            taken.push_back(event.type == SDL_USEREVENT ? event.user.code : -event.type);
        return taken;
    }
};
