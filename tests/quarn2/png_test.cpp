// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/decoders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "quarn2/texturedata.h"
#include "tests/support/file_reads.h"
#include "tests/support/png_files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/trace_fixture.h"

namespace {

using testing::StartsWith;

constexpr char kZlibRefusal[] = "Could not decompress PNG data using zlib. Error code: -3\n";
constexpr char kUnsupported[] =
    "Unsupported format of PNG. Make sure it is RGBA, non-interlaced.\n";
constexpr char kNotCompressedAsExpected[] = "Invalid compression format.\n";
constexpr char kOwnRefusal[] = "Could not decompress PNG data using own Inflate. Error code: 1\n";

constexpr auto kCycling = [](std::uint32_t row) {
    return static_cast<std::uint8_t>(row == 0 ? 0 : (row + 1) % 5);
};

class PngTest : public testing::Test {
protected:
    void LoadBlack(int width, int height) {
        const Bytes black(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
        EXPECT_TRUE(image.Load(width, height, false, black.data()));
    }

    /// Loads the bytes from a file.
    /// @return what was written to standard error
    std::string Load(const Bytes& file, bool expected) {
        folder.Write("picture.png", file);
        testing::internal::CaptureStderr();
        EXPECT_EQ(image.LoadPNG(path), expected);
        return testing::internal::GetCapturedStderr();
    }

    void ExpectPixels(const Pixels& expected) {
        ASSERT_EQ(image.GetWidth(), static_cast<int>(expected.width));
        ASSERT_EQ(image.GetHeight(), static_cast<int>(expected.height));
        std::size_t same = 0;
        while (same < expected.rgba.size()
               && image.GetData()[same] == static_cast<float>(expected.rgba[same] / 255.0))
            ++same;
        ASSERT_EQ(same, expected.rgba.size()) << "the next byte differs";
    }

    /// Loads a file that libpng reads as well and compares the pixels.
    void ExpectLoads(const Bytes& file) {
        const Pixels expected = DecodeWithLibpng(file);
        ASSERT_FALSE(expected.rgba.empty());
        EXPECT_EQ(Load(file, true), kZlibRefusal);
        ExpectPixels(expected);
    }

    /// Loads a file that must be refused, over an image that must stay.
    /// @return what was written to standard error
    std::string Refusal(const Bytes& file) {
        folder.Write("picture.png", file);
        return RefusalOf(path);
    }
    std::string RefusalOf(const std::string& file) {
        LoadBlack(3, 2);
        float* const before = image.GetData();
        testing::internal::CaptureStderr();
        EXPECT_FALSE(image.LoadPNG(file));
        std::string messages = testing::internal::GetCapturedStderr();
        EXPECT_EQ(image.GetData(), before);
        EXPECT_EQ(image.GetWidth(), 3);
        EXPECT_EQ(image.GetHeight(), 2);
        for (std::size_t i = 0; i < std::size_t{3} * 2 * 4; ++i)
            EXPECT_EQ(image.GetData()[i], i % 4 == 3 ? 1.0f : 0.0f);
        return messages;
    }

    TemporaryFolder folder;
    const std::string path = folder.Path("picture.png");
    TextureData image;
};

// Files that are decoded

class PngSizeTest : public PngTest,
                    public testing::WithParamInterface<std::pair<std::uint32_t, std::uint32_t>> {};

TEST_P(PngSizeTest, PixelsAreThoseOfLibpng) {
    const Pixels pixels = MakePixels(GetParam().first, GetParam().second);
    ExpectLoads(PngFile(pixels, kCycling));
    ExpectPixels(pixels);
}

INSTANTIATE_TEST_SUITE_P(Shapes, PngSizeTest,
                         testing::Values(std::pair{1U, 1U}, std::pair{1U, 2U}, std::pair{1U, 300U},
                                         std::pair{2U, 1U}, std::pair{300U, 1U},
                                         std::pair{20U, 90U}, std::pair{90U, 20U},
                                         std::pair{257U, 129U}, std::pair{1024U, 1024U}));

TEST_F(PngTest, FileWrittenByLibpngLoads) {
    ExpectLoads(EncodeWithLibpng(MakePixels(200, 150)));
}

TEST_F(PngTest, RowsFromTheSecondOnMayUseEachFilter) {
    const Pixels pixels = MakePixels(37, 23);
    for (std::uint8_t filter = 0; filter <= 4; ++filter) {
        SCOPED_TRACE(int{filter});
        ExpectLoads(PngFile(
            pixels, [filter](std::uint32_t row) { return row == 0 ? std::uint8_t{0} : filter; }));
    }
}

TEST_F(PngTest, FirstRowMayUseEachFilterButUp) {
    const Pixels pixels = MakePixels(37, 3);
    for (const std::uint8_t filter : Bytes{0, 1, 3, 4}) {
        SCOPED_TRACE(int{filter});
        ExpectLoads(PngFile(
            pixels, [filter](std::uint32_t row) { return row == 0 ? filter : std::uint8_t{0}; }));
    }
}

TEST_F(PngTest, SinglePixelWithSubOrPaethKeepsTheStoredBytes) {
    for (const std::uint8_t filter : Bytes{1, 4}) {
        Load(PngFile({}, ZlibStream(Bytes{filter, 10, 20, 30, 40})), true);
        ExpectPixels({1, 1, {10, 20, 30, 40}});
    }
}

TEST_F(PngTest, PaethPrefersLeftThenUpOnATieWithTheUpperLeft) {
    // For the last pixel left ties with upper left, up ties with upper left, all three are the
    // same, and upper left wins.
    const Pixels pixels{2,
                        2,
                        {20, 20, 7, 20, 10, 40, 7, 10,  //
                         40, 10, 7, 30, 99, 99, 99, 99}};
    ExpectLoads(PngFile(
        pixels, [](std::uint32_t row) { return static_cast<std::uint8_t>(row == 0 ? 0 : 4); }));
    ExpectPixels(pixels);
}

TEST_F(PngTest, UpOnTheFirstRowWritesNothingAndShiftsEveryLaterRow) {
    // Only the filter byte 2 is consumed. The next byte, 0, is taken as the filter of the second
    // row, which gets the remaining three bytes of the first and the filter byte of the second.
    // It becomes the first row of the image; the last row stays zero.
    Load(PngFile({.width = 1, .height = 2}, ZlibStream(Bytes{2, 0, 11, 12, 13, 3, 21, 22, 23, 24})),
         true);
    ExpectPixels({1, 2, {11, 12, 13, 3, 0, 0, 0, 0}});
}

TEST_F(PngTest, RowAfterAnUpOnTheFirstRowHasNoRowAbove) {
    for (const std::uint8_t filter : Bytes{2, 3, 4}) {
        Load(PngFile({.width = 1, .height = 2},
                     ZlibStream(Bytes{2, filter, 11, 12, 13, 14, 21, 22, 23, 24})),
             true);
        ExpectPixels({1, 2, {11, 12, 13, 14, 0, 0, 0, 0}});
    }
}

TEST_F(PngTest, UpOnTheOnlyRowLeavesZeros) {
    Load(PngFile({.width = 2}, ZlibStream(Bytes{2, 1, 2, 3, 4, 5, 6, 7, 8})), true);
    ExpectPixels({2, 1, Bytes(8, 0)});
}

TEST_F(PngTest, ImageDataInManyChunksDecodesAsInOne) {
    const Pixels pixels = MakePixels(9, 14);
    const Bytes stream = ZlibStream(FilterRows(pixels, kCycling));
    for (const std::size_t size : {std::size_t{1}, std::size_t{7}, stream.size() / 2}) {
        Bytes file = Joined({PngSignature(), PngHeader{.width = 9, .height = 14}.Chunk()});
        for (std::size_t position = 0; position < stream.size(); position += size) {
            const std::size_t count = std::min(size, stream.size() - position);
            file = Joined({file, PngChunk("IDAT", std::span(stream).subspan(position, count))});
        }
        ExpectLoads(Joined({file, PngChunk("IDAT", {}), PngChunk("IEND", {})}));
        ExpectPixels(pixels);
    }
}

TEST_F(PngTest, OtherChunksAreSkipped) {
    const Pixels pixels = MakePixels(5, 4);
    const Bytes stream = ZlibStream(FilterRows(pixels, kCycling));
    const Bytes gamma = {0, 0, 0xB1, 0x8F};
    const Bytes comment = {'T', 'i', 't', 'l', 'e', 0, 'G', 'r', 'a', 'i', 'n'};
    ExpectLoads(Joined({PngSignature(), PngHeader{.width = 5, .height = 4}.Chunk(),
                        PngChunk("gAMA", gamma), PngChunk("tEXt", comment),
                        PngChunk("IDAT", stream), PngChunk("teSt", {}), PngChunk("IEND", {})}));
    ExpectPixels(pixels);
}

TEST_F(PngTest, ChunksAfterTheEndChunkAreReadAsWell) {
    const Pixels pixels = MakePixels(5, 4);
    const Bytes stream = ZlibStream(FilterRows(pixels, kCycling));
    Load(Joined({PngSignature(), PngHeader{.width = 5, .height = 4}.Chunk(), PngChunk("IEND", {}),
                 PngChunk("IDAT", stream)}),
         true);
    ExpectPixels(pixels);
}

TEST_F(PngTest, LastByteOfAnOddLengthIsNotNeeded) {
    const Pixels pixels = MakePixels(5, 4);
    const Bytes comment = {'o', 'd', 'd'};
    for (const std::size_t length : {2U, 3U}) {
        const Bytes file =
            Joined({PngSignature(), PngHeader{.width = 5, .height = 4}.Chunk(),
                    PngChunk("IDAT", ZlibStream(FilterRows(pixels, kCycling))),
                    PngChunk("tEXt", std::span(comment).first(length)), PngChunk("IEND", {})});
        Load(file, true);
        ExpectPixels(pixels);
        Load(Joined({file, {'\n'}}), file.size() % 2 == 0);
    }
}

TEST_F(PngTest, FileWithoutAnImageHeaderIsASinglePixel) {
    Load(Joined({PngSignature(), PngChunk("IDAT", ZlibStream(Bytes{0, 1, 2, 3, 4}))}), true);
    ExpectPixels({1, 1, {1, 2, 3, 4}});
}

TEST_F(PngTest, LastOfSeveralImageHeadersIsUsed) {
    Load(Joined({PngSignature(), PngHeader{.width = 7, .height = 7}.Chunk(),
                 PngHeader{.width = 2}.Chunk(),
                 PngChunk("IDAT", ZlibStream(Bytes{0, 1, 2, 3, 4, 5, 6, 7, 8}))}),
         true);
    ExpectPixels({2, 1, {1, 2, 3, 4, 5, 6, 7, 8}});
}

TEST_F(PngTest, BitDepthsOtherThanSixteenAreNotChecked) {
    Load(PngFile({.bitDepth = 3}, ZlibStream(Bytes{0, 1, 2, 3, 4})), true);
    ExpectPixels({1, 1, {1, 2, 3, 4}});
}

TEST_F(PngTest, ChecksumsAreNotChecked) {
    Bytes file = PngFile(MakePixels(5, 4), kCycling);
    file.back() ^= 0xFF;
    file[8 + 8 + 13] ^= 0xFF;  // of the image header
    const std::size_t adler = file.size() - 12 - 4 - 1;
    file[adler] ^= 0xFF;
    EXPECT_EQ(Load(file, true), kZlibRefusal);
    ExpectPixels(MakePixels(5, 4));
}

TEST_F(PngTest, SecondByteOfTheStreamIsNotChecked) {
    Bytes stream = ZlibStream(Bytes{0, 1, 2, 3, 4});
    stream[1] ^= 0xFF;
    EXPECT_EQ(Load(PngFile({}, stream), true), kZlibRefusal);
}

TEST_F(PngTest, DataThatZlibDecodesIsUsedWithoutAMessage) {
    // After the header that is skipped follows a whole zlib stream.
    const Bytes stream = Joined({{0x78, 0x9C}, ZlibStream(Bytes{0, 1, 2, 3, 4})});
    EXPECT_EQ(Load(PngFile({}, stream), true), "");
    ExpectPixels({1, 1, {1, 2, 3, 4}});
}

TEST_F(PngTest, SuccessReplacesTheArrayAndCopiesKeepTheirs) {
    LoadBlack(2, 2);
    const TextureData copy = image;
    Load(PngFile(MakePixels(5, 4), kCycling), true);
    EXPECT_NE(image.GetData(), copy.GetData());
    EXPECT_EQ(copy.GetData()[3], 1.0f);
}

TEST_F(PngTest, PathWithPngAnywhereIsLoadedAsPng) {
    const std::string old = folder.Write("a.png.old", PngFile(MakePixels(5, 4), kCycling));
    testing::internal::CaptureStderr();
    EXPECT_TRUE(image.Load(old));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), kZlibRefusal);
    ExpectPixels(MakePixels(5, 4));
}

