// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace guiview {

/// Replaces a file's content at once: whoever reads it meanwhile sees the old or the new one. A
/// link stays one, and the file keeps its permissions.
/// @return false when it cannot be written; then it is as it was
[[nodiscard]] bool RewriteFile(const std::string& path, const std::string& content);

}  // namespace guiview
