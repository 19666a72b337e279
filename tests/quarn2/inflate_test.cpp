// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/inflate.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <random>
#include <string>
#include <tuple>

#include "tests/support/deflate_streams.h"

namespace {

constexpr char kBlockError[] = "Error decompressing block\n";
constexpr std::uint32_t kRoom = 1 << 16;

/// The result of one call.
struct Outcome {
    int result = -1;
    Bytes output;
    std::string messages;
};

Outcome Decode(const Bytes& input, std::uint32_t capacity = kRoom) {
    Outcome outcome;
    outcome.output.resize(std::max(capacity, 1U));
    std::uint32_t count = 77;
    testing::internal::CaptureStderr();
    outcome.result = Inflate(outcome.output.data(), capacity, &count, input.data(),
                             static_cast<std::uint32_t>(input.size()));
    outcome.messages = testing::internal::GetCapturedStderr();
    EXPECT_LE(count, capacity);
    outcome.output.resize(count);
    return outcome;
}

struct Count {
    int result;
    std::uint32_t bytes;
};

Count CountOnly(const Bytes& input) {
    Count count{-1, 77};
    count.result =
        Inflate(nullptr, &count.bytes, input.data(), static_cast<std::uint32_t>(input.size()));
    return count;
}

Bytes Text(std::string_view text) {
    return Bytes(text.begin(), text.end());
}

void ExpectDecoded(const Bytes& input, const Bytes& expected) {
    const Outcome outcome = Decode(input);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.output, expected);
    EXPECT_EQ(outcome.messages, "");
}

void ExpectBlockError(const Bytes& input, const Bytes& before, std::uint32_t capacity = kRoom) {
    const Outcome outcome = Decode(input, capacity);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.output, before);
    EXPECT_EQ(outcome.messages, kBlockError);
}

/// A final fixed block with 'a' and 'b', ready for more symbols.
BitWriter FixedBlockWithAB() {
    BitWriter out;
    out.Number(1, 1).Number(1, 2).Fixed('a').Fixed('b');
    return out;
}

/// Code lengths of a dynamic block in which 'a', 'b', the end of the block and symbol 257 (a
/// length of 3) have codes of 2 bits, in this order from 0, and distances 1 and 2 have one bit.
constexpr LengthEntry kSmallCode[] = {{18, 86}, {2}, {2}, {18, 127}, {18, 8}, {2}, {2}, {1}, {1}};

/// The codes of kSmallCode.
constexpr std::uint32_t kA = 0, kB = 1, kEnd = 2, kLengthThree = 3;

// Stored blocks

TEST(InflateTest, StoredBlockWithoutBytesProducesNothing) {
    ExpectDecoded({0x01, 0x00, 0x00, 0xFF, 0xFF}, {});
}

TEST(InflateTest, StoredBlocksAreCopied) {
    ExpectDecoded({0x00, 0x02, 0x00, 0xFD, 0xFF, 'q', 'u',        // two bytes, more to come
                   0x01, 0x03, 0x00, 0xFC, 0xFF, 'a', 'r', 'n'},  // three, the last block
                  Text("quarn"));
}

TEST(InflateTest, StoredBlockBeginsAtTheNextByte) {
    BitWriter out;
    out.Number(0, 1).Number(1, 2).Fixed('q').Fixed(256);  // a fixed block: 18 bits
    out.Number(1, 1).Number(0, 2).Align().Number(1, 16).Number(0xFFFE, 16);  // a stored one
    out.Append(Text("u"));
    ExpectDecoded(out.Written(), Text("qu"));
}

TEST(InflateTest, StoredBlockOfTheLargestLengthIsCopied) {
    const Bytes data = MakeContent(Content::Noise, 65535);
    Bytes input = {0x01, 0xFF, 0xFF, 0x00, 0x00};
    input.insert(input.end(), data.begin(), data.end());
    ExpectDecoded(input, data);
}

