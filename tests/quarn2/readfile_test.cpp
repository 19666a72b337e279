// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/readfile.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/file_reads.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr std::uintmax_t kLimit = 100;

class ReadWholeFileTest : public testing::Test {
protected:
    ~ReadWholeFileTest() override { Reads() = {}; }

    /// Expects the problem and no content, both for bytes and for text.
    void ExpectProblem(FileProblem problem, const std::string& path) {
        std::vector<std::uint8_t> bytes{1, 2, 3};
        EXPECT_EQ(ReadWholeFile(path, kLimit, bytes), problem);
        EXPECT_TRUE(bytes.empty());
        std::string text = "before";
        EXPECT_EQ(ReadWholeFile(path, kLimit, text), problem);
        EXPECT_EQ(text, "");
    }

    void ExpectContent(const std::string& content, const std::string& path) {
        std::vector<std::uint8_t> bytes{1, 2, 3};
        EXPECT_EQ(ReadWholeFile(path, kLimit, bytes), FileProblem::None);
        EXPECT_EQ(std::string(bytes.begin(), bytes.end()), content);
        std::string text = "before";
        EXPECT_EQ(ReadWholeFile(path, kLimit, text), FileProblem::None);
        EXPECT_EQ(text, content);
    }

    TemporaryFolder folder;
};

TEST_F(ReadWholeFileTest, FileIsReadByteForByte) {
    const std::string content("two\r\nlines\n\0\xff\x1a end", 18);
    ExpectContent(content, folder.Write("file", content));
}

TEST_F(ReadWholeFileTest, EmptyFileHasNoBytes) {
    ExpectContent("", folder.Write("file", ""));
}

TEST_F(ReadWholeFileTest, FileAsLongAsTheLimitIsRead) {
    const std::string content(kLimit, 'a');
    ExpectContent(content, folder.Write("file", content));
}

TEST_F(ReadWholeFileTest, LongerFileIsTooLarge) {
    ExpectProblem(FileProblem::TooLarge, folder.Write("file", std::string(kLimit + 1, 'a')));
    ExpectProblem(FileProblem::TooLarge, folder.MakeSparseFile("sparse", std::uintmax_t{12} << 30));
}

TEST_F(ReadWholeFileTest, FileThatClaimsToBeEmptyIsReadToItsEnd) {
    ASSERT_EQ(std::filesystem::file_size("/proc/self/comm"), 0u);
    ExpectContent(std::string(program_invocation_short_name).substr(0, 15) + "\n",
                  "/proc/self/comm");
}

TEST_F(ReadWholeFileTest, FileThatClaimsToBeEmptyMayBeTooLarge) {
    ASSERT_EQ(std::filesystem::file_size("/proc/self/status"), 0u);
    ExpectProblem(FileProblem::TooLarge, "/proc/self/status");
}

TEST_F(ReadWholeFileTest, FileThatComesInPiecesIsReadWhole) {
    const std::string path = folder.Write("file", "twelve bytes");
    Reads().maxBytesAtOnce = 5;
    ExpectContent("twelve bytes", path);
}

TEST_F(ReadWholeFileTest, SignalsDoNotInterruptTheReading) {
    const std::string path = folder.Write("file", "twelve bytes");
    Reads().maxBytesAtOnce = 5;
    Reads().everySecondIsInterrupted = true;
    ExpectContent("twelve bytes", path);
}

TEST_F(ReadWholeFileTest, AbsentFileIsMissing) {
    ExpectProblem(FileProblem::Missing, folder.Path("none"));
    ExpectProblem(FileProblem::Missing, "");
}

TEST_F(ReadWholeFileTest, FileBelowAFileIsMissing) {
    ExpectProblem(FileProblem::Missing, folder.Write("file", "") + "/below");
}

TEST_F(ReadWholeFileTest, FolderIsNoFile) {
    ExpectProblem(FileProblem::NotAFile, folder.Path(""));
}

TEST_F(ReadWholeFileTest, DeviceIsNoFile) {
    ExpectProblem(FileProblem::NotAFile, "/dev/zero");
    ExpectProblem(FileProblem::NotAFile, "/dev/null");
}

TEST_F(ReadWholeFileTest, PipeIsNoFileAndIsNotWaitedFor) {
    ExpectProblem(FileProblem::NotAFile, folder.MakePipe("pipe"));
}

TEST_F(ReadWholeFileTest, SocketIsNoFile) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder.Path("socket");
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    path.copy(address.sun_path, path.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    ExpectProblem(FileProblem::NotAFile, path);
    close(socket);
}

TEST_F(ReadWholeFileTest, LinkToItselfCannotBeOpened) {
    std::filesystem::create_symlink("loop", folder.Path("loop"));
    ExpectProblem(FileProblem::CannotBeOpened, folder.Path("loop"));
}

TEST_F(ReadWholeFileTest, LinkToAFileIsReadAsTheFile) {
    folder.Write("file", "content");
    std::filesystem::create_symlink("file", folder.Path("link"));
    ExpectContent("content", folder.Path("link"));
}

TEST_F(ReadWholeFileTest, FileThatBreaksOffHalfwayCannotBeRead) {
    const std::string path = folder.Write("file", "twelve bytes");
    for (const std::size_t bytes : {0u, 6u, 12u}) {  // 12: the read that finds the end fails
        std::string text = "before";
        const FailingReads failing(bytes);
        EXPECT_EQ(ReadWholeFile(path, kLimit, text), FileProblem::CannotBeRead);
        EXPECT_EQ(text, "");
    }
    ExpectContent("twelve bytes", path);
}

TEST_F(ReadWholeFileTest, MemoryOfTheProcessCannotBeRead) {
    ExpectProblem(FileProblem::CannotBeRead, "/proc/self/mem");
}

TEST_F(ReadWholeFileTest, NoDescriptorStaysOpen) {
    const auto descriptors = [] {
        const std::filesystem::directory_iterator open("/proc/self/fd");
        return std::distance(begin(open), end(open));
    };
    const auto before = descriptors();
    ExpectContent("a", folder.Write("file", "a"));
    ExpectProblem(FileProblem::NotAFile, folder.Path(""));
    ExpectProblem(FileProblem::CannotBeRead, "/proc/self/mem");
    EXPECT_EQ(descriptors(), before);
}

TEST(DescribeFileProblemTest, NamesTheFileAndTheProblem) {
    EXPECT_EQ(Describe("a.b", FileProblem::Missing, 7), "a.b is missing");
    EXPECT_EQ(Describe("a.b", FileProblem::NotAFile, 7), "a.b is no file");
    EXPECT_EQ(Describe("a.b", FileProblem::TooLarge, 7),
              "a.b is too large: it may have up to 7 bytes");
    EXPECT_EQ(Describe("a.b", FileProblem::CannotBeOpened, 7), "a.b cannot be read");
    EXPECT_EQ(Describe("a.b", FileProblem::CannotBeRead, 7), "a.b cannot be read");
}

}  // namespace
