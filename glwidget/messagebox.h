// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

// The message box of the toolkit; callers use GLWidget::MessageBox.

/// Shows a box with `message` unless one is open. @return true
/// @param buttons  as for GLWidget::MessageBox
bool ShowMessageBox(const std::string& message, int buttons);

/// Ends the open message box once one of its buttons was clicked.
void CompleteMessageBox();