TEST(InflateTest, StoredBlockWhoseLengthsDisagreeIsReportedWithBothAndFails) {
    const Outcome outcome = Decode({0x01, 0x05, 0x00, 0x05, 0x00});
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.messages,
              "Stored block has invalid length: 5 5\nError decompressing block\n");
}

TEST(InflateTest, StoredLengthsAreReportedAsSixteenBitNumbers) {
    const Outcome outcome = Decode({0x01, 0xFF, 0xFF, 0x01, 0x80});
    EXPECT_EQ(outcome.messages,
              "Stored block has invalid length: 65535 32769\nError decompressing block\n");
}

TEST(InflateTest, StoredBlockLongerThanTheInputFailsAndWritesNothing) {
    ExpectBlockError({0x01, 0x03, 0x00, 0xFC, 0xFF, 'a', 'b'}, {});
}

TEST(InflateTest, StoredBlockAboveTheCapacityFails) {
    ExpectBlockError({0x01, 0x03, 0x00, 0xFC, 0xFF, 'a', 'b', 'c'}, {}, 2);
}

// Fixed blocks

TEST(InflateTest, MatchLongerThanItsDistanceRepeatsTheRecentBytes) {
    ExpectDecoded(FixedBlockWithAB().Fixed(258).Code(1, 5).Fixed(256).Written(), Text("ababab"));
}

TEST(InflateTest, DistanceOneRepeatsTheLastByte) {
    Bytes expected(2 + 258, 'b');
    expected[0] = 'a';
    ExpectDecoded(FixedBlockWithAB().Fixed(285).Code(0, 5).Fixed(256).Written(), expected);
}

TEST(InflateTest, EveryLengthCodeGivesTheLengthsOfItsRange) {
    constexpr std::array<std::uint32_t, 29> kFirst = {3,  4,  5,  6,   7,   8,   9,   10,  11, 13,
                                                      15, 17, 19, 23,  27,  31,  35,  43,  51, 59,
                                                      67, 83, 99, 115, 131, 163, 195, 227, 258};
    for (unsigned code = 0; code < kFirst.size(); ++code) {
        const unsigned extraBits = code < 8 || code == 28 ? 0 : code / 4 - 1;
        for (const std::uint32_t extra : {0U, (1U << extraBits) - 1}) {
            BitWriter out = FixedBlockWithAB();
            out.Fixed(257 + code).Number(extra, extraBits).Code(0, 5).Fixed(256);
            EXPECT_EQ(Decode(out.Written()).output.size(), 2 + kFirst[code] + extra) << code;
        }
    }
}

TEST(InflateTest, EveryDistanceCodeGivesTheDistancesOfItsRange) {
    const Bytes noise = MakeContent(Content::Noise, 32768);
    std::uint32_t first = 1;
    for (unsigned code = 0; code < 30; ++code) {
        const unsigned extraBits = code < 4 ? 0 : code / 2 - 1;
        for (const std::uint32_t extra : {0U, (1U << extraBits) - 1}) {
            BitWriter out;
            out.Number(0, 1).Number(0, 2).Align().Number(0x8000, 16).Number(0x7FFF, 16);
            out.Append(noise).Number(1, 1).Number(1, 2);
            out.Fixed(257).Code(code, 5).Number(extra, extraBits).Fixed(256);
            Bytes expected = noise;
            for (int i = 0; i < 3; ++i)
                expected.push_back(expected[expected.size() - first - extra]);
            EXPECT_EQ(Decode(out.Written()).output, expected) << code;
        }
        first += 1U << extraBits;
    }
}

TEST(InflateTest, EveryLiteralOfTheFixedCodeIsDecoded) {
    BitWriter out;
    out.Number(1, 1).Number(1, 2);
    Bytes expected;
    for (unsigned literal = 0; literal < 256; ++literal) {
        out.Fixed(literal);
        expected.push_back(static_cast<std::uint8_t>(literal));
    }
    ExpectDecoded(out.Fixed(256).Written(), expected);
}

