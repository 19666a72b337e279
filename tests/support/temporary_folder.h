// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// An empty folder for the files of one test, removed together with the object. The names "tga" and
/// "png" are not in its path, so that they do not choose a decoder.
class TemporaryFolder {
public:
    TemporaryFolder() : folder(std::filesystem::temp_directory_path() / UniqueName()) {
        std::filesystem::create_directories(folder);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(folder); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string Path(std::string_view name) const { return (folder / name).string(); }

    /// Writes a file, making the folders of its name.
    /// @return its path
    std::string Write(std::string_view name, std::span<const std::uint8_t> bytes) const {
        std::filesystem::create_directories((folder / name).parent_path());
        std::ofstream file(folder / name, std::ios::binary);
        for (const std::uint8_t byte : bytes)
            file.put(static_cast<char>(byte));
        return Path(name);
    }
    std::string Write(std::string_view name, std::string_view text) const {
        return Write(name, std::vector<std::uint8_t>(text.begin(), text.end()));
    }

    /// A pipe into which nobody writes.
    /// @return its path
    std::string MakePipe(std::string_view name) const {
        if (mkfifo(Path(name).c_str(), 0600) != 0)
            std::abort();
        return Path(name);
    }

    /// A file of zeros that takes no room on the disk.
    /// @return its path
    std::string MakeSparseFile(std::string_view name, std::uintmax_t size) const {
        Write(name, "");
        std::filesystem::resize_file(folder / name, size);
        return Path(name);
    }

private:
    static std::string UniqueName() {
        static int count = 0;
        return "merovinska_" + std::to_string(getpid()) + "_" + std::to_string(++count);
    }

    std::filesystem::path folder;
};

/// A temporary folder that is the working directory as long as the object lives.
class WorkingFolder : public TemporaryFolder {
public:
    WorkingFolder() : before(std::filesystem::current_path()) {
        std::filesystem::current_path(Path(""));
    }
    ~WorkingFolder() { std::filesystem::current_path(before); }

private:
    std::filesystem::path before;
};

/// A file's bytes; none when it cannot be read.
inline std::vector<std::uint8_t> FileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
