// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include "quarn2/texturedata.h"
#include "quarn2/trace.h"
#include "quarn2/vector.h"
#include "tests/support/plain_operations.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::FloatEq;
using testing::FloatNear;
using testing::Pointwise;

using Values = std::vector<float>;
using Size = std::pair<int, int>;

constexpr Size kShapes[] = {{1, 1}, {1, 9}, {9, 1}, {7, 5}, {5, 7}, {40, 11}, {11, 40}, {33, 70}};

Values ValuesOf(const TextureData& image) {
    return PlainImage(image).data;
}

TextureData ImageOf(int width, int height, const Values& values) {
    TextureData image;
    EXPECT_TRUE(image.Blank(width, height));
    EXPECT_EQ(values.size(), ValuesOf(image).size());
    std::copy(values.begin(), values.end(), image.GetData());
    return image;
}

/// An image with these values of red; all its pixels have green 0.25, blue 0.5 and opacity 1.
TextureData RedImage(int width, int height, const Values& red) {
    Values values;
    for (const float value : red)
        values.insert(values.end(), {value, 0.25f, 0.5f, 1.0f});
    return ImageOf(width, height, values);
}

Values RedOf(const TextureData& image) {
    const Values all = ValuesOf(image);
    Values red;
    for (std::size_t pixel = 0; pixel < all.size(); pixel += 4)
        red.push_back(all[pixel]);
    return red;
}

/// Values from -0.5 to 1.5; alpha is 0 in about every fourth pixel and 1 in as many.
TextureData RandomImage(int width, int height, unsigned seed = 1) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> value(-0.5f, 1.5f);
    TextureData image;
    EXPECT_TRUE(image.Blank(width, height));
    for (int k = 0; k < width * height * 4; ++k)
        image.GetData()[k] = value(random);
    for (int k = 3; k < width * height * 4; k += 4) {
        const std::size_t kind = random() % 4;
        if (kind < 2)
            image.GetData()[k] = static_cast<float>(kind);
    }
    return image;
}

void ExpectSameBits(const TextureData& image, const PlainImage& expected) {
    const Values values = ValuesOf(image);
    ASSERT_EQ(values.size(), expected.data.size());
    for (std::size_t k = 0; k < values.size(); ++k) {
        std::uint32_t bits = 0;
        std::uint32_t expectedBits = 0;
        std::memcpy(&bits, &values[k], sizeof(bits));
        std::memcpy(&expectedBits, &expected.data[k], sizeof(bits));
        ASSERT_EQ(bits, expectedBits)
            << "float " << k << " is " << values[k] << ", not " << expected.data[k];
    }
}

// Blank and Invert

TEST(BlankTest, GivesOpaqueBlackPixels) {
    TextureData image;
    EXPECT_TRUE(image.Blank(2, 3));
    EXPECT_EQ(image.GetWidth(), 2);
    EXPECT_EQ(image.GetHeight(), 3);
    EXPECT_THAT(ValuesOf(image), ElementsAre(0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1,  //
                                             0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1));
}

TEST(BlankTest, DoesNotChangeThePixelsOfACopy) {
    TextureData image = RedImage(3, 1, {0.1f, 0.2f, 0.3f});
    const TextureData copy = image;
    EXPECT_TRUE(image.Blank(3, 1));
    EXPECT_THAT(RedOf(copy), ElementsAre(0.1f, 0.2f, 0.3f));
}

TEST(BlankTest, MayBeEmpty) {
    TextureData image;
    EXPECT_TRUE(image.Blank(0, 4));
    EXPECT_EQ(image.GetWidth(), 0);
    EXPECT_EQ(image.GetHeight(), 4);
}

TEST(BlankTest, RefusesASizeThatIsNegativeOrAboveTheLimit) {
    TextureData image = RedImage(2, 1, {0.1f, 0.2f});
    for (const auto& [width, height] : {Size{-1, 2}, {2, -1}, {8192, 8192}, {1 << 30, 1 << 30}}) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(image.Blank(width, height));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "An image of " + std::to_string(width) + " x " + std::to_string(height)
                      + " pixels cannot be held; it may have up to 67108863 pixels\n");
        EXPECT_THAT(RedOf(image), ElementsAre(0.1f, 0.2f));
    }
}

