// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Tests the example code in docs/ENGINE.md.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "framecounter.h"
#include "meter.h"
#include "quarn2/farbfeld.h"
#include "quarn2/texturedata.h"
#include "tavern.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

void SendFrame(const Pointer<Kernel>& kernel, std::uint32_t milliseconds) {
    Event update(UpdateEvent);
    update.time = milliseconds;
    EXPECT_TRUE(kernel->SendEvent(Pointer<EventCatcher>(), update));
    EXPECT_TRUE(kernel->SendEvent(Pointer<EventCatcher>(), Event(RenderEvent)));
}

TEST(FrameCounterExample, CountsThePicturesOfTheLastWholeSecond) {
    const Pointer<Kernel> kernel(new Kernel);
    const Pointer<FrameCounter> counter(new FrameCounter(kernel));
    for (int frame = 0; frame < 50; ++frame)
        SendFrame(kernel, 20);
    EXPECT_EQ(counter->PerSecond(), 49U);  // the fiftieth picture is drawn after the second
    for (int frame = 0; frame < 25; ++frame)
        SendFrame(kernel, 40);
    EXPECT_EQ(counter->PerSecond(), 25U);
}

class MeterExample : public WidgetTest {};

TEST_F(MeterExample, KeepsItsLevelWithinTheBar) {
    Meter meter("meter", nullptr, Vector(0.0f, 0.0f), theme, Vector(0.4f, 0.1f));
    meter.SetLevel(1.5f);
    EXPECT_EQ(meter.GetLevel(), 1.0f);
    EXPECT_FALSE(meter.MouseClick(true, false, false));
    EXPECT_FLOAT_EQ(meter.Getbbox().z, 0.4f);
    EXPECT_FLOAT_EQ(meter.Getbbox().w, 0.1f);
}

TEST_F(MeterExample, IsMadeByALayoutOnceItsKindIsRegistered) {
    RegisterKind(kMeterKind);
    std::istringstream layout("CADD Meter level NULL 0 0 0.4 0.1\n");
    testing::internal::CaptureStderr();
    GLWidget::StartGUI(layout, "test.gui");
    testing::internal::GetCapturedStderr();
    GLWidget* const meter = GLWidget::GetByTag("level", false);
    ASSERT_NE(meter, nullptr);
    EXPECT_EQ(meter->GetType(), "Meter");
    EXPECT_FLOAT_EQ(meter->Getbbox().z, 0.4f);
    EXPECT_FLOAT_EQ(meter->Getbbox().w, 0.1f);
}

class DrawnMeterExample : public DrawnWidgetTest {};

TEST_F(MeterExample, ItsLevelChangesTheFingerprint) {
    Meter meter("meter", nullptr, Vector(0.0f, 0.0f), theme, Vector(0.4f, 0.1f));
    GLWidget::widgets = {&meter};
    const std::uint64_t before = GLWidget::Appearance();
    EXPECT_EQ(GLWidget::Appearance(), before);
    meter.SetLevel(0.25f);
    EXPECT_NE(GLWidget::Appearance(), before);
    GLWidget::widgets.clear();
}

TEST_F(DrawnMeterExample, IsFilledUpToItsLevel) {
    Meter meter("meter", nullptr, Vector(0.0f, 0.0f), theme, Vector(1.0f, 0.2f));
    meter.SetLevel(0.25f);
    Draw(meter);
    constexpr Colour kFull{0, 0, 153};  // the fill at the theme's dim
    constexpr Colour kEmpty{255, 0, 0};
    EXPECT_EQ(At(0.02f, 0.1f), kFull);
    EXPECT_EQ(At(0.23f, 0.1f), kFull);
    EXPECT_EQ(At(0.27f, 0.1f), kEmpty);
    EXPECT_EQ(At(0.98f, 0.1f), kEmpty);
    EXPECT_EQ(At(1.02f, 0.1f), kBlack);
    EXPECT_EQ(At(0.5f, 0.22f), kBlack);
}

/// A picture that is one pixel wide and two pixels high.
std::vector<std::uint8_t> Farbfeld(const std::vector<std::uint8_t>& channels) {
    std::vector<std::uint8_t> file{'f', 'a', 'r', 'b', 'f', 'e', 'l', 'd', 0, 0, 0, 1, 0, 0, 0, 2};
    for (const std::uint8_t byte : channels)
        file.push_back(byte);
    return file;
}

const std::vector<std::uint8_t> kTwoPixels{255, 255, 0, 0, 51, 51, 255, 255,
                                           0,   0,   0, 0, 0,  0,  102, 102};

TEST(FarbfeldExample, DecodesSixteenBitsPerChannel) {
    DecodedImage image;
    ASSERT_TRUE(DecodeFarbfeld("two.ff", Farbfeld(kTwoPixels), image));
    EXPECT_EQ(image.width, 1);
    EXPECT_EQ(image.height, 2);
    EXPECT_FLOAT_EQ(image.pixels[0], 1.0f);
    EXPECT_FLOAT_EQ(image.pixels[2], 0.2f);
    EXPECT_FLOAT_EQ(image.pixels[7], 0.4f);
}

TEST(FarbfeldExample, TextureDataLoadsAFileWithTheSuffixOfTheFormat) {
    const TemporaryFolder folder;
    TextureData image;
    ASSERT_TRUE(image.Load(folder.Write("two.ff", Farbfeld(kTwoPixels))));
    EXPECT_EQ(image.GetWidth(), 1);
    EXPECT_EQ(image.GetHeight(), 2);
    EXPECT_FLOAT_EQ(image.GetData()[2], 0.2f);
}

TEST(FarbfeldExample, MissingFileIsReported) {
    TextureData image;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(image.Load("none.ff"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error opening none.ff\n");
}

TEST(FarbfeldExample, FileCutAtAnyLengthIsReportedInOneLine) {
    const std::vector<std::uint8_t> whole = Farbfeld(kTwoPixels);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::vector<std::uint8_t> cut(whole.begin(),
                                            whole.begin() + static_cast<std::ptrdiff_t>(length));
        DecodedImage image;
        testing::internal::CaptureStderr();
        EXPECT_FALSE(DecodeFarbfeld("cut.ff", cut, image));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  length < 16 ? "cut.ff: not a farbfeld picture\n"
                              : "cut.ff: the pixels end too early\n");
    }
}

TEST(FarbfeldExample, TooLargeSizeIsReportedBeforeMemoryIsAllocated) {
    std::vector<std::uint8_t> file = Farbfeld(kTwoPixels);
    for (std::size_t byte = 8; byte < 16; ++byte)
        file[byte] = 255;
    DecodedImage image;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(DecodeFarbfeld("great.ff", file, image));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "great.ff: an image of 4294967295 x 4294967295 pixels cannot be loaded; it must have "
              "from 1 to 67108863 pixels\n");
}

TEST(TavernExample, MoraleRisesInProportionToTheShareOfTheIdle) {
    Population people(1000);
    people.SetShare(Profession::Farmers, 0.5f);
    people.SetShare(Profession::Butchers, 0.0f);
    std::srand(5);
    const double roll = RollUnit();
    std::srand(5);
    SitInTavern(people, kSecondsPerWeek);
    EXPECT_FLOAT_EQ(people.morale, static_cast<float>(0.5 + roll * 0.002 * 0.5));
}

}  // namespace
