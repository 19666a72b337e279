// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <sstream>

#include "fuzz/toolkit.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzedToolkit toolkit;
    std::istringstream file(std::string(data, data + size));
    Require(GLWidget::Init(file));
    Require(GLWidget::guiScale == 1.3f);
    return 0;
}