// Files that are refused

TEST_F(PngTest, FileThatCannotBeOpenedIsReported) {
    for (const std::string& file :
         {folder.Path("missing.png"), folder.Path(""), folder.MakePipe("pipe.png"),
          std::string("/dev/zero"), std::string()})
        EXPECT_EQ(RefusalOf(file), "Error opening " + file + "\n");
}

TEST_F(PngTest, FileAboveTheLimitIsRefusedUnread) {
    for (const std::uintmax_t gibibytes : {1U, 12U}) {
        const std::string file = folder.MakeSparseFile("great.png", gibibytes << 30);
        EXPECT_EQ(RefusalOf(file), file + " is too large: it may have up to 536870912 bytes\n");
    }
}

TEST_F(PngTest, FileThatBreaksOffHalfwayIsReported) {
    const Bytes file = PngFile(MakePixels(5, 4), kCycling);
    folder.Write("picture.png", file);
    const FailingReads failing(file.size() / 2);
    EXPECT_EQ(RefusalOf(path), path + " cannot be read\n");
}

TEST_F(PngTest, DecodesBytesWithoutAFile) {
    const Pixels expected = MakePixels(5, 4);
    DecodedImage decoded;
    testing::internal::CaptureStderr();
    EXPECT_TRUE(DecodePNG("name", PngFile(expected, kCycling), decoded));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), kZlibRefusal);
    ASSERT_EQ(decoded.width, 5);
    ASSERT_EQ(decoded.height, 4);
    for (std::size_t i = 0; i < expected.rgba.size(); ++i)
        EXPECT_EQ(decoded.pixels[static_cast<std::ptrdiff_t>(i)],
                  static_cast<float>(expected.rgba[i] / 255.0));
}

