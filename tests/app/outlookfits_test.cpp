// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// What the next week will do to the stores must fit into the labels of every set, so that no line
// covers the one of its neighbour.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "app/lines.h"
#include "app/tags.h"
#include "country/outlook.h"
#include "glwidget/label.h"
#include "tests/support/temporary_folder.h"

namespace {

using Trend = Outlook::Trend;
using Butchers = HerdOutlook::Butchers;

constexpr Trend kTrends[] = {Trend::Empty,  Trend::RunsOut,   Trend::Lasts,
                             Trend::Steady, Trend::Uncertain, Trend::Grows};
constexpr Butchers kButchers[] = {Butchers::None, Butchers::Idle, Butchers::Raise,
                                  Butchers::TakeMore, Butchers::TakeAll};
constexpr float kLimit = 1.0f / 3.0f;
constexpr float kWeeks = 8888.0f;

/// All sentences, with the longest numbers that a reign of years can show.
std::set<std::string> HerdSentences() {
    std::set<std::string> all;
    for (const Trend trend : kTrends) {
        for (const Butchers butchers : kButchers) {
            for (const float part : {0.288f, 8.888f}) {
                if (butchers == Butchers::Raise && part > kLimit)
                    continue;
                std::string text = "Livestock ";
                HerdOutlook{{1.0f, 1.0f, 1.0f, trend, kWeeks}, butchers, part, kLimit}.WriteTo(
                    text);
                all.insert(text);
            }
        }
    }
    return all;
}

std::set<std::string> GrainSentences() {
    std::set<std::string> all;
    for (const Trend trend : kTrends) {
        std::string text = "Grain ";
        Outlook{1.0f, 1.0f, 1.0f, trend, kWeeks}.WriteTo(text);
        all.insert(text);
    }
    return all;
}

/// The game in one of its sets, with its texts measured but not drawn.
class OutlookFitsTest : public testing::TestWithParam<std::string> {
protected:
    OutlookFitsTest() {
        namespace fs = std::filesystem;
        constexpr auto kOver = fs::copy_options::overwrite_existing;
        for (const std::string& layer : {std::string(), "sets/" + GetParam()}) {
            for (const auto& entry : fs::directory_iterator(fs::path(DATA_FOLDER) / layer)) {
                if (entry.is_regular_file())
                    fs::copy_file(entry, entry.path().filename(), kOver);
            }
        }
        Toolkit::Get().ResetWithoutWindow();
        testing::internal::CaptureStderr();
        GLWidget::StartGUI("my.gui.debug");
        testing::internal::GetCapturedStderr();
    }
    ~OutlookFitsTest() override { Toolkit::Get().Reset(); }

    static void ExpectRoom(std::string_view tag, const std::set<std::string>& sentences) {
        auto& label = dynamic_cast<Label&>(*GLWidget::GetByTag(tag));
        for (std::string text : sentences) {
            const std::string sentence = text;
            lines::BreakToFit(text, label);
            EXPECT_LE(lines::CountOf(text), lines::RoomOf(label)) << sentence;
            EXPECT_TRUE(lines::IsShownAsItIs(text, label)) << sentence;
        }
    }

    WorkingFolder folder;
};

TEST_P(OutlookFitsTest, EverySentenceOfTheHerdHasRoom) {
    ExpectRoom(tag::kLivestockOutlook, HerdSentences());
}

TEST_P(OutlookFitsTest, EverySentenceOfTheGrainHasRoom) {
    ExpectRoom(tag::kGrainOutlook, GrainSentences());
}

INSTANTIATE_TEST_SUITE_P(Sets, OutlookFitsTest, testing::Values("", "large", "high-contrast"));

}  // namespace
