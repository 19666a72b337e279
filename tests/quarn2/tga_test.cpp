// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/decoders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "quarn2/texturedata.h"
#include "tests/support/allocations.h"
#include "tests/support/file_reads.h"
#include "tests/support/temporary_folder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint8_t Low(int value) {
    return static_cast<std::uint8_t>(value & 0xFF);
}
std::uint8_t High(int value) {
    return static_cast<std::uint8_t>(value >> 8);
}

/// A file of the accepted type: its header and then `packets`.
Bytes File(int width, int height, int depth, std::initializer_list<std::uint8_t> packets) {
    Bytes file{0,
               0,
               10,  // ID length, colour-map type, image type
               0,
               0,
               0,
               0,
               0,  // colour map
               0,
               0,
               0,
               0,  // origin
               Low(width),
               High(width),
               Low(height),
               High(height),
               static_cast<std::uint8_t>(depth),
               0};
    file.insert(file.end(), packets);
    return file;
}

/// Every kind of packet; all bytes are different.
Bytes Whole() {
    return File(4, 2, 32, {0x02, 1,  2,  3,  4,  5, 6, 7, 8, 9, 10, 11, 12,  // three raw
                           0x83, 13, 14, 15, 16,                             // a run of four
                           0x00, 17, 18, 19, 20});                           // the last
}

class TgaTest : public testing::Test {
protected:
    TgaTest() {
        image.GetData()[0] = 0.25f;
        before = image.GetData();
    }

    /// Loads the bytes as a file; `line` is what they write on standard error.
    bool Load(const Bytes& bytes) {
        path = folder.Write("image.tga", bytes);
        testing::internal::CaptureStderr();
        const bool loaded = image.LoadTGA(path);
        line = testing::internal::GetCapturedStderr();
        return loaded;
    }

    void ExpectRefused(const Bytes& bytes, const std::string& fault) {
        EXPECT_FALSE(Load(bytes));
        EXPECT_EQ(line, path + ": " + fault + "\n");
        ExpectUntouched();
    }

    /// Loads a file that must be refused.
    /// @return what was written to standard error
    std::string RefusalOf(const std::string& file) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(image.LoadTGA(file));
        ExpectUntouched();
        return testing::internal::GetCapturedStderr();
    }

    bool ExpectAnImageOrOneLine(const Bytes& bytes) {
        const float* const pixels = image.GetData();
        const bool loaded = Load(bytes);
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), loaded ? 0 : 1) << line;
        EXPECT_EQ(image.GetData() == pixels, !loaded);
        return loaded;
    }

    void ExpectUntouched() {
        EXPECT_EQ(image.GetData(), before);
        EXPECT_EQ(image.GetData()[0], 0.25f);
        EXPECT_EQ(image.GetWidth(), 2);
        EXPECT_EQ(image.GetHeight(), 2);
    }

    /// The values of the image as bytes.
    Bytes Values() const {
        const auto count = static_cast<std::size_t>(image.GetWidth())
                           * static_cast<std::size_t>(image.GetHeight()) * 4;
        Bytes values;
        for (std::size_t i = 0; i < count; ++i)
            values.push_back(static_cast<std::uint8_t>(std::lround(image.GetData()[i] * 255.0f)));
        return values;
    }

    TemporaryFolder folder;
    TextureData image;
    const float* before;
    std::string path;
    std::string line;
};

TEST_F(TgaTest, A24BitImageIsOpaque) {
    ASSERT_TRUE(Load(File(2, 1, 24, {0x01, 1, 2, 3, 4, 5, 6})));
    EXPECT_EQ(Values(), (Bytes{3, 2, 1, 255, 6, 5, 4, 255}));
    EXPECT_EQ(image.GetData()[0], static_cast<float>(3 / 255.0));
    EXPECT_EQ(image.GetData()[3], 1.0f);
    EXPECT_EQ(line, "");
}

TEST_F(TgaTest, A32BitImageKeepsItsAlpha) {
    ASSERT_TRUE(Load(File(2, 1, 32, {0x01, 1, 2, 3, 4, 5, 6, 7, 0})));
    EXPECT_EQ(Values(), (Bytes{3, 2, 1, 4, 7, 6, 5, 0}));
    EXPECT_EQ(image.GetData()[3], static_cast<float>(4 / 255.0));
}

TEST_F(TgaTest, ARunRepeatsItsPixel) {
    ASSERT_TRUE(Load(File(3, 1, 24, {0x82, 1, 2, 3})));
    EXPECT_EQ(Values(), (Bytes{3, 2, 1, 255, 3, 2, 1, 255, 3, 2, 1, 255}));
}

