// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tools/guiview/layoutcheck.h"

namespace guiview {

/// The files that decide how a layout looks, whether they are there or not: the layout itself,
/// its configurations with their fonts, and its themes and those of the toolkit with their
/// pictures.
std::vector<std::string> FilesOf(const std::string& layout);

/// Notices when the files of a layout change.
class FileWatch {
public:
    /// Looks at the files as they are now.
    explicit FileWatch(const std::string& layoutPath);

    /// Whether a file is not what it was, and whoever writes it seems to have finished: nothing
    /// changed since the last question. Then the files as they are now become the known ones.
    bool Changed();

private:
    struct Stamp {
        std::filesystem::file_time_type written;
        std::uintmax_t size;
        bool operator==(const Stamp&) const = default;
    };
    using Stamps = std::map<std::string, Stamp>;

    static Stamps Look(const std::vector<std::string>& files);

    std::string layout;
    std::vector<std::string> files;
    Stamps known;
    Stamps last;
};

}  // namespace guiview
