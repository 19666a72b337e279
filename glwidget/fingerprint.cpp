// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/fingerprint.h"

#include <cstddef>
#include <cstring>

#include "glwidget/theme.h"

namespace {

void AddFields(Fingerprint& print, const Theme& theme) {
    print.Add(theme.textColour);
    print.Add(theme.lineColour);
    print.Add(theme.fillColour);
    print.Add(theme.opacity);
    print.Add(theme.lineWidth);
    print.Add(theme.border);
    print.Add(theme.corner);
    print.AddPair(theme.fontSize);
    print.Add(theme.dim);
    print.Add(theme.bright);
    print.AddPair(theme.pressOffset);
    print.Add(theme.boxSize);
    print.Add(theme.image.GetName());
}

}  // namespace

void Fingerprint::Add(std::string_view text) {
    Add(std::uint64_t{text.size()});
    while (!text.empty()) {
        std::uint64_t word = 0;
        const std::size_t length = text.size() < sizeof word ? text.size() : sizeof word;
        std::memcpy(&word, text.data(), length);
        Add(word);
        text.remove_prefix(length);
    }
}

void Fingerprint::Add(const Theme& theme) {
    KnownTheme& entry = known[std::bit_cast<std::uintptr_t>(&theme) / alignof(Theme) % kThemesKept];
    if (entry.theme != &theme) {
        Fingerprint fields;
        AddFields(fields, theme);
        entry = {&theme, fields.Number()};
    }
    Add(entry.number);
}
