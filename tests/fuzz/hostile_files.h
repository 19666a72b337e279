// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// The inputs of one fuzz target. Only this differs between the programs of hostile tests.
struct HostileFiles {
    const char* corpus;  ///< a folder
    const char* own;     ///< paths of files of the game that the target reads, with commas between
};
extern const HostileFiles kHostileFiles;
