// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// Loads the current OpenGL context's extensions. The program uses none of them, but does not
/// start if they cannot be loaded.
/// @return false after one line on standard error
[[nodiscard]] bool InitExtensionLoader();
