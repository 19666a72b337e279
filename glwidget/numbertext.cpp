// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/numbertext.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

constexpr double kBillion = 1e9;
constexpr double kTooLongForWords = 1e18;

struct Scale {
    double unit;
    const char* word;
};
constexpr Scale kScales[] = {{1e15, "quadrillion"}, {1e12, "trillion"}, {kBillion, "billion"}};

std::string_view Copy(const char* text, std::span<char> buffer) {
    std::snprintf(buffer.data(), buffer.size(), "%s", text);
    return buffer.data();
}

/// Puts a comma between every three digits before the point.
void Separate(std::span<char> buffer) {
    char* const begin = buffer.data() + (buffer.front() == '-' ? 1 : 0);
    const std::size_t digits = std::strspn(begin, "0123456789");
    for (std::size_t place = digits; place > 3;) {
        place -= 3;
        std::memmove(begin + place + 1, begin + place, std::strlen(begin + place) + 1);
        begin[place] = ',';
    }
}

/// Removes the sign of a number that is rounded to 0.
void RemoveSignOfZero(std::span<char> buffer) {
    const std::string_view text = buffer.data();
    if (text.starts_with('-') && text.find_first_of("123456789") == std::string_view::npos)
        std::memmove(buffer.data(), buffer.data() + 1, text.size());
}

}  // namespace

std::string_view NumberText(double value, int decimals, std::span<char> buffer) {
    if (std::isnan(value))
        return Copy("unknown", buffer);
    if (std::isinf(value))
        return Copy(value > 0.0 ? "infinite" : "-infinite", buffer);
    const double size = std::abs(value);
    if (size >= kTooLongForWords) {
        std::snprintf(buffer.data(), buffer.size(), "%.1e", value);
        return buffer.data();
    }
    for (const Scale& scale : kScales) {
        if (size >= scale.unit) {
            std::snprintf(buffer.data(), buffer.size(), "%.1f %s", value / scale.unit, scale.word);
            return buffer.data();
        }
    }
    std::snprintf(buffer.data(), buffer.size(), "%.*f", std::clamp(decimals, 0, 9), value);
    RemoveSignOfZero(buffer);
    Separate(buffer);
    return buffer.data();
}
