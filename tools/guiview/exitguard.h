// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

namespace guiview {

/// While it lives, the process ends with the status of what could not be done, whoever ends it:
/// a broken invariant ends a process with status 0, which would read as a layout without fault.
class ExitGuard {
public:
    ExitGuard();
    ~ExitGuard();
    ExitGuard(const ExitGuard&) = delete;
    ExitGuard& operator=(const ExitGuard&) = delete;
};

}  // namespace guiview
