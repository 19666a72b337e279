// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// What the people earn in a year, and which part of it the treasury takes.
struct Economy {
    float wealthFactor = 0.05f;  ///< every income is higher by 0.8 times this fraction
    float taxRate = 0.025f;      ///< fraction of the incomes that the treasury takes
    float upperIncome = 25.0f;   ///< doubloons a year, of one fifth of the people
    float lowerIncome = 0.5f;    ///< doubloons a year, of the other four fifths
};
