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
    /// Watches these files instead of the ones before. A file that was watched already keeps the
    /// state that is known of it; of another one, what was written since `start` is a change.
    void Watch(const std::set<std::string>& files, std::filesystem::file_time_type start);

    /// Whether a file is not as it is known, and nothing has changed since the last call: the
    /// program that writes it has finished. The files are then known as they are now.
    bool Changed();

private:
    struct State {
        std::filesystem::file_time_type written;
        std::uintmax_t size = 0;
        bool operator==(const State&) const = default;
    };
    /// By path; a file that does not exist has the state of an empty one.
    using States = std::map<std::string, State>;

    static State Look(const std::string& file);

    States known;
    States last;
};

}  // namespace guiview