TEST(InflateTest, SecondCallAfterAFixedBlockGivesTheSameResult) {
    const Bytes input = FixedBlockWithAB().Fixed(258).Code(1, 5).Fixed(256).Written();
    const Outcome first = Decode(input);
    const Outcome second = Decode(input);
    EXPECT_EQ(second.result, 0);
    EXPECT_EQ(second.output, first.output);
}

// Dynamic blocks

TEST(InflateTest, DynamicBlockIsDecodedWithItsOwnCodes) {
    BitWriter out;
    WriteDynamicHeader(out, true, 258, 2, kSmallCode);
    out.Code(kB, 2).Code(kA, 2).Code(kLengthThree, 2).Code(1, 1).Code(kEnd, 2);
    ExpectDecoded(out.Written(), Text("babab"));
}

TEST(InflateTest, CodesOfADynamicBlockDoNotAffectTheNextBlock) {
    // The first block has codes of 15 bits, the second has none. If the counts of the first were
    // kept, the second would get codes that it does not have.
    constexpr LengthEntry kLongCode[] = {{18, 86}, {15}, {15}, {18, 127}, {18, 8}, {1}, {1}};
    BitWriter out;
    WriteDynamicHeader(out, false, 257, 1, kLongCode);
    out.Code(0x4000, 15).Code(0x4001, 15).Code(0, 1);
    WriteDynamicHeader(out, true, 258, 2, kSmallCode);
    out.Code(kB, 2).Code(kEnd, 2);
    ExpectDecoded(out.Written(), Text("abb"));
}

TEST(InflateTest, ZerosPastTheEndOfTheirSetAreDroppedAndTheDistancesStartAfresh) {
    constexpr LengthEntry kOverlong[] = {{18, 86}, {2}, {2},     {18, 127}, {18, 8},
                                         {2},      {2}, {17, 7}, {1},       {1}};
    BitWriter out;
    WriteDynamicHeader(out, true, 261, 2, kOverlong);  // 3 of the 10 zeros are in the set
    out.Code(kA, 2).Code(kLengthThree, 2).Code(0, 1).Code(kEnd, 2);
    ExpectDecoded(out.Written(), Text("aaaa"));
    EXPECT_FALSE(InflateWithZlib(out.Written(), kRoom).complete) << "the lengths are too many";
}

TEST(InflateTest, RepeatedLengthsBeyondTheLiteralTableAreDroppedAndNotUsedForDistances) {
    constexpr LengthEntry kOverlong[] = {{18, 86}, {3}, {3},     {18, 127}, {18, 8},
                                         {3},      {3}, {16, 3}, {1},       {1}};
    BitWriter out;
    WriteDynamicHeader(out, true, 262, 2, kOverlong);  // 4 of the 6 repeats are in the set
    out.Code(kA, 3).Code(kLengthThree, 3).Code(0, 1).Code(kEnd, 3);
    ExpectDecoded(out.Written(), Text("aaaa"));
    EXPECT_FALSE(InflateWithZlib(out.Written(), kRoom).complete) << "the lengths are too many";
}

TEST(InflateTest, StreamWhoseRepeatCrossesIntoTheDistancesIsDecodedWrongly) {
    // In one sequence the last repeat is meant for symbol 257 and all four distances; in two,
    // the distances' lengths are read from what follows.
    constexpr LengthEntry kCrossing[] = {{18, 86}, {2}, {2}, {18, 127}, {18, 8}, {2}, {16, 2}};
    BitWriter out;
    WriteDynamicHeader(out, true, 258, 4, kCrossing);
    out.Code(kA, 2).Code(kLengthThree, 2).Code(0, 2).Code(kEnd, 2);
    ASSERT_EQ(InflateWithZlib(out.Written(), kRoom).output, Text("aaaa"));
    EXPECT_TRUE(RepeatsCrossTheSets(out.Written()));
    ExpectBlockError(out.Written(), {});
}

