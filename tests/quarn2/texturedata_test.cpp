// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/texturedata.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "quarn2/unitbyte.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/trace_fixture.h"
#include "tests/support/trace_noter.h"

namespace {

using testing::ElementsAre;

std::vector<float> Values(const TextureData& image) {
    const auto count = static_cast<std::size_t>(image.GetWidth())
                       * static_cast<std::size_t>(image.GetHeight()) * 4;
    return {image.GetData(), image.GetData() + count};
}

/// Load(path)'s result and its line on standard error.
std::string LoadLine(TextureData& image, const std::string& path, bool expected) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(image.Load(path), expected);
    return testing::internal::GetCapturedStderr();
}

TEST(TextureDataTest, ANewImageIsTwoByTwoAndHas32BitsPerPixel) {
    const TextureData image;
    EXPECT_EQ(image.GetWidth(), 2);
    EXPECT_EQ(image.GetHeight(), 2);
    EXPECT_EQ(image.GetBitsPerPixel(), 32);
    EXPECT_EQ(Values(image), std::vector<float>(16, 0.0f));
}

TEST(TextureDataTest, ACopySharesThePixels) {
    TextureData image;
    TextureData copy = image;
    EXPECT_EQ(copy.GetData(), image.GetData());
    copy.GetData()[3] = 0.5f;
    EXPECT_EQ(image.GetData()[3], 0.5f);
}

TEST(TextureDataTest, LoadingMakesNewPixelsAndDoesNotChangeThoseOfACopy) {
    TextureData image;
    image.GetData()[0] = 0.25f;
    const TextureData copy = image;
    const std::uint8_t white[] = {255, 255, 255};
    EXPECT_TRUE(image.Load(1, 1, false, white));
    EXPECT_NE(image.GetData(), copy.GetData());
    EXPECT_EQ(copy.GetWidth(), 2);
    EXPECT_EQ(copy.GetData()[0], 0.25f);
}

TEST(TextureDataTest, BytesWithoutAlphaAreOpaque) {
    const std::uint8_t bytes[] = {
        0,   51,  255,  // first row
        255, 0,   0,    //
        1,   2,   3,    // second row
        4,   5,   6,    //
        254, 128, 127,  // third row
        0,   0,   0,
    };
    TextureData image;
    EXPECT_TRUE(image.Load(2, 3, false, bytes));
    EXPECT_EQ(image.GetWidth(), 2);
    EXPECT_EQ(image.GetHeight(), 3);
    EXPECT_THAT(Values(image),
                ElementsAre(0.0f, 51 / 255.0f, 1.0f, 1.0f, 1.0f, 0.0f, 0.0f, 1.0f, 1 / 255.0f,
                            2 / 255.0f, 3 / 255.0f, 1.0f, 4 / 255.0f, 5 / 255.0f, 6 / 255.0f, 1.0f,
                            254 / 255.0f, 128 / 255.0f, 127 / 255.0f, 1.0f, 0, 0, 0, 1.0f));
}

TEST(TextureDataTest, BytesWithAlphaKeepIt) {
    const std::uint8_t bytes[] = {10, 20, 30, 40, 50, 60, 70, 80};
    TextureData image;
    EXPECT_TRUE(image.Load(1, 2, true, bytes));
    EXPECT_THAT(Values(image), ElementsAre(10 / 255.0f, 20 / 255.0f, 30 / 255.0f, 40 / 255.0f,
                                           50 / 255.0f, 60 / 255.0f, 70 / 255.0f, 80 / 255.0f));
}

TEST(TextureDataTest, TheTableEqualsTheDivisionToTheLastBit) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
        // Volatile, so that the division is made at run time.
        volatile double dividend = static_cast<double>(byte);
        volatile float single = static_cast<float>(byte);
        EXPECT_EQ(kUnitOfByte[byte], static_cast<float>(dividend / 255.0)) << byte;
        EXPECT_EQ(kUnitOfByte[byte], single / 255.0f) << byte;
    }
}