TEST_F(PngTest, BytesThatAreNoImageLeaveTheDecodedImageAlone) {
    DecodedImage decoded{7, 8, nullptr};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(DecodePNG("name", Bytes{1, 2, 3}, decoded));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "name is not a valid png file - header invalid\n");
    EXPECT_EQ(decoded.width, 7);
    EXPECT_EQ(decoded.height, 8);
    EXPECT_EQ(decoded.pixels, nullptr);
}

TEST_F(PngTest, WrongSignatureIsReported) {
    Bytes file = PngFile(MakePixels(5, 4), kCycling);
    for (const std::size_t position : {0U, 7U}) {
        Bytes changed = file;
        changed[position] ^= 0x20;
        EXPECT_EQ(Refusal(changed), path + " is not a valid png file - header invalid\n");
    }
    EXPECT_EQ(Refusal({}), path + " is not a valid png file - header invalid\n");
    EXPECT_EQ(Refusal({0x89, 'P', 'N', 'G'}), path + " is not a valid png file - header invalid\n");
}

TEST_F(PngTest, ColourTypesOtherThanRgbaAreUnsupported) {
    const Bytes stream = ZlibStream(Bytes{0, 1, 2, 3, 4});
    for (const std::uint8_t colourType : Bytes{0, 2, 3, 4})
        EXPECT_EQ(Refusal(PngFile({.colourType = colourType}, stream)), kUnsupported);
}

