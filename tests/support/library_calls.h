// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// The calls that code under test makes to the window system's library: a journal, and answers
/// that the real library does not give on demand. Linking `test_library_calls` puts it between
/// the two; whatever is not answered here is passed on.
struct LibraryCalls {
    std::vector<std::string> journal;    ///< such as "SDL_ShowCursor(1)"
    std::set<std::string> failing;       ///< functions that fail without being called
    std::optional<std::uint32_t> ticks;  ///< the clock stands still there
    std::optional<std::uint32_t> loaderResult;
    bool hardwareBlits = false;
    std::function<void()> afterVideoMode;  ///< runs in the fresh context
};

/// What a function that is made to fail leaves in SDL_GetError.
inline constexpr char kFailure[] = "made to fail";

LibraryCalls& Calls();