TEST_F(TgaTest, PacketsMayCrossRows) {
    ASSERT_TRUE(Load(File(2, 2, 24, {0x82, 1, 2, 3, 0x00, 4, 5, 6})));
    EXPECT_EQ(image.GetWidth(), 2);
    EXPECT_EQ(image.GetHeight(), 2);
    EXPECT_EQ(Values(), (Bytes{3, 2, 1, 255, 3, 2, 1, 255, 3, 2, 1, 255, 6, 5, 4, 255}));
}

TEST_F(TgaTest, TheLongestPacketsHave128Pixels) {
    Bytes file = File(256, 1, 24, {0xFF, 9, 8, 7, 0x7F});
    for (int i = 0; i < 128; ++i)
        file.insert(file.end(), {Low(i), 0, 0});
    ASSERT_TRUE(Load(file));
    const Bytes values = Values();
    EXPECT_EQ(values[508], 7);
    EXPECT_EQ(values[512], 0);
    EXPECT_EQ(values[514], 0);
    EXPECT_EQ(values[1022], 127);
}

TEST_F(TgaTest, RowsAreNotFlippedWhateverTheOrigin) {
    for (const int descriptor : {0x00, 0x20, 0x10, 0x30}) {
        Bytes file = File(1, 2, 24, {0x00, 1, 1, 1, 0x00, 2, 2, 2});
        file[17] = Low(descriptor);
        ASSERT_TRUE(Load(file));
        EXPECT_EQ(Values(), (Bytes{1, 1, 1, 255, 2, 2, 2, 255}));
    }
}

TEST_F(TgaTest, WidthAndHeightAreLittleEndian) {
    Bytes file = File(0x0102, 1, 24, {});
    file.insert(file.end(), {0xFF, 1, 1, 1, 0xFF, 2, 2, 2, 0x81, 3, 3, 3});
    ASSERT_TRUE(Load(file));
    EXPECT_EQ(image.GetWidth(), 258);
    EXPECT_EQ(image.GetHeight(), 1);
}

TEST_F(TgaTest, MapAndOriginAreIgnored) {
    Bytes file = File(1, 1, 24, {0x00, 1, 2, 3});
    file[1] = 1;
    std::fill(file.begin() + 3, file.begin() + 12, std::uint8_t{0xFF});
    ASSERT_TRUE(Load(file));
    EXPECT_EQ(Values(), (Bytes{3, 2, 1, 255}));
}

TEST_F(TgaTest, AnIDFieldIsReadAsPackets) {
    Bytes file = File(2, 1, 24, {0x81, 'i', 'd', '!', 0x81, 1, 2, 3});
    file[0] = 4;
    ASSERT_TRUE(Load(file));
    EXPECT_EQ(Values(), (Bytes{'!', 'd', 'i', 255, '!', 'd', 'i', 255}));
}

TEST_F(TgaTest, BytesAfterTheLastPixelAreIgnored) {
    ASSERT_TRUE(Load(File(1, 1, 24, {0x00, 1, 2, 3, 0xFF, 0xFF, 0xFF})));
    EXPECT_EQ(Values(), (Bytes{3, 2, 1, 255}));
}

TEST_F(TgaTest, OtherDepthsGiveZeros) {
    for (const int depth : {0, 1, 8, 15, 16, 25, 33, 40, 255}) {
        Bytes file = File(2, 2, depth, {});
        for (int packet = 0; packet < 2; ++packet) {
            file.push_back(0x81);
            file.insert(file.end(), static_cast<std::size_t>(depth / 8), std::uint8_t{0xAB});
        }
        TextureData loaded;
        loaded.GetData()[15] = 1.0f;
        ASSERT_TRUE(loaded.LoadTGA(folder.Write("depth.tga", file))) << depth;
        for (int i = 0; i < 16; ++i)
            EXPECT_EQ(loaded.GetData()[i], 0.0f) << depth;
    }
}

TEST_F(TgaTest, FileThatCannotBeOpenedIsReported) {
    folder.Write("folder.tga/file", "");
    for (const std::string& file : {folder.Path("none.tga"), folder.Path("folder.tga"),
                                    folder.MakePipe("pipe.tga"), std::string("/dev/zero")})
        EXPECT_EQ(RefusalOf(file), "Error loading texture tga file '" + file + "'\n");
}