TEST_F(PngTest, InterlacedFilesAreUnsupported) {
    EXPECT_EQ(Refusal(PngFile({.interlace = 1}, ZlibStream(Bytes{0, 1, 2, 3, 4}))), kUnsupported);
}

TEST_F(PngTest, UnknownMethodsAreUnsupported) {
    const Bytes stream = ZlibStream(Bytes{0, 1, 2, 3, 4});
    EXPECT_EQ(Refusal(PngFile({.compression = 1}, stream)), kUnsupported);
    EXPECT_EQ(Refusal(PngFile({.filter = 1}, stream)), kUnsupported);
}

TEST_F(PngTest, SixteenBitFilesAreUnsupported) {
    EXPECT_EQ(Refusal(PngFile({.bitDepth = 16}, ZlibStream(Bytes(9)))), kUnsupported);
}

TEST_F(PngTest, StreamWithASmallerWindowIsRefused) {
    Bytes stream = ZlibStream(Bytes{0, 1, 2, 3, 4});
    stream[0] = 0x68;  // 16 KiB
    EXPECT_EQ(Refusal(PngFile({}, stream)), kNotCompressedAsExpected);
    EXPECT_EQ(Refusal(EncodeWithLibpng(MakePixels(5, 4))), kNotCompressedAsExpected)
        << "libpng fits the window to small pictures";
}