TEST(InflateTest, SetsOfTheLargestSizesAreRead) {
    // 288 and 32 symbols, of which the standard has 286 and 30.
    constexpr LengthEntry kLargest[] = {{18, 86}, {2},      {2}, {18, 127}, {18, 8}, {2},
                                        {2},      {18, 19}, {1}, {1},       {18, 19}};
    BitWriter out;
    WriteDynamicHeader(out, true, 288, 32, kLargest);
    out.Code(kA, 2).Code(kLengthThree, 2).Code(0, 1).Code(kEnd, 2);
    ExpectDecoded(out.Written(), Text("aaaa"));
}

TEST(InflateTest, OverSubscribedCodesAreNotRefused) {
    // Three symbols of one bit: the end of the block, which is the third, can never occur.
    constexpr LengthEntry kTooMany[] = {{18, 86}, {1}, {1}, {18, 127}, {18, 8}, {1}, {0}};
    BitWriter out;
    WriteDynamicHeader(out, true, 257, 1, kTooMany);
    out.Code(1, 1).Code(0, 1).Align().Number(0xFF, 8);
    const Outcome outcome = Decode(out.Written());
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(std::string(outcome.output.begin(), outcome.output.end()).substr(0, 2), "ba");
    EXPECT_EQ(Bytes(outcome.output.end() - 8, outcome.output.end()), Bytes(8, 'b'));
}

// Failures

TEST(InflateTest, BlockTypeThreeFailsWithASingleLine) {
    const Outcome outcome = Decode({0x07});
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.messages, "Invalid block type\n");
}

TEST(InflateTest, EmptyInputFails) {
    ExpectBlockError({}, {});
}

TEST(InflateTest, InputThatEndsBeforeTheNextBlockFails) {
    ExpectBlockError({0x00, 0x01, 0x00, 0xFE, 0xFF, 'a'}, Text("a"));
}

TEST(InflateTest, InputCutAtAnyByteFailsAndKeepsTheDecodedBytes) {
    const Bytes data = MakeContent(Content::Picture, 3000);
    for (const int level : {0, 1, 9}) {
        const Bytes whole = DeflateWithZlib(data, level);
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const Outcome outcome =
                Decode(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
            ASSERT_EQ(outcome.result, 1) << length;
            ASSERT_EQ(outcome.messages, kBlockError);
            ASSERT_TRUE(std::equal(outcome.output.begin(), outcome.output.end(), data.begin()));
        }
    }
}

TEST(InflateTest, LiteralAboveTheCapacityFails) {
    const Bytes input = FixedBlockWithAB().Fixed(256).Written();
    EXPECT_EQ(Decode(input, 2).result, 0);
    ExpectBlockError(input, Text("a"), 1);
    ExpectBlockError(input, {}, 0);
}

TEST(InflateTest, MatchAboveTheCapacityFails) {
    const Bytes input = FixedBlockWithAB().Fixed(258).Code(1, 5).Fixed(256).Written();
    EXPECT_EQ(Decode(input, 6).result, 0);
    ExpectBlockError(input, Text("ab"), 5);
}

TEST(InflateTest, LengthCodesAboveTheLastFail) {
    ExpectBlockError(FixedBlockWithAB().Fixed(286).Code(0, 5).Fixed(256).Written(), Text("ab"));
    ExpectBlockError(FixedBlockWithAB().Fixed(287).Code(0, 5).Fixed(256).Written(), Text("ab"));
}

TEST(InflateTest, DistanceCodesAboveTheLastFail) {
    constexpr LengthEntry kThirtyTwo[] = {{18, 86}, {2}, {2},      {18, 127}, {18, 8},
                                          {2},      {2}, {18, 19}, {1},       {1}};
    for (const std::uint32_t code : {0U, 1U}) {
        BitWriter out;
        WriteDynamicHeader(out, true, 258, 32, kThirtyTwo);  // distance symbols 30 and 31
        out.Code(kA, 2).Code(kLengthThree, 2).Code(code, 1).Code(kEnd, 2);
        ExpectBlockError(out.Written(), Text("a"));
    }
}