TEST(TextureDataTest, AnImageOfNoBytesIsEmpty) {
    TextureData image;
    EXPECT_TRUE(image.Load(0, 5, true, nullptr));
    EXPECT_EQ(image.GetWidth(), 0);
    EXPECT_EQ(image.GetHeight(), 5);
}

TEST(TextureDataTest, BytesOfANegativeOrExcessiveSizeAreRefused) {
    constexpr int kMax = std::numeric_limits<int>::max();
    const std::uint8_t byte[] = {1, 2, 3, 4};
    for (const auto& [width, height] :
         {std::pair{-1, 1}, {1, -1}, {-2, -2}, {kMax, kMax}, {8192, 8192}, {1, 1 << 26}}) {
        TextureData image;
        const float* const before = image.GetData();
        testing::internal::CaptureStderr();
        EXPECT_FALSE(image.Load(width, height, true, byte));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "An image of " + std::to_string(width) + " x " + std::to_string(height)
                      + " pixels cannot be held; it may have up to 67108863 pixels\n");
        EXPECT_EQ(image.GetData(), before);
        EXPECT_EQ(image.GetWidth(), 2);
        EXPECT_EQ(image.GetHeight(), 2);
    }
}

TEST(TextureDataTest, TheLimitKeepsFloatsBelowOneGibibyte) {
    static_assert(TextureData::kMaxPixels * 16 < std::int64_t{1} << 30);
    static_assert((TextureData::kMaxPixels + 1) * 16 == std::int64_t{1} << 30);
}

TEST(TextureDataTest, APathWithNeitherFormatIsUnsupported) {
    TextureData image;
    EXPECT_EQ(LoadLine(image, "picture.jpg", false), "picture.jpg: Unsupported texture format\n");
    EXPECT_EQ(LoadLine(image, "", false), ": Unsupported texture format\n");
}

TEST(TextureDataTest, CapitalLettersInThePathChooseNoDecoder) {
    TextureData image;
    EXPECT_EQ(LoadLine(image, "A.TGA", false), "A.TGA: Unsupported texture format\n");
    EXPECT_EQ(LoadLine(image, "A.Png", false), "A.Png: Unsupported texture format\n");
}

TEST(TextureDataTest, TgaAnywhereInThePathChoosesThatDecoder) {
    const TemporaryFolder folder;
    // A run of one blue pixel of 24 bits.
    const std::uint8_t file[] = {0, 0, 10, 0, 0, 0,  0, 0,    0,   0, 0,
                                 0, 1, 0,  1, 0, 24, 0, 0x80, 255, 0, 0};
    for (const char* name : {"a.tga", "tga/picture", "montgat/picture.png", "tgapng", "pngtga"}) {
        TextureData image;
        EXPECT_EQ(LoadLine(image, folder.Write(std::string("x/") + name, file), true), "") << name;
        EXPECT_THAT(Values(image), ElementsAre(0.0f, 0.0f, 1.0f, 1.0f)) << name;
    }
}

TEST(TextureDataTest, APngBelowAFolderNamedTgaGoesToTheTgaDecoder) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("tga/picture.png", "\x89PNG\r\n\x1a\n and so on");
    TextureData image;
    EXPECT_EQ(LoadLine(image, path, false), "Please use compressed TGAs\n");
}

class TextureDataTraceTest : public TracedTest {};

TEST_F(TextureDataTraceTest, LoadersAreTraced) {
    TextureData image;
    TraceNoter fromTGA;
    EXPECT_FALSE(image.Load("none.tga"));
    EXPECT_THAT(fromTGA.calls, ElementsAre("TextureData::LoadTGA", "TextureData::Load"));
    TraceNoter fromBytes;
    EXPECT_FALSE(image.Load(-1, 1, false, nullptr));
    EXPECT_THAT(fromBytes.calls, ElementsAre("TextureData::Load"));
    EXPECT_TRUE(trace::Frames().empty());
}

}  // namespace