TEST(InvertTest, OfBlackWithoutAlphaIsOpaqueWhite) {
    TextureData image;
    EXPECT_TRUE(image.Blank(2, 3));
    EXPECT_TRUE(image.Invert(false));
    EXPECT_THAT(ValuesOf(image), Each(1.0f));
}

TEST(InvertTest, InvertsAlphaWhenAsked) {
    const Values values = {0.25f, 0.5f, 2.0f, 0.75f, -1.0f, 1.0f, 0.0f, 0.0f};
    TextureData image = ImageOf(2, 1, values);
    EXPECT_TRUE(image.Invert(false));
    EXPECT_THAT(ValuesOf(image), ElementsAre(0.75f, 0.5f, -1.0f, 0.75f, 2.0f, 0.0f, 1.0f, 0.0f));
    image = ImageOf(2, 1, values);
    EXPECT_TRUE(image.Invert(true));
    EXPECT_THAT(ValuesOf(image), ElementsAre(0.75f, 0.5f, -1.0f, 0.25f, 2.0f, 0.0f, 1.0f, 1.0f));
}

TEST(InvertTest, ChangesThePixelsOfACopyAsWell) {
    TextureData image = RedImage(3, 1, {0.25f, 0.5f, 1.0f});
    const TextureData copy = image;
    EXPECT_TRUE(image.Invert(false));
    EXPECT_THAT(RedOf(copy), ElementsAre(0.75f, 0.5f, 0.0f));
}

// Perlin

TEST(PerlinTest, NoiseOfTheOriginIsThatOfTheFormula) {
    EXPECT_FLOAT_EQ(PlainNoise(0, 0), static_cast<float>(1 - 1376312589 / 1073741824.0));
    EXPECT_NEAR(PlainNoise(0, 0), -0.2818f, 0.00005f);
}

TEST(PerlinTest, WithoutOctavesCopiesRedToGreenAndBlue) {
    TextureData image = RedImage(3, 2, {0.1f, 0.2f, 0.3f, 4.0f, -5.0f, 0.6f});
    EXPECT_TRUE(image.Perlin(0, 1, 1, 1, 1));
    EXPECT_THAT(ValuesOf(image), ElementsAre(0.1f, 0.1f, 0.1f, 1, 0.2f, 0.2f, 0.2f, 1,  //
                                             0.3f, 0.3f, 0.3f, 1, 4.0f, 4.0f, 4.0f, 1,  //
                                             -5.0f, -5.0f, -5.0f, 1, 0.6f, 0.6f, 0.6f, 1));
}

TEST(PerlinTest, AtALatticePointAddsTheSmoothNoiseTimesTheAmplitude) {
    TextureData image = RedImage(1, 2, {0.5f, 0.5f});
    EXPECT_TRUE(image.Perlin(1, 1, 3, 1, 1));  // pixel j lies at (j, 0)
    EXPECT_THAT(RedOf(image), ElementsAre(FloatEq(0.5f + PlainSmoothNoise(0, 0) * 3),
                                          FloatEq(0.5f + PlainSmoothNoise(1, 0) * 3)));
}

TEST(PerlinTest, LeavesAlphaAlone) {
    const TextureData before = RandomImage(7, 5);
    const Values values = ValuesOf(before);
    TextureData image = before;
    EXPECT_TRUE(image.Perlin(3, 0.3f, 1, 0.5f, 0.5f));
    for (std::size_t k = 3; k < values.size(); k += 4)
        EXPECT_EQ(image.GetData()[k], values[k]);
}

TEST(PerlinTest, EqualsThePlainFormulaToTheLastBit) {
    constexpr float kFrequencies[] = {0.5f, 0.11f, 0.02f, 0.003f, 1.0f, 3.7f, -0.2f, -0.004f};
    for (const auto& [width, height] : kShapes) {
        for (const float frequency : kFrequencies) {
            TextureData image = RandomImage(width, height);
            PlainImage expected(image);
            PlainPerlin(expected, 4, frequency, 0.7f, 0.45f, 0.6f);
            EXPECT_TRUE(image.Perlin(4, frequency, 0.7f, 0.45f, 0.6f));
            SCOPED_TRACE(testing::Message() << width << " x " << height << ", " << frequency);
            ExpectSameBits(image, expected);
        }
    }
}