TEST(InflateTest, DistanceSymbolThatCannotBeDecodedFails) {
    for (const std::uint32_t code : {30U, 31U}) {  // not in the fixed code
        ExpectBlockError(
            FixedBlockWithAB().Fixed(257).Code(code, 5).Number(0, 20).Fixed(256).Written(),
            Text("ab"));
    }
}

TEST(InflateTest, LiteralSymbolThatCannotBeDecodedFails) {
    constexpr LengthEntry kIncomplete[] = {{18, 86}, {2}, {2}, {18, 127}, {18, 8}, {2}, {0}};
    BitWriter out;
    WriteDynamicHeader(out, true, 257, 1, kIncomplete);
    out.Code(kA, 2).Code(3, 2).Number(0, 30);
    ExpectBlockError(out.Written(), Text("a"));
}

TEST(InflateTest, CodeLengthSymbolThatCannotBeDecodedFails) {
    BitWriter out;
    out.Number(1, 1).Number(2, 2).Number(0, 5).Number(0, 5).Number(0, 4);
    out.Number(0, 12).Number(0, 32).Number(0, 32);  // a code length code without symbols
    ExpectBlockError(out.Written(), {});
}

TEST(InflateTest, DistanceBeforeTheStartOfTheOutputFails) {
    ExpectBlockError(FixedBlockWithAB().Fixed(257).Code(2, 5).Fixed(256).Written(), Text("ab"));
    EXPECT_EQ(CountOnly(FixedBlockWithAB().Fixed(257).Code(2, 5).Fixed(256).Written()).result, 1);
}

TEST(InflateTest, RepeatAtTheStartOfTheLiteralSetFails) {
    constexpr LengthEntry kNothingBefore[] = {{16, 0}, {18, 127}, {18, 127}, {1}, {1}};
    BitWriter out;
    WriteDynamicHeader(out, true, 257, 1, kNothingBefore);
    ExpectBlockError(out.Number(0, 30).Written(), {});
}

TEST(InflateTest, RepeatAtTheStartOfTheDistanceSetFails) {
    // In one sequence it would repeat the length of symbol 257.
    constexpr LengthEntry kNothingBefore[] = {{18, 86}, {2}, {2},     {18, 127}, {18, 8},
                                              {2},      {2}, {16, 0}, {2}};
    BitWriter out;
    WriteDynamicHeader(out, true, 258, 4, kNothingBefore);
    out.Code(kA, 2).Code(kLengthThree, 2).Code(0, 2).Code(kEnd, 2);
    ASSERT_EQ(InflateWithZlib(out.Written(), kRoom).output, Text("aaaa"));
    EXPECT_TRUE(RepeatsCrossTheSets(out.Written()));
    ExpectBlockError(out.Written(), {});
}

// Input, output and capacity

TEST(InflateTest, BytesAfterTheStreamAreNotRead) {
    Bytes input = FixedBlockWithAB().Fixed(256).Written();
    input.insert(input.end(), {0xDE, 0xAD, 0xBE, 0xEF});  // in the place of a checksum
    ExpectDecoded(input, Text("ab"));
}

TEST(InflateTest, WithoutOutputTheBytesAreCounted) {
    for (const Content content : {Content::Text, Content::Zeros, Content::Picture}) {
        const Bytes data = MakeContent(content, 65536);
        for (const int strategy : {Z_DEFAULT_STRATEGY, Z_FIXED}) {
            const Count count = CountOnly(DeflateWithZlib(data, 9, strategy));
            EXPECT_EQ(count.result, 0) << NameOf(content);
            EXPECT_EQ(count.bytes, data.size()) << NameOf(content);
        }
    }
}

TEST(InflateTest, WithoutOutputStoredBytesAreCountedButNotSkipped) {
    // The five stored bytes are themselves a block: the last one, without bytes.
    const Bytes input = {0x00, 0x05, 0x00, 0xFA, 0xFF, 0x01, 0x00, 0x00, 0xFF, 0xFF};
    const Count count = CountOnly(input);
    EXPECT_EQ(count.result, 0);
    EXPECT_EQ(count.bytes, 5U);
    EXPECT_EQ(Decode(input).result, 1) << "with an output there is no last block";
}

