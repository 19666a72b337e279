// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

/// Number of calls of operator new in this process so far. Linking `test_allocations` replaces
/// the process's operator new and delete.
std::size_t AllocationCount();

/// Number of bytes that these calls asked for.
std::size_t AllocatedBytes();
