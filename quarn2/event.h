// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

/// Key symbols and character codes that the engine tracks, 0 to 511.
inline constexpr std::size_t kKeyCount = 512;

/// One flag per key, indexed by SDL's key symbol or character code.
using KeyFlags = std::array<bool, kKeyCount>;

/// The numbers are sent and stored.
enum EventType : std::uint32_t {
    LoadResourcesEvent = 16,
    OpenWindowEvent = 17,
    LoadGraphicsResourcesEvent = 18,
    InitialSetupEvent = 19,
    UpdateEvent = 20,
    RenderEvent = 21,
    AfterRenderEvent = 22,
    MouseEvent = 23,
    KeyEvent = 24,
    QuitEvent = 25,
    ReleaseResourcesEvent = 26,
};

/// The keyboard's state in one update.
struct KeyboardEvent {
    KeyboardEvent();

    KeyFlags down;           ///< held
    KeyFlags pressed;        ///< pressed, or repeating, in this update
    std::uint32_t mods = 0;  ///< modifier mask as SDL reports it
};

/// An event of any kind, sent by value.
struct Event {
    /// @param kind  an EventType; 0 means none and must not be sent
    explicit Event(std::uint32_t kind = 0) : type(kind) {}

    std::uint32_t type;  ///< an EventType

    // Mouse: window pixels from the top left; motion since the last mouse event, dy upwards.
    std::int32_t x = 0, y = 0, z = 0;
    std::int32_t dx = 0, dy = 0, dz = 0;
    bool left = false, middle = false, right = false;

    KeyboardEvent keyboard;  ///< of a KeyEvent

    std::uint32_t time = 0;  ///< milliseconds since the last update event

    // Window
    std::string caption;
    std::int32_t width = 800, height = 600;
    std::int32_t bpp = 24;
    bool fullscreen = false;
};