TEST_F(PngTest, StreamWithAnOddFirstByteIsRefused) {
    Bytes stream = ZlibStream(Bytes{0, 1, 2, 3, 4});
    stream[0] = 0x79;
    EXPECT_EQ(Refusal(PngFile({}, stream)), kNotCompressedAsExpected);
    stream[0] = 0x7A;  // even, so it is accepted
    EXPECT_EQ(Load(PngFile({}, stream), true), kZlibRefusal);
}

TEST_F(PngTest, StreamThatNeitherDecoderReadsIsReportedWithBothCodes) {
    EXPECT_EQ(Refusal(PngFile({}, Bytes{0x78, 0x9C, 0x07})),
              std::string(kZlibRefusal) + "Invalid block type\n" + kOwnRefusal);
    EXPECT_EQ(Refusal(PngFile({}, Bytes{0x78})),
              std::string(kZlibRefusal) + "Error decompressing block\n" + kOwnRefusal);
}

TEST_F(PngTest, StreamThatIsCutShortIsRefused) {
    Bytes stream = ZlibStream(FilterRows(MakePixels(9, 14), kCycling));
    stream.resize(stream.size() / 2);
    EXPECT_EQ(Refusal(PngFile({.width = 9, .height = 14}, stream)),
              std::string(kZlibRefusal) + "Error decompressing block\n" + kOwnRefusal);
}

TEST_F(PngTest, StreamWithMoreBytesThanTheRowsIsRefused) {
    EXPECT_EQ(Refusal(PngFile({}, ZlibStream(Bytes{0, 1, 2, 3, 4, 5}))),
              std::string(kZlibRefusal) + "Error decompressing block\n" + kOwnRefusal);
}

TEST_F(PngTest, StreamOfLibdeflateLoadsUnlessARepeatCrossesTheSets) {
    int refused = 0;
    for (std::uint32_t width = 10; width < 60; width += 9) {
        const Pixels pixels = MakePixels(width, 24);
        for (int level = 1; level <= 12; ++level) {
            const Bytes raw = DeflateWithLibdeflate(FilterRows(pixels, kCycling), level);
            const Bytes file =
                PngFile({.width = width, .height = 24}, Joined({{0x78, 0x9C}, raw, {0, 0, 0, 0}}));
            if (RepeatsCrossTheSets(raw)) {
                EXPECT_THAT(Refusal(file), StartsWith(kZlibRefusal));
                ++refused;
            } else {
                EXPECT_EQ(Load(file, true), kZlibRefusal);
                ExpectPixels(pixels);
            }
        }
    }
    EXPECT_GT(refused, 0);
}

TEST_F(PngTest, UnknownFilterIsReportedWithItsPosition) {
    Bytes rows(45);
    rows[27] = 5;  // the fourth row of two pixels
    EXPECT_EQ(Refusal(PngFile({.width = 2, .height = 5}, ZlibStream(rows))),
              std::string(kZlibRefusal) + "unsupported filter format at byte 27: 5\n");
    rows[27] = 0;
    rows[0] = 255;
    EXPECT_EQ(Refusal(PngFile({.width = 2, .height = 5}, ZlibStream(rows))),
              std::string(kZlibRefusal) + "unsupported filter format at byte 0: 255\n");
}