TEST(PerlinTest, CoordinatesThatAreNotInt32DoNoHarm) {
    constexpr float kInfinite = std::numeric_limits<float>::infinity();
    for (const float frequency :
         {0.0f, 1e-30f, -1e-30f, kInfinite, std::numeric_limits<float>::quiet_NaN()}) {
        TextureData image = RandomImage(6, 4);
        EXPECT_TRUE(image.Perlin(2, frequency, 1, 0.5f, 0.5f));
    }
}

// Clamp and ScaleClamp

TEST(ClampTest, LimitsTheColoursAndLeavesAlphaAlone) {
    TextureData image = ImageOf(3, 1,
                                {-0.5f, 0.0f, 0.5f, -2.0f,  //
                                 1.0f, 1.5f, 0.25f, 2.0f,   //
                                 -0.001f, 1.001f, 0.75f, 0.5f});
    EXPECT_TRUE(image.Clamp());
    EXPECT_THAT(ValuesOf(image), ElementsAre(0.0f, 0.0f, 0.5f, -2.0f, 1.0f, 1.0f, 0.25f, 2.0f, 0.0f,
                                             1.0f, 0.75f, 0.5f));
}

TEST(ScaleClampTest, ScalesRedOverItsRangeAndCopiesItToGreenAndBlue) {
    TextureData image = ImageOf(3, 1,
                                {-1.0f, 9.0f, 9.0f, 0.5f,  //
                                 3.0f, -9.0f, 9.0f, 2.0f,  //
                                 0.0f, 9.0f, -9.0f, -1.0f});
    EXPECT_TRUE(image.ScaleClamp());
    EXPECT_THAT(ValuesOf(image), ElementsAre(0.0f, 0.0f, 0.0f, 0.5f, 1.0f, 1.0f, 1.0f, 2.0f, 0.25f,
                                             0.25f, 0.25f, -1.0f));
}

TEST(ScaleClampTest, LeavesAnImageOfConstantRedUnchanged) {
    TextureData image = RedImage(2, 3, Values(6, 0.3f));
    const Values before = ValuesOf(image);
    EXPECT_TRUE(image.ScaleClamp());
    EXPECT_EQ(ValuesOf(image), before);
}

TEST(ScaleClampTest, EmptyImageStaysEmpty) {
    TextureData image;
    EXPECT_TRUE(image.Blank(0, 4));
    EXPECT_TRUE(image.ScaleClamp());
    EXPECT_TRUE(image.Perlin(1, 1, 1, 1, 1));
    EXPECT_TRUE(image.Blur(2));
    EXPECT_TRUE(image.Translate(1, 1, Vector()));
    EXPECT_TRUE(image.Blend(1, 1, image));
    EXPECT_TRUE(image.Invert(true));
    EXPECT_TRUE(image.Clamp());
    EXPECT_EQ(image.GetHeight(), 4);
}

// Blur

TEST(BlurTest, OfRadiusZeroDoesNotChangeAnImageWithoutTransparentPixels) {
    TextureData image = RandomImage(7, 5);
    for (int k = 3; k < 7 * 5 * 4; k += 4)
        image.GetData()[k] = 0.5f;
    const Values before = ValuesOf(image);
    EXPECT_TRUE(image.Blur(0));
    EXPECT_EQ(ValuesOf(image), before);
}

TEST(BlurTest, OfRadiusZeroBlackensTransparentPixels) {
    TextureData image = ImageOf(2, 1, {0.1f, 0.2f, 0.3f, 0.0f, 0.4f, 0.5f, 0.6f, 0.7f});
    EXPECT_TRUE(image.Blur(0));
    EXPECT_THAT(ValuesOf(image), ElementsAre(0, 0, 0, 0, 0.4f, 0.5f, 0.6f, 0.7f));
}

TEST(BlurTest, WeighsNeighboursExponentiallyByTheirDistance) {
    const double nearer = std::exp(1 / (-2 * 2.0 * 2.0));  // radius 2: s is 2
    const double farther = std::exp(2 / (-2 * 2.0 * 2.0));
    const Values expected = {
        static_cast<float>(farther / (1 + nearer + farther)),
        static_cast<float>(nearer / (1 + 2 * nearer + farther)),
        static_cast<float>(1 / (1 + 2 * nearer + 2 * farther)),
        static_cast<float>(nearer / (1 + 2 * nearer + farther)),
        static_cast<float>(farther / (1 + nearer + farther)),
    };
    for (const auto& [width, height] : {Size{5, 1}, Size{1, 5}}) {
        TextureData image = RedImage(width, height, {0, 0, 1, 0, 0});
        EXPECT_TRUE(image.Blur(2));
        EXPECT_THAT(RedOf(image), Pointwise(FloatNear(1e-6f), expected));
    }
}

