// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/contrast.h"

#include <algorithm>
#include <cmath>

namespace guiview {

namespace {

double Linear(float channel) {
    const double value = std::clamp(static_cast<double>(channel), 0.0, 1.0);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

}  // namespace

double Luminance(const Rgb& colour) {
    return 0.2126 * Linear(colour[0]) + 0.7152 * Linear(colour[1]) + 0.0722 * Linear(colour[2]);
}

double ContrastRatio(const Rgb& a, const Rgb& b) {
    const double first = Luminance(a) + 0.05;
    const double second = Luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

}  // namespace guiview
