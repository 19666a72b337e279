// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/fuzz/hostile_files.h"

const HostileFiles kHostileFiles{HOSTILE_CORPUS, HOSTILE_OWN_FILES};