TEST_F(TgaTest, FileAboveTheLimitIsRefusedUnread) {
    for (const std::uintmax_t gibibytes : {1U, 12U}) {
        const std::string file = folder.MakeSparseFile("great.tga", gibibytes << 30);
        EXPECT_EQ(RefusalOf(file), file + " is too large: it may have up to 536870912 bytes\n");
    }
}

TEST_F(TgaTest, FileThatBreaksOffHalfwayIsReported) {
    const Bytes bytes = Whole();
    path = folder.Write("image.tga", bytes);
    const FailingReads failing(bytes.size() / 2);
    EXPECT_EQ(RefusalOf(path), path + " cannot be read\n");
}

TEST_F(TgaTest, DecodesBytesWithoutAFile) {
    DecodedImage decoded;
    EXPECT_TRUE(DecodeTGA("name", File(1, 1, 32, {0x00, 51, 102, 153, 204}), decoded));
    EXPECT_EQ(decoded.width, 1);
    EXPECT_EQ(decoded.height, 1);
    EXPECT_EQ(decoded.pixels[0], 0.6f);
    EXPECT_EQ(decoded.pixels[1], 0.4f);
    EXPECT_EQ(decoded.pixels[2], 0.2f);
    EXPECT_EQ(decoded.pixels[3], 0.8f);
}

TEST_F(TgaTest, BytesThatAreNoImageLeaveTheDecodedImageAlone) {
    DecodedImage decoded{7, 8, nullptr};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(DecodeTGA("name", File(3, 1, 24, {0x83, 1, 2, 3}), decoded));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "name: a packet runs past the last pixel\n");
    EXPECT_EQ(decoded.width, 7);
    EXPECT_EQ(decoded.height, 8);
    EXPECT_EQ(decoded.pixels, nullptr);
}

TEST_F(TgaTest, EveryOtherTypeIsRefused) {
    for (int type = 0; type < 256; ++type) {
        if (type == 10)
            continue;
        Bytes file = File(1, 1, 24, {0x00, 1, 2, 3});
        file[2] = static_cast<std::uint8_t>(type);
        EXPECT_FALSE(Load(file)) << type;
        EXPECT_EQ(line, "Please use compressed TGAs\n") << type;
        ExpectUntouched();
    }
}

TEST_F(TgaTest, AFileWithoutATypeIsRefused) {
    for (const Bytes& file : {Bytes{}, Bytes{0}, Bytes{0, 0}}) {
        EXPECT_FALSE(Load(file));
        EXPECT_EQ(line, "Please use compressed TGAs\n");
        ExpectUntouched();
    }
}

TEST_F(TgaTest, AFileCutAtAnyByteIsRefused) {
    const Bytes whole = Whole();
    for (std::size_t length = 3; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        ExpectRefused(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)),
                      length < 18 ? "the header ends too early" : "the image data ends too early");
    }
    EXPECT_TRUE(Load(whole));
}

TEST_F(TgaTest, AFileWithAnyByteChangedEndsInAnImageOrOneLine) {
    const Bytes whole = Whole();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int value : {0x00, 0xFF, 0xFF - whole[at]}) {
            SCOPED_TRACE(std::to_string(at) + " is " + std::to_string(value));
            Bytes changed = whole;
            changed[at] = Low(value);
            ExpectAnImageOrOneLine(changed);
        }
    }
}

TEST_F(TgaTest, APacketPastTheLastPixelIsRefused) {
    ExpectRefused(File(3, 1, 24, {0x83, 1, 2, 3}), "a packet runs past the last pixel");
    ExpectRefused(File(3, 1, 24, {0x03, 1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4}),
                  "a packet runs past the last pixel");
    ExpectRefused(File(3, 1, 24, {0x81, 1, 2, 3, 0x81, 1, 2, 3}),
                  "a packet runs past the last pixel");
}

TEST_F(TgaTest, AnImageWithoutPixelsIsRefused) {
    ExpectRefused(File(0, 0, 24, {0x00, 1, 2, 3}),
                  "an image of 0 x 0 pixels cannot be loaded; it must have from 1 to 67108863 "
                  "pixels");
    ExpectRefused(File(0, 7, 24, {0x00, 1, 2, 3}),
                  "an image of 0 x 7 pixels cannot be loaded; it must have from 1 to 67108863 "
                  "pixels");
    ExpectRefused(File(7, 0, 24, {0x00, 1, 2, 3}),
                  "an image of 7 x 0 pixels cannot be loaded; it must have from 1 to 67108863 "
                  "pixels");
}