TEST(BlurTest, HalfOfAnOddRadiusIsNotRounded) {
    const double nearer = std::exp(1 / (-2 * 1.5 * 1.5));
    TextureData image = RedImage(3, 1, {0, 1, 0});
    EXPECT_TRUE(image.Blur(1));
    EXPECT_NEAR(RedOf(image)[1], 1 / (1 + 2 * nearer), 1e-6);
}

TEST(BlurTest, SeesTheArrayAsWidthRowsOfHeightPixels) {
    // A radius of 1 reaches only the neighbour in the row of two and the rows above and below.
    TextureData image = RedImage(3, 2, {1, 0, 0, 0, 0, 0});
    EXPECT_TRUE(image.Blur(1));
    const Values red = RedOf(image);
    EXPECT_GT(red[1], 0);  // its neighbour in the row of two
    EXPECT_GT(red[2], 0);  // the next row
    EXPECT_GT(red[3], 0);
    EXPECT_EQ(red[4], 0);  // two rows away
    EXPECT_EQ(red[5], 0);
}

TEST(BlurTest, LeavesColoursOfTransparentPixelsOutOnlyInTheFirstDirection) {
    const Values pixels = {0.25f, 0.25f, 0.25f, 1, 0.75f, 0.75f, 0.75f, 0};
    TextureData across = ImageOf(2, 1, pixels);
    EXPECT_TRUE(across.Blur(1));
    EXPECT_THAT(RedOf(across), ElementsAre(0.25f, 0.25f));
    EXPECT_GT(across.GetData()[7], 0) << "it still counts for alpha";
    EXPECT_LT(across.GetData()[3], 1);

    TextureData along = ImageOf(1, 2, pixels);
    EXPECT_TRUE(along.Blur(1));
    EXPECT_LT(RedOf(along)[0], 0.25f) << "the transparent pixel has become black";
    EXPECT_GT(RedOf(along)[1], 0);
}

TEST(BlurTest, OfOnlyTransparentPixelsIsBlack) {
    TextureData image = ImageOf(2, 1, {0.1f, 0.2f, 0.3f, 0, 0.4f, 0.5f, 0.6f, 0});
    EXPECT_TRUE(image.Blur(3));
    EXPECT_THAT(ValuesOf(image), Each(0.0f));
}

TEST(BlurTest, EqualsThePlainFormulaToTheLastBit) {
    for (const auto& [width, height] : kShapes) {
        for (const int radius : {0, 1, 2, 5, 12, 100}) {
            TextureData image = RandomImage(width, height, static_cast<unsigned>(radius));
            PlainImage expected(image);
            PlainBlur(expected, radius);
            EXPECT_TRUE(image.Blur(radius));
            SCOPED_TRACE(testing::Message() << width << " x " << height << ", " << radius);
            ExpectSameBits(image, expected);
        }
    }
}

TEST(BlurTest, WritesIntoTheSameArray) {
    TextureData image = RandomImage(7, 5);
    const float* const before = image.GetData();
    EXPECT_TRUE(image.Blur(2));
    EXPECT_EQ(image.GetData(), before);
}

TEST(BlurTest, OfTheLargestRadiusIsTheMean) {
    TextureData image = RedImage(3, 1, {0, 0, 3});
    EXPECT_TRUE(image.Blur(std::numeric_limits<int>::max()));
    EXPECT_THAT(RedOf(image), Pointwise(FloatNear(1e-5f), Values{1, 1, 1}));
}

TEST(BlurTest, OfANegativeRadiusDoesNotChangeTheImage) {
    TextureData image = RandomImage(7, 5);
    const Values before = ValuesOf(image);
    EXPECT_TRUE(image.Blur(-1));
    EXPECT_EQ(ValuesOf(image), before);
}

// Translate

class TranslateTest : public testing::Test {
protected:
    /// The red values of an image of three columns and two rows, 1 to 6, after a shift that fills
    /// with 9.
    static Values Shifted(int dx, int dy) {
        TextureData image = RedImage(3, 2, {1, 2, 3, 4, 5, 6});
        EXPECT_TRUE(image.Translate(dx, dy, Vector(9, 8, 7, 6)));
        EXPECT_EQ(image.GetWidth(), 3);
        EXPECT_EQ(image.GetHeight(), 2);
        return RedOf(image);
    }
};

