// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// The schools: a head-count and two values that nothing needs.
struct Education {
    float firstValue = 0.0f;   ///< kept, read by nothing
    float secondValue = 0.0f;  ///< kept, read by nothing
    float educators = 0.0f;    ///< head-count of the profession
};