TEST_F(TgaTest, AnImageAboveTheLimitIsRefused) {
    ExpectRefused(File(65535, 65535, 32, {0xFF, 1, 2, 3, 4}),
                  "an image of 65535 x 65535 pixels cannot be loaded; it must have from 1 to "
                  "67108863 pixels");
    ExpectRefused(File(8192, 8192, 32, {0xFF, 1, 2, 3, 4}),
                  "an image of 8192 x 8192 pixels cannot be loaded; it must have from 1 to "
                  "67108863 pixels");
}

TEST_F(TgaTest, ASmallFileWithTheSizeOfALargeImageIsRefusedBeforeItsPixelsAreAllocated) {
    // Within the limit, but the pixels would need a gigabyte.
    const std::size_t allocated = AllocatedBytes();
    ExpectRefused(File(8192, 8191, 32, {0xFF, 1, 2, 3, 4}), "the image data ends too early");
    EXPECT_LT(AllocatedBytes() - allocated, 1000000u);
}

TEST_F(TgaTest, AnyBytesEndInAnImageOrOneLine) {
    std::mt19937 random(1358);
    int images = 0;
    for (int round = 0; round < 300; ++round) {
        Bytes file = File(static_cast<int>(random() % 7), static_cast<int>(random() % 7),
                          random() % 4 == 0 ? static_cast<int>(random() % 256) : 24, {});
        const std::size_t length = random() % 200;
        for (std::size_t i = 0; i < length; ++i)  // most begin a short packet
            file.push_back(static_cast<std::uint8_t>(random() % (random() % 8 == 0 ? 256 : 3)));
        images += ExpectAnImageOrOneLine(file) ? 1 : 0;
    }
    EXPECT_GT(images, 30);
    EXPECT_LT(images, 270);
}

/// Pixels in rows of runs and noise, in ImageMagick's raw form.
Bytes Picture(int width, int height, int channels) {
    std::mt19937 random(7);
    Bytes pixels;
    Bytes pixel(static_cast<std::size_t>(channels));
    int left = 0;
    for (int i = 0; i < width * height; ++i) {
        if (left-- <= 0) {
            left = random() % 3 == 0 ? static_cast<int>(random() % 300) : 0;
            for (std::uint8_t& channel : pixel)
                channel = static_cast<std::uint8_t>(random());
        }
        pixels.insert(pixels.end(), pixel.begin(), pixel.end());
    }
    return pixels;
}

struct Sample {
    int width, height, channels;
};

class TgaFromImageMagickTest : public TgaTest, public testing::WithParamInterface<Sample> {};

TEST_P(TgaFromImageMagickTest, HasItsPixels) {
    const auto [width, height, channels] = GetParam();
    const Bytes raw = Picture(width, height, channels);
    const std::string source = folder.Write(channels == 4 ? "in.rgba" : "in.rgb", raw);
    path = folder.Path("written.tga");
    // With its full name, because "convert" may be another program.
    const std::string command =
        "/usr/bin/convert-im6.q16 -size " + std::to_string(width) + "x" + std::to_string(height)
        + " -depth 8 " + (channels == 4 ? "rgba:" : "rgb:") + source + " -type "
        + (channels == 4 ? "TrueColorAlpha" : "TrueColor") + " -compress RLE " + path;
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    const Bytes file = FileBytes(path);
    ASSERT_GT(file.size(), 18u);
    ASSERT_EQ(file[2], 10);
    ASSERT_EQ(file[16], channels * 8);

    ASSERT_TRUE(image.LoadTGA(path));
    ASSERT_EQ(image.GetWidth(), width);
    ASSERT_EQ(image.GetHeight(), height);
    const float* value = image.GetData();
    for (std::size_t i = 0; i < raw.size(); i += static_cast<std::size_t>(channels), value += 4) {
        ASSERT_EQ(value[0], static_cast<float>(raw[i] / 255.0)) << i;
        ASSERT_EQ(value[1], static_cast<float>(raw[i + 1] / 255.0)) << i;
        ASSERT_EQ(value[2], static_cast<float>(raw[i + 2] / 255.0)) << i;
        ASSERT_EQ(value[3], channels == 4 ? static_cast<float>(raw[i + 3] / 255.0) : 1.0f) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, TgaFromImageMagickTest,
                         testing::Values(Sample{1, 1, 4}, Sample{1, 1, 3}, Sample{257, 129, 4},
                                         Sample{257, 129, 3}, Sample{1, 300, 4}, Sample{300, 1, 3},
                                         Sample{512, 512, 4}),
                         [](const auto& sample) {
                             return std::to_string(sample.param.width) + "x"
                                    + std::to_string(sample.param.height) + "x"
                                    + std::to_string(sample.param.channels);
                         });

}  // namespace
