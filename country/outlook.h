// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

class Population;

/// What the next week will do to a store, in one step of a week and at today's people, shares and
/// rations, if no famine and no rebellion begins in it.
struct Outlook {
    enum class Trend {
        Empty,      ///< it is empty and stays so
        RunsOut,    ///< it will be empty
        Lasts,      ///< it becomes less
        Steady,     ///< it changes by a thousandth at most
        Uncertain,  ///< it grows or becomes less: the dead of a famine or a plague decide
        Grows,
    };

    float amount;   ///< today
    float lowest;   ///< least amount after the week: the dead of a famine or a plague are random
    float highest;  ///< largest amount after the week
    Trend trend;
    /// How long the store lasts if every week takes as much as the next one at most; 0 unless the
    /// trend is Lasts.
    float weeks = 0.0f;

    /// Appends "lasts 4 weeks" or what else the trend is.
    void WriteTo(std::string& text) const;
};

/// The outlook of the herd, and of the butchers' work.
struct HerdOutlook : Outlook {
    enum class Butchers {
        None,      ///< there are none, a rebellion stops them, or their work has no limit
        Idle,      ///< they raise nothing until the workers are set again
        Raise,     ///< they raise a part of the herd
        TakeAll,   ///< they want more than the herd can grow by, and it will be lost
        TakeMore,  ///< the same, but the herd is so large that a part of it will be left
    };

    Butchers butchers;
    float part;   ///< heads that the butchers raise in the week, as a fraction of the herd
    float limit;  ///< a larger part than this loses the herd: a third

    /// Appends one sentence: how the herd will change, and how near the butchers are to the part
    /// of it that loses the herd.
    void WriteTo(std::string& text) const;
};

/// What the next week will do to the granary.
Outlook GrainOutlook(const Population& people);
/// What the next week will do to the herd.
HerdOutlook LivestockOutlook(const Population& people);
