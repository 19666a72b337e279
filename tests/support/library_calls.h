// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// The calls of the code under test to SDL and GLEW: a journal, and results that these libraries
/// do not give on demand. Linking `test_library_calls` puts this between the two; a call without
/// such a result goes to the library.
struct LibraryCalls {
    std::vector<std::string> journal;    ///< such as "SDL_ShowCursor(1)"
    std::set<std::string> failing;       ///< functions that fail and do not reach the library
    std::optional<std::uint32_t> ticks;  ///< the clock stands still at this time
    std::optional<std::uint32_t> loaderResult;
    bool hardwareBlits = false;
    std::function<void()> afterVideoMode;  ///< runs in the new OpenGL context
};

/// What SDL_GetError returns after such a failure.
inline constexpr char kFailure[] = "made to fail";

LibraryCalls& Calls();
