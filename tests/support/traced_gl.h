// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

/// The call traces of the last glGetFloatv and glMultMatrixf, innermost first. Linking
/// `test_traced_gl` puts it between the code under test and these two.
std::vector<std::string>& CallsOfGetFloat();
std::vector<std::string>& CallsOfMultMatrix();
