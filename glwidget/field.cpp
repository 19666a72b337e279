// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/field.h"

#include <sstream>

std::string Field::Range() const {
    if (type == FieldType::Flag)
        return "0 or 1";
    std::ostringstream range;
    if (lowest == kAboveZero) {
        range << "above 0";
        if (highest != kUnlimited)
            range << ", at most " << highest;
    } else if (lowest == -kUnlimited && highest == kUnlimited) {
        return {};
    } else if (highest == kUnlimited) {
        range << lowest << " or more";
    } else if (lowest == -kUnlimited) {
        range << highest << " or less";
    } else {
        range << lowest << " to " << highest;
    }
    return range.str();
}
