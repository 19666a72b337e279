// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// An empty working directory of its own for as long as the object lives.
class TempDirectory {
public:
    TempDirectory() : before(std::filesystem::current_path()) {
        std::string name = (std::filesystem::temp_directory_path() / "merovinska-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            std::abort();
        path = name;
        std::filesystem::current_path(path);
    }
    ~TempDirectory() {
        std::filesystem::current_path(before);
        std::filesystem::remove_all(path);
    }
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    void Write(const std::string& file, std::string_view content) const {
        std::ofstream(path / file, std::ios::binary) << content;
    }

    std::filesystem::path path;

private:
    std::filesystem::path before;
};
