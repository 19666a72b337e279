// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "fuzz/decode.h"
#include "quarn2/decoders.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Decode(DecodePNG, data, size);
    return 0;
}
