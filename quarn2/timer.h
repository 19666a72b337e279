// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "quarn2/memory.h"

/// Milliseconds since its construction, by the input library's clock.
class Timer : public MMObject {
public:
    /// A clock that cannot be started is one line on standard error and nothing more.
    Timer();

    /// Milliseconds; wraps after 49 days.
    std::uint32_t GetTime() const;

private:
    std::uint32_t start;
};
