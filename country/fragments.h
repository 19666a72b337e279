// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

/// The parts that names are made of. Bit i of a position's mask allows row i. The alternatives
/// of a row are separated by "|".
inline constexpr std::string_view kFragments[] = {
    "ch|dg|j",                                                                       // 0x1
    "d|s|t|n|l|r|z",                                                                 // 0x2
    "b|p|m",                                                                         // 0x4
    "b|p",                                                                           // 0x8
    "sch|thr",                                                                       // 0x10
    "b|c|d|f|g|h|j|k|l|m|n|p|r|s|t|v|z",                                             // 0x20
    "bb|dd|ff|ll|mm|nn|rr|ss|tt",                                                    // 0x40
    "wy",                                                                            // 0x80
    "g|ng|r",                                                                        // 0x100
    "ch|f|ph|s|sh|th|v|z",                                                           // 0x200
    "w|y",                                                                           // 0x400
    "h",                                                                             // 0x800
    "l|r",                                                                           // 0x1000
    "ct|dr|dw|ft|mk|nd|ndr|nf|nj|nk|ns|nt|ny|pr|ps|rd|rg|rk|rm|rn|rz|sl|st|stl|wl",  // 0x2000
    "m|n",                                                                           // 0x4000
    "ch|dg|s|j|sh|y",                                                                // 0x8000
    "d|t|b|p|g|k",                                                                   // 0x10000
    "g|k|ng|w",                                                                      // 0x20000
    "ay|ea|ee|ei|oa|oe|ou|ow|oy|y",                                                  // 0x40000
    "a|e|i|o|u",                                                                     // 0x80000
    "ae|au|ea|ey|ie|io|oe|oi|oo|ou|ue|ui|ya|yo",                                     // 0x100000
    "bb|dd|kk|bd|dt|pk|gg|pp|tt",                                                    // 0x200000
    "-| ",                                                                           // 0x400000
    " ",                                                                             // 0x800000
    "'",                                                                             // 0x1000000
    "ch|f|ph|z|g|t|gr|r|p",                                                          // 0x2000000
};
static_assert(std::size(kFragments) == 26);