TEST_F(TranslateTest, OfOneRowMovesItAndFillsTheRest) {
    TextureData image = RedImage(3, 1, {1, 2, 3});
    EXPECT_TRUE(image.Translate(1, 0, Vector(9, 8, 7, 6)));
    EXPECT_THAT(ValuesOf(image), ElementsAre(9, 8, 7, 6, 1, 0.25f, 0.5f, 1, 2, 0.25f, 0.5f, 1));
    image = RedImage(3, 1, {1, 2, 3});
    EXPECT_TRUE(image.Translate(-1, 0, Vector(9, 8, 7, 6)));
    EXPECT_THAT(ValuesOf(image), ElementsAre(2, 0.25f, 0.5f, 1, 3, 0.25f, 0.5f, 1, 9, 8, 7, 6));
}

TEST_F(TranslateTest, SeesTheArrayAsHeightRowsOfWidthPixels) {
    EXPECT_THAT(Shifted(1, 0), ElementsAre(9, 1, 2, 9, 4, 5));
    EXPECT_THAT(Shifted(-2, 0), ElementsAre(3, 9, 9, 6, 9, 9));
    EXPECT_THAT(Shifted(0, 1), ElementsAre(9, 9, 9, 1, 2, 3));
    EXPECT_THAT(Shifted(0, -1), ElementsAre(4, 5, 6, 9, 9, 9));
}

TEST_F(TranslateTest, MovesInBothDirections) {
    EXPECT_THAT(Shifted(1, 1), ElementsAre(9, 9, 9, 9, 1, 2));
    EXPECT_THAT(Shifted(-1, 1), ElementsAre(9, 9, 9, 2, 3, 9));
    EXPECT_THAT(Shifted(2, -1), ElementsAre(9, 9, 4, 9, 9, 9));
}

