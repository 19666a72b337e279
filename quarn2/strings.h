// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The file's text with every line break as "\n"; empty when the file cannot be read.
std::string ReadFile(const std::string& filename);

/// Occurrences of `needle` that do not overlap; 0 for an empty needle.
std::uint32_t substr_count(std::string_view haystack, std::string_view needle);

/// `subject` with every occurrence of `needle` replaced. The replacement is not searched
/// again. An empty needle changes nothing.
std::string str_replace(std::string_view needle, std::string_view replacement,
                        std::string_view subject);
