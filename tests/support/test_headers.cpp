// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Nothing but the headers that the tests share, precompiled for them.
