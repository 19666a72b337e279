// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "quarn2/memory.h"

/// Milliseconds since its construction, by SDL's clock.
class Timer : public MMObject {
public:
    /// If the clock cannot be started, this writes one line on standard error and goes on.
    Timer();

    /// Milliseconds; wraps after 49 days.
    std::uint32_t GetTime() const;

private:
    std::uint32_t start;
};
