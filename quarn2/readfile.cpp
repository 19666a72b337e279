// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/readfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace {

/// A file that is open for reading, or is not because `errno` says why.
class OpenFile {
public:
    /// Does not wait until somebody writes into a pipe.
    explicit OpenFile(const std::string& path)
        : descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {}
    ~OpenFile() {
        if (IsOpen())
            close(descriptor);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return descriptor >= 0; }

    bool GetStatus(struct stat& status) const { return fstat(descriptor, &status) == 0; }

    /// @return as read(2), but is not interrupted by signals
    ssize_t Read(void* bytes, std::size_t count) const {
        ssize_t got = -1;
        do {
            got = read(descriptor, bytes, count);
        } while (got < 0 && errno == EINTR);
        return got;
    }

private:
    int descriptor;
};

FileProblem WhyNotOpened() {
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
        return FileProblem::Missing;
    case ENXIO:  // a socket, or a device without a driver
        return FileProblem::NotAFile;
    default:
        return FileProblem::CannotBeOpened;
    }
}

/// @param Bytes  a string or a vector of bytes
template <typename Bytes>
FileProblem ReadOpenFile(const OpenFile& file, std::uintmax_t maxBytes, Bytes& bytes) {
    struct stat status {};
    if (!file.GetStatus(status))
        return FileProblem::CannotBeOpened;
    if (!S_ISREG(status.st_mode))
        return FileProblem::NotAFile;
    const auto size = static_cast<std::uintmax_t>(status.st_size);
    if (size > maxBytes)
        return FileProblem::TooLarge;
    // One byte more is asked for than the file's size, to notice a file that grows meanwhile. Files
    // of /proc have the size 0 and still have bytes.
    std::size_t count = 0;
    bytes.resize(static_cast<std::size_t>(size) + 1);
    for (;;) {
        const ssize_t got = file.Read(bytes.data() + count, bytes.size() - count);
        if (got < 0)
            return FileProblem::CannotBeRead;
        if (got == 0)
            break;
        count += static_cast<std::size_t>(got);
        if (count > maxBytes)
            return FileProblem::TooLarge;
        if (count == bytes.size())
            bytes.resize(static_cast<std::size_t>(
                std::min<std::uintmax_t>(2 * std::uintmax_t{count}, maxBytes + 1)));
    }
    bytes.resize(count);
    return FileProblem::None;
}

template <typename Bytes>
FileProblem Read(const std::string& path, std::uintmax_t maxBytes, Bytes& bytes) {
    bytes.clear();
    const OpenFile file(path);
    if (!file.IsOpen())
        return WhyNotOpened();
    const FileProblem problem = ReadOpenFile(file, maxBytes, bytes);
    if (problem != FileProblem::None)
        bytes.clear();
    return problem;
}

}  // namespace

FileProblem ReadWholeFile(const std::string& path, std::uintmax_t maxBytes,
                          std::vector<std::uint8_t>& bytes) {
    return Read(path, maxBytes, bytes);
}

FileProblem ReadWholeFile(const std::string& path, std::uintmax_t maxBytes, std::string& text) {
    return Read(path, maxBytes, text);
}

std::string Describe(const std::string& path, FileProblem problem, std::uintmax_t maxBytes) {
    switch (problem) {
    case FileProblem::None:
        return path + " was read";
    case FileProblem::Missing:
        return path + " is missing";
    case FileProblem::NotAFile:
        return path + " is no file";
    case FileProblem::TooLarge:
        return path + " is too large: it may have up to " + std::to_string(maxBytes) + " bytes";
    case FileProblem::CannotBeOpened:
    case FileProblem::CannotBeRead:
        break;
    }
    return path + " cannot be read";
}
