// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

// Raw DEFLATE data (RFC 1951) without the zlib wrapper. Both functions follow the standard
// except for one point: the code lengths of a dynamic block are read in two runs, so a stream whose
// repeats cross from the literal/length set into the distance set is refused or decoded wrongly.

/// Decodes one whole stream. A failure writes its line on standard error; what was decoded
/// before it stays in `output`, and `*outputCount` is the number of these bytes.
/// @param output  null: the bytes are only counted, and the contents of stored blocks are not
///                skipped
/// @param capacity  bytes that `output` has room for; needing more is a failure, even if they
///                  are only counted
/// @param outputCount  bytes produced; what it held before is ignored
/// @return 0 on success, 1 on failure
[[nodiscard]] int Inflate(std::uint8_t* output, std::uint32_t capacity, std::uint32_t* outputCount,
                          const std::uint8_t* input, std::uint32_t inputLength);

/// Decodes into an output that is known to be large enough. If it is null, bytes are only counted.
[[nodiscard]] int Inflate(std::uint8_t* output, std::uint32_t* outputCount,
                          const std::uint8_t* input, std::uint32_t inputLength);
