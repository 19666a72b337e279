// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// The schools: a head-count and two unused values.
struct Education {
    float firstValue = 0.0f;   ///< kept, nothing reads it
    float secondValue = 0.0f;  ///< kept, nothing reads it
    float educators = 0.0f;    ///< head-count of the profession
};
