// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "tools/guiview/childprocess.h"

namespace guiview {

/// A display that nobody sees, with the driver in software: pictures are the same everywhere.
/// What opens a window from now on opens it there.
class VirtualDisplay {
public:
    /// @return null, after one line on standard error, when it cannot be started
    static std::unique_ptr<VirtualDisplay> Start(int width, int height);

private:
    VirtualDisplay(int width, int height);

    ChildProcess server;
};

}  // namespace guiview