TEST(InflateTest, WithoutOutputTheCapacityLimitsTheCount) {
    const Bytes input = FixedBlockWithAB().Fixed(258).Code(1, 5).Fixed(256).Written();
    std::uint32_t count = 0;
    const auto length = static_cast<std::uint32_t>(input.size());
    EXPECT_EQ(Inflate(nullptr, 6, &count, input.data(), length), 0);
    EXPECT_EQ(Inflate(nullptr, 5, &count, input.data(), length), 1);
    EXPECT_EQ(count, 2U);
}

TEST(InflateTest, WithoutOutputManyStoredBlocksEndWithTheInput) {
    // The next header follows each of them at once, so the count grows by 64 KiB per 5 bytes and
    // would overflow.
    Bytes input;
    for (int block = 0; block < 100'000; ++block)
        input.insert(input.end(), {0x00, 0xFF, 0xFF, 0x00, 0x00});
    const Count count = CountOnly(input);
    EXPECT_EQ(count.result, 1);
    EXPECT_EQ(count.bytes, 0xFFFF'FFFFU / 0xFFFFU * 0xFFFFU);
}

TEST(InflateTest, ManyEmptyBlocksEndWithTheInput) {
    Bytes stored;
    for (int block = 0; block < 100'000; ++block)
        stored.insert(stored.end(), {0x00, 0x00, 0x00, 0xFF, 0xFF});
    ExpectBlockError(stored, {});
    BitWriter fixed;
    for (int block = 0; block < 100'000; ++block)
        fixed.Number(0, 1).Number(1, 2).Fixed(256);
    const Outcome outcome = Decode(fixed.Written());
    EXPECT_EQ(outcome.result, 1);
    EXPECT_TRUE(outcome.output.empty());
}

TEST(InflateTest, WithoutACapacityTheOutputIsAssumedToBeLargeEnough) {
    const Bytes data = MakeContent(Content::Text, 10'000);
    const Bytes input = DeflateWithZlib(data, 6);
    GuardedBytes output(data.size(), GuardedBytes::Against::Back);
    std::uint32_t count = 77;
    EXPECT_EQ(
        Inflate(output.data(), &count, input.data(), static_cast<std::uint32_t>(input.size())), 0);
    EXPECT_EQ(Bytes(output.data(), output.data() + count), data);
}

// Streams of zlib and libdeflate

constexpr std::size_t kSizes[] = {0, 1, 65535, 65536, std::size_t{1} << 20};

class InflateZlibLevelTest : public testing::TestWithParam<int> {};

TEST_P(InflateZlibLevelTest, EveryContentAndSizeIsDecoded) {
    for (const Content content : kContents) {
        for (const std::size_t size : kSizes) {
            const Bytes data = MakeContent(content, size);
            const Outcome outcome =
                Decode(DeflateWithZlib(data, GetParam()), static_cast<std::uint32_t>(size));
            EXPECT_EQ(outcome.result, 0);
            EXPECT_TRUE(outcome.output == data) << size << " bytes of " << NameOf(content);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllLevels, InflateZlibLevelTest, testing::Range(0, 10));

class InflateStrategyTest : public testing::TestWithParam<int> {};

TEST_P(InflateStrategyTest, EveryContentIsDecoded) {
    for (const Content content : kContents) {
        const Bytes data = MakeContent(content, 65536);
        const Outcome outcome = Decode(DeflateWithZlib(data, 9, GetParam()));
        EXPECT_EQ(outcome.result, 0);
        EXPECT_TRUE(outcome.output == data) << NameOf(content);
    }
}

INSTANTIATE_TEST_SUITE_P(AllStrategies, InflateStrategyTest,
                         testing::Values(Z_DEFAULT_STRATEGY, Z_FILTERED, Z_HUFFMAN_ONLY, Z_RLE,
                                         Z_FIXED));

class InflateLibdeflateLevelTest : public testing::TestWithParam<int> {};

TEST_P(InflateLibdeflateLevelTest, EveryContentAndSizeIsDecodedUnlessARepeatCrossesTheSets) {
    int compared = 0;
    for (const Content content : kContents) {
        for (const std::size_t size : kSizes) {
            const Bytes data = MakeContent(content, size);
            const Bytes stream = DeflateWithLibdeflate(data, GetParam());
            ASSERT_TRUE(InflateWithZlib(stream, size).complete);
            const Outcome outcome = Decode(stream, static_cast<std::uint32_t>(size));
            const bool same = outcome.result == 0 && outcome.output == data;
            EXPECT_EQ(same, !RepeatsCrossTheSets(stream))
                << size << " bytes of " << NameOf(content);
            compared += same ? 1 : 0;
        }
    }
    EXPECT_GE(compared, 12) << "most streams have no such repeat";
}

INSTANTIATE_TEST_SUITE_P(AllLevels, InflateLibdeflateLevelTest, testing::Range(0, 13));

// Arbitrary input

/// Decodes between guarded pages, on both sides of each buffer, without looking at the result.
void DecodeGuarded(const Bytes& bytes, std::uint32_t capacity) {
    using enum GuardedBytes::Against;
    for (const auto side : {Front, Back}) {
        GuardedBytes input(bytes, side);
        GuardedBytes output(capacity, side);
        std::uint32_t count = 0;
        std::ignore = Inflate(output.data(), output.size(), &count, input.data(), input.size());
        ASSERT_LE(count, capacity);
        std::ignore = Inflate(nullptr, &count, input.data(), input.size());
    }
}

class InflateAnyBytesTest : public testing::Test {
protected:
    void SetUp() override { testing::internal::CaptureStderr(); }
    void TearDown() override { testing::internal::GetCapturedStderr(); }

    std::uint32_t Below(std::uint32_t bound) {
        return std::uniform_int_distribution<std::uint32_t>(0, bound - 1)(random);
    }

    std::mt19937 random{20'000};
};

TEST_F(InflateAnyBytesTest, DecodingRandomBytesEndsAndStaysWithinTheBuffers) {
    for (int run = 0; run < 4000; ++run) {
        Bytes bytes(Below(300));
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        if (!bytes.empty() && run % 4 != 0)  // begin with a block of type 1 or 2
            bytes[0] = static_cast<std::uint8_t>((bytes[0] & ~7U) | (run % 4 == 1 ? 2U : 4U));
        DecodeGuarded(bytes, Below(600));
    }
}

TEST_F(InflateAnyBytesTest, DecodingChangedStreamsEndsAndStaysWithinTheBuffers) {
    for (const Content content : kContents) {
        const Bytes data = MakeContent(content, 2000);
        for (const int level : {0, 1, 9}) {
            const Bytes stream = DeflateWithZlib(data, level);
            for (int run = 0; run < 200; ++run) {
                Bytes changed = stream;
                for (std::uint32_t change = 0; change <= Below(3); ++change) {
                    changed[Below(static_cast<std::uint32_t>(changed.size()))] ^=
                        static_cast<std::uint8_t>(1U << Below(8));
                }
                DecodeGuarded(changed, 1000 + Below(2000));
            }
        }
    }
}

TEST_F(InflateAnyBytesTest, DecodingWithAnyByteReplacedEndsAndStaysWithinTheBuffers) {
    const Bytes stream = DeflateWithZlib(MakeContent(Content::Picture, 600), 9);
    for (std::size_t position = 0; position < stream.size(); ++position) {
        for (const int kind : {0, 1, 2}) {
            Bytes changed = stream;
            changed[position] = static_cast<std::uint8_t>(kind == 0   ? 0x00
                                                          : kind == 1 ? 0xFF
                                                                      : ~changed[position]);
            DecodeGuarded(changed, 600);
        }
    }
}

}  // namespace
