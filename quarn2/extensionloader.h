// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// Loads the current OpenGL context's extensions. The program draws without them, yet does not
/// start when they cannot be loaded.
/// @return false after one line on standard error
[[nodiscard]] bool InitExtensionLoader();
