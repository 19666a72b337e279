// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace guiview {

/// Notices when a file changes, appears or disappears.
class FileWatch {
public:
    /// Watches these files from now on, and no others. A file that was not watched before counts as
    /// changed if it was written after `start`.
    void Watch(const std::set<std::string>& files, std::filesystem::file_time_type start);

    /// Whether a file has changed since this last returned true, and none has changed since the
    /// last call, so that the program that writes it has probably finished.
    bool Changed();

private:
    struct State {
        std::filesystem::file_time_type written;
        std::uintmax_t size = 0;
        bool operator==(const State&) const = default;
    };
    /// By path. A file that does not exist has the default state.
    using States = std::map<std::string, State>;

    static State Look(const std::string& file);

    States known;
    States last;
};

}  // namespace guiview
