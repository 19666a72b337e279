// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "fuzz/layout_words.h"

#include <iostream>

int main() {
    std::cout << LayoutWords();
    return std::cout.flush() ? 0 : 1;
}
