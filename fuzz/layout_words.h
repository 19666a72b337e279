// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/kinds.h"
#include "glwidget/layout.h"

/// The words of statements and kinds, one per line, as the fuzzer reads a dictionary.
inline std::string LayoutWords() {
    std::string words;
    const auto add = [&](std::string_view word) {
        words.append("\"").append(word).append(" \"\n");
    };
    for (const Layout::Statement& statement : Layout::Statements())
        add(statement.word);
    for (const Kind* kind : Kinds())
        add(kind->form.empty() ? kind->word : kind->form);
    return words;
}
