// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <string>

#include "country/date.h"
#include "fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Date date(std::string(data, data + size));
    const std::string text = date.Text();
    Require(Date(text) == date);  // a written date is read as the same date
    Require(!date.TimeText().empty());
    date.Advance(61);
    Require(!date.Text().empty());
    return 0;
}