TEST_F(TranslateTest, ByZeroDoesNotChangeTheImage) {
    EXPECT_THAT(Shifted(0, 0), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(TranslateTest, OfTheFullSizeOrMoreFillsEverything) {
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kMin = std::numeric_limits<int>::min();
    for (const int shift : {3, -3, 4, -4, kMax, kMin})
        EXPECT_THAT(Shifted(shift, 0), Each(9.0f)) << shift;
    for (const int shift : {2, -2, 3, -3, kMax, kMin})
        EXPECT_THAT(Shifted(0, shift), Each(9.0f)) << shift;
}

// Blend

constexpr std::array<float, 4> kOwn = {0.1f, 0.2f, 0.3f, 0.25f};
constexpr std::array<float, 4> kOther = {0.05f, 0.1f, 0.4f, 0.75f};

/// The weight of each mode.
const std::array<float, 10> kWeights = {0,
                                        1,
                                        0.25f,
                                        0.75f,
                                        1 - 0.25f,
                                        1 - 0.75f,
                                        (0.1f + 0.2f + 0.3f) / 3,
                                        (0.05f + 0.1f + 0.4f) / 3,
                                        1 - (0.1f + 0.2f + 0.3f) / 3,
                                        1 - (0.05f + 0.1f + 0.4f) / 3};

TEST(BlendTest, EachPairOfModesAddsBothColoursTimesTheirWeights) {
    for (int mode = 0; mode < 10; ++mode) {
        for (int otherMode = 0; otherMode < 10; ++otherMode) {
            TextureData image = ImageOf(2, 1,
                                        {kOwn[0], kOwn[1], kOwn[2], kOwn[3],  //
                                         kOwn[0], kOwn[1], kOwn[2], kOwn[3]});
            const TextureData other = ImageOf(1, 1, Values(kOther.begin(), kOther.end()));
            EXPECT_TRUE(image.Blend(mode, otherMode, other));
            for (std::size_t k = 0; k < 8; ++k) {
                const float own = kOwn[k % 4] * kWeights[static_cast<std::size_t>(mode)];
                const float added = kOther[k % 4] * kWeights[static_cast<std::size_t>(otherMode)];
                EXPECT_EQ(image.GetData()[k], std::clamp(own + added, 0.0f, 1.0f))
                    << mode << " and " << otherMode;
            }
        }
    }
}

TEST(BlendTest, OfModesOneAndZeroClampsThisImage) {
    TextureData image = ImageOf(1, 2, {-0.5f, 0.5f, 1.5f, 2, 0, 1, 0.25f, -1});
    EXPECT_TRUE(image.Blend(1, 0, RandomImage(3, 2)));
    EXPECT_THAT(ValuesOf(image), ElementsAre(0, 0.5f, 1, 1, 0, 1, 0.25f, 0));
}

TEST(BlendTest, OfModesZeroAndZeroIsZero) {
    TextureData image = RandomImage(2, 3);
    EXPECT_TRUE(image.Blend(0, 0, RandomImage(3, 2)));
    EXPECT_THAT(ValuesOf(image), Each(0.0f));
}

TEST(BlendTest, OfModesZeroAndOneIsTheOtherImageInThisSize) {
    // As `width` rows of `height` pixels: the other image is (0.1 0.2 0.3) (0.4 0.5 0.6), this
    // one four rows of two.
    const TextureData other = RedImage(2, 3, {0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f});
    TextureData image;
    EXPECT_TRUE(image.Blank(4, 2));
    EXPECT_TRUE(image.Blend(0, 1, other));
    EXPECT_THAT(RedOf(image), ElementsAre(0.1f, 0.2f, 0.1f, 0.2f, 0.4f, 0.5f, 0.4f, 0.5f));
    EXPECT_EQ(image.GetWidth(), 4);
    EXPECT_EQ(image.GetHeight(), 2);
}

TEST(BlendTest, PicksTheOtherPixelBySinglePrecisionDivision) {
    for (const auto& [width, height] : kShapes) {
        for (const auto& [otherWidth, otherHeight] : kShapes) {
            TextureData image;
            EXPECT_TRUE(image.Blank(width, height));
            TextureData other = RandomImage(otherWidth, otherHeight);
            EXPECT_TRUE(other.Clamp());
            EXPECT_TRUE(image.Blend(0, 1, other));
            PlainImage shown(image);
            PlainImage source(other);
            for (int i = 0; i < width; ++i) {
                for (int j = 0; j < height; ++j) {
                    const auto si =
                        static_cast<int>(static_cast<float>(otherWidth)
                                         * (static_cast<float>(i) / static_cast<float>(width)));
                    const auto sj =
                        static_cast<int>(static_cast<float>(otherHeight)
                                         * (static_cast<float>(j) / static_cast<float>(height)));
                    ASSERT_EQ(shown.At(i, j, 0), source.At(si, sj, 0));
                }
            }
        }
    }
}

TEST(BlendTest, WithACopyOfItselfReadsTheOldPixels) {
    TextureData image = RedImage(3, 2, {0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.05f});
    const TextureData copy = image;
    EXPECT_TRUE(image.Blend(1, 1, copy));
    EXPECT_THAT(RedOf(image), ElementsAre(0.1f + 0.1f, 0.2f + 0.2f, 0.3f + 0.3f, 0.4f + 0.4f,
                                          0.5f + 0.5f, 0.05f + 0.05f));
}

TEST(BlendTest, WithAnEmptyImageAddsNothing) {
    TextureData empty;
    EXPECT_TRUE(empty.Blank(0, 3));
    TextureData image = RedImage(2, 1, {0.1f, 0.2f});
    EXPECT_TRUE(image.Blend(1, 1, empty));
    EXPECT_THAT(RedOf(image), ElementsAre(0.1f, 0.2f));
}

class BlendDeathTest : public testing::TestWithParam<Size> {};

TEST_P(BlendDeathTest, UnknownModeIsReportedAndFailsTheAssertion) {
    TextureData image = RandomImage(2, 1);
    const TextureData other = RandomImage(1, 3);
    const auto blend = [&] {
        trace::Start();
        image.Blend(GetParam().first, GetParam().second, other);
    };
    EXPECT_EXIT(blend(), testing::ExitedWithCode(0),
                "^Unknown texture operation\nAssert failed on texturedata:469 - \"0\"\n"
                "#1: TextureData::Blend\n$");
}

INSTANTIATE_TEST_SUITE_P(Modes, BlendDeathTest,
                         testing::Values(Size{10, 0}, Size{-1, 0}, Size{1, 10}, Size{1, -1}));

}  // namespace
