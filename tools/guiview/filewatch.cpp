// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/filewatch.h"

#include <system_error>
#include <utility>

namespace guiview {

namespace fs = std::filesystem;

void FileWatch::Watch(const std::set<std::string>& files, fs::file_time_type start) {
    States states;
    for (const std::string& file : files) {
        const auto before = known.find(file);
        State state = before != known.end() ? before->second : Look(file);
        if (before == known.end() && state.written >= start)
            state = {};
        states.emplace(file, state);
    }
    known = last = std::move(states);
}

bool FileWatch::Changed() {
    States now;
    for (const auto& [file, state] : known)
        now.emplace(file, Look(file));
    const bool quiet = now == last;
    last = now;
    if (!quiet || now == known)
        return false;
    known = std::move(now);
    return true;
}

FileWatch::State FileWatch::Look(const std::string& file) {
    std::error_code error;
    const auto written = fs::last_write_time(file, error);
    const auto size = error ? std::uintmax_t{0} : fs::file_size(file, error);
    return error ? State{} : State{written, size};
}

}  // namespace guiview