TEST_F(PngTest, TooFewBytesForTheRowsAreReportedWithTheRow) {
    for (const std::size_t length : {18U, 19U, 26U}) {
        EXPECT_EQ(Refusal(PngFile({.width = 2, .height = 4}, ZlibStream(Bytes(length)))),
                  kZlibRefusal + path + ": the image data ends in row 2 of 4\n");
    }
    EXPECT_EQ(Refusal(PngFile({.width = 2}, ZlibStream({}))),
              kZlibRefusal + path + ": the image data ends in row 0 of 1\n");
}

TEST_F(PngTest, MissingRowIsReportedEvenIfZlibDecodedTheData) {
    const Bytes stream = Joined({{0x78, 0x9C}, ZlibStream(Bytes{0, 1, 2, 3, 4})});
    EXPECT_EQ(Refusal(PngFile({.height = 2}, stream)),
              path + ": the image data ends in row 1 of 2\n");
}

TEST_F(PngTest, FileWithoutImageDataIsRefused) {
    EXPECT_EQ(Refusal(Joined({PngSignature(), PngHeader{}.Chunk(), PngChunk("IEND", {})})),
              path + ": there is no image data\n");
    EXPECT_EQ(Refusal(PngFile({}, Bytes{})), path + ": there is no image data\n");
    EXPECT_EQ(Refusal(PngSignature()), path + ": there is no image data\n");
}

TEST_F(PngTest, ChunkLongerThanTheFileIsRefused) {
    for (const std::uint8_t high : Bytes{0x00, 0x7F, 0x80, 0xFF}) {
        Bytes file = PngFile(MakePixels(5, 4), kCycling);
        file[8 + 25] = high;      // the length of the image data chunk
        file[8 + 25 + 1] = 0x01;  // 64 KiB at least
        EXPECT_EQ(Refusal(file), path + ": the file ends within a chunk\n");
    }
}

TEST_F(PngTest, BytesAfterTheLastChunkThatAreNoChunkAreRefused) {
    const Bytes file = PngFile(MakePixels(6, 4), kCycling);
    EXPECT_EQ(Refusal(Joined({file, Bytes(2 + file.size() % 2)})),
              path + ": the file ends within a chunk\n");
}

TEST_F(PngTest, ImageHeaderThatIsTooShortIsRefused) {
    EXPECT_EQ(Refusal(Joined({PngSignature(), PngChunk("IHDR", Bytes(12))})),
              path + ": the image header is too short\n");
}

TEST_F(PngTest, SizesBelowOnePixelOrAboveTheLimitAreRefused) {
    constexpr std::uint32_t kMax = 0xFFFF'FFFF;
    const std::pair<std::uint32_t, std::uint32_t> sizes[] = {
        {0, 4},    {4, 0},       {8192, 8192}, {kMax, 1},
        {1, kMax}, {kMax, kMax}, {1U << 31, 2}};  // the last product is 0 in 32 bits
    for (const auto& [width, height] : sizes) {
        const Bytes file =
            PngFile({.width = width, .height = height}, ZlibStream(Bytes{0, 1, 2, 3, 4}));
        EXPECT_EQ(Refusal(file),
                  path + ": an image of " + std::to_string(width) + " x " + std::to_string(height)
                      + " pixels cannot be loaded; it must have from 1 to 67108863 pixels\n");
    }
}

TEST_F(PngTest, LargestAllowedSizeIsDecodedUntilARowIsMissing) {
    EXPECT_EQ(Refusal(PngFile({.width = 67108863}, ZlibStream(Bytes{0, 1, 2, 3, 4}))),
              kZlibRefusal + path + ": the image data ends in row 0 of 1\n");
}

/// Prints the trace as soon as something is written.
class Informer : public std::stringbuf {
protected:
    std::streamsize xsputn(const char*, std::streamsize count) override {
        if (trace.empty()) {
            for (const trace::Frame& frame : trace::Frames())
                trace += std::string(frame.className) + "::" + frame.function + " ";
        }
        return count;
    }

public:
    std::string trace;
};

class PngTraceTest : public TracedTest {};

TEST_F(PngTraceTest, LoadingOpensAFrame) {
    Informer informer;
    std::streambuf* const before = std::cerr.rdbuf(&informer);
    EXPECT_FALSE(TextureData().Load("missing.png"));
    std::cerr.rdbuf(before);
    EXPECT_EQ(informer.trace, "TextureData::Load TextureData::LoadPNG ");
}

}  // namespace
