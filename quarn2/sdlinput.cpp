// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/sdlinput.h"

#include <SDL.h>

#include <cstring>
#include <iostream>

#include "quarn2/queuepass.h"
#include "quarn2/trace.h"

namespace {

constexpr std::uint32_t kChannels = 0x93;  // 0, 1, 4 and 7
constexpr std::uint32_t kPriority = 500;
constexpr std::int32_t kRepeatDelayMs = 700;
constexpr std::int32_t kRepeatIntervalMs = 30;
constexpr std::uint16_t kHoldingPoint = 200;  // pixels, in both directions

/// The key's symbol as a number. An input driver may send numbers that SDL's enumeration does
/// not have.
std::size_t SymbolOf(const SDL_keysym& key) {
    std::uint32_t symbol = 0;
    static_assert(sizeof symbol == sizeof key.sym);
    std::memcpy(&symbol, &key.sym, sizeof symbol);
    return symbol;
}

/// Wraps at 32 bits: the machine may have slept for weeks between two updates.
void Add(std::int32_t& counter, std::uint32_t milliseconds) {
    counter = static_cast<std::int32_t>(static_cast<std::uint32_t>(counter) + milliseconds);
}

}  // namespace

SDLInput::SDLInput(const Pointer<Kernel>& newKernel, bool newGrab)
    : EventCatcher(nullptr), Kern(newKernel), grab(newGrab) {
    TraceFrame frame("SDLInput", "SDLInput");
    Kern->AddChild(this, kChannels, kPriority);
}

bool SDLInput::GotEvent(Event ev) {
    TraceFrame frame("GotEvent", "SDLInput");
    switch (ev.type) {
    case UpdateEvent:
        return Update(ev.time);
    case LoadResourcesEvent:
        return Init();
    case ReleaseResourcesEvent:
        return Close();
    case OpenWindowEvent:
        windowIsNew = true;
        return true;
    default:
        return true;
    }
}

bool SDLInput::Init() {
    TraceFrame frame("Init", "SDLInput");
    if (SDL_WasInit(SDL_INIT_JOYSTICK) == 0
        && SDL_Init(SDL_INIT_JOYSTICK | SDL_INIT_NOPARACHUTE) < 0) {
        std::cerr << "SDL_Init() failed. SDL Error: " << SDL_GetError() << '\n';
        SDL_Quit();
        return false;
    }
    for (Key& key : keys)
        key.state = Up;
    left = middle = right = false;
    SDL_EnableUNICODE(1);
    return true;
}

bool SDLInput::Close() {
    TraceFrame frame("Close", "SDLInput");
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    return true;
}

bool SDLInput::Update(std::uint32_t milliseconds) {
    TraceFrame frame("Update", "SDLInput");
    Assert("sdlinput", 107, "Kern", !!Kern);
    if (windowIsNew) {
        // Opening a window switches the translation off again. sdl12-compat reports it as on even
        // then, so this does not ask.
        SDL_EnableUNICODE(1);
        windowIsNew = false;
    }
    const bool mouseChanged = DrainQueue();
    if (!SendKeys(milliseconds) || (mouseChanged && !SendMouse()))
        return false;
    if (grab)
        HoldPointer();
    return true;
}

/// Uses the input events and leaves the others in the queue.
/// @return whether the mouse did anything
bool SDLInput::DrainQueue() {
    bool mouseChanged = false;
    QueuePass pass;
    for (SDL_Event event; pass.Next(event);) {
        switch (event.type) {
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            TakeKey(event.key.keysym.unicode, event.type == SDL_KEYDOWN);
            TakeKey(SymbolOf(event.key.keysym), event.type == SDL_KEYDOWN);
            break;
        case SDL_MOUSEMOTION:
            curx = event.motion.x;
            cury = event.motion.y;
            mouseChanged = true;
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            curx = event.button.x;
            cury = event.button.y;
            mouseChanged = true;
            TakeButton(event.button.button, event.button.state == SDL_PRESSED);
            break;
        default:
            pass.Keep(event);
        }
    }
    pass.PutBack();
    return mouseChanged;
}

/// A press marks both its character and its symbol. A release has no character, so it clears
/// index 0 instead, and a character that differs from its symbol stays held.
void SDLInput::TakeKey(std::size_t index, bool down) {
    if (index >= keys.size())
        return;
    Key& key = keys[index];
    if (down) {
        key.state = Pressed;
    } else {
        key.state = Up;
        key.held = 0;
    }
}

void SDLInput::TakeButton(int button, bool down) {
    switch (button) {
    case SDL_BUTTON_LEFT:
        left = down;
        break;
    case SDL_BUTTON_MIDDLE:
        middle = down;
        break;
    case SDL_BUTTON_RIGHT:
        right = down;
        break;
    default:
        break;
    }
}

/// Lets the time pass for a key.
/// @return whether the key is pressed or repeats in this update
bool SDLInput::Advance(Key& key, std::uint32_t milliseconds) {
    // kept: also counts during the first delay, so the second repeat follows right after the first
    Add(key.repeat, milliseconds);
    switch (key.state) {
    case Pressed:
        key.state = Held;
        return true;
    case Held:
        Add(key.held, milliseconds);
        if (key.held <= kRepeatDelayMs)
            return false;
        key.state = Repeating;
        return true;
    case Repeating:
        if (key.repeat <= kRepeatIntervalMs)
            return false;
        key.repeat = 0;
        return true;
    default:
        key.repeat = 0;
        key.held = 0;
        return false;
    }
}

bool SDLInput::SendKeys(std::uint32_t milliseconds) {
    Event event(KeyEvent);
    event.keyboard.mods = static_cast<std::uint32_t>(SDL_GetModState());
    for (std::size_t index = 0; index < keys.size(); ++index) {
        event.keyboard.down[index] = keys[index].state != Up;
        event.keyboard.pressed[index] = Advance(keys[index], milliseconds);
    }
    return Kern->SendEvent(this, event);
}

bool SDLInput::SendMouse() {
    Event event(MouseEvent);
    event.x = curx;
    event.y = cury;
    event.dx = curx - lastx;
    event.dy = lasty - cury;  // upwards
    event.left = left;
    event.middle = middle;
    event.right = right;
    const bool first = lasty == -1;
    lastx = curx;
    lasty = cury;
    // There is no earlier position to measure from, so the first event is not sent.
    return first || Kern->SendEvent(this, event);
}

void SDLInput::HoldPointer() {
    lastx = lasty = kHoldingPoint;
    SDL_WarpMouse(kHoldingPoint, kHoldingPoint);
    SDL_ShowCursor(SDL_DISABLE);
}
