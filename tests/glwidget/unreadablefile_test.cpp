// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Layout, theme and configuration when there is something in their place that cannot be read.

#include <gmock/gmock.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>

#include "tests/glwidget/widget_test.h"
#include "tests/support/file_reads.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::StartsWith;

struct Obstacle {
    const char* name;
    void (*put)(const TemporaryFolder& folder, const std::string& file);
    const char* reason;
    std::optional<std::size_t> bytesUntilError = std::nullopt;
};

void Link(const TemporaryFolder& folder, const std::string& file, const char* target) {
    std::filesystem::create_symlink(target, folder.Path(file));
}

const Obstacle kObstacles[] = {
    {"Nothing", [](const TemporaryFolder&, const std::string&) {}, "is missing"},
    {"Folder",
     [](const TemporaryFolder& folder, const std::string& file) {
         std::filesystem::create_directory(folder.Path(file));
     },
     "is no file"},
    {"Pipe", [](const TemporaryFolder& folder, const std::string& file) { folder.MakePipe(file); },
     "is no file"},
    {"EndlessDevice",
     [](const TemporaryFolder& folder, const std::string& file) {
         Link(folder, file, "/dev/zero");
     },
     "is no file"},
    {"TwelveGibibytes",
     [](const TemporaryFolder& folder, const std::string& file) {
         folder.MakeSparseFile(file, std::uintmax_t{12} << 30);
     },
     "is too large: it may have up to 16777216 bytes"},
    {"MemoryOfTheProcess",
     [](const TemporaryFolder& folder, const std::string& file) {
         Link(folder, file, "/proc/self/mem");
     },
     "cannot be read"},
    {"FileThatBreaksOff",
     [](const TemporaryFolder& folder, const std::string& file) {
         folder.Write(file, "0.1 0.2 0.3\n0.4 0.5 0.6\n0.7 0.8 0.9\n");
     },
     "cannot be read", 20},
};

class UnreadableFileTest : public WidgetTest, public testing::WithParamInterface<Obstacle> {
protected:
    /// Puts the obstacle in the place of the file and runs `read`.
    /// @return what was written to standard error
    template <typename Read>
    std::string ReadWithObstacle(const std::string& file, Read read) {
        GetParam().put(folder, file);
        std::optional<FailingReads> failing;
        if (GetParam().bytesUntilError)
            failing.emplace(*GetParam().bytesUntilError);
        testing::internal::CaptureStderr();
        read();
        return testing::internal::GetCapturedStderr();
    }

    static std::string Line(const std::string& file) {
        return file + " " + GetParam().reason + "\n";
    }

    WorkingFolder folder;
};

TEST_P(UnreadableFileTest, LayoutMakesNoWidgetsAndIsReportedInOneLine) {
    const std::string report =
        ReadWithObstacle("my.gui", [] { EXPECT_TRUE(GLWidget::StartGUI("my.gui")); });
    EXPECT_EQ(report, "Starting GUI from my.gui\n" + Line("my.gui")
                          + "Error loading texture tga file 'gui.tga'\n");
    EXPECT_TRUE(GLWidget::widgets.empty());
}

TEST_P(UnreadableFileTest, DefaultThemeHasTheBuiltInValues) {
    std::istringstream layout("THEM default NULL\n");
    const std::string report = ReadWithObstacle(
        "default.theme", [&] { EXPECT_TRUE(GLWidget::StartGUI(layout, "my.gui")); });
    const bool missing = GetParam().reason == std::string("is missing");
    EXPECT_EQ(report, "Starting GUI from my.gui\n" + (missing ? "" : Line("default.theme"))
                          + "Error loading texture tga file 'gui.tga'\nProcessing 'THEM'\n");
    ASSERT_NE(GLWidget::currentTheme, nullptr);
    EXPECT_EQ(GLWidget::currentTheme->textColour.x, 1.0f);
    EXPECT_EQ(GLWidget::currentTheme->border, 0.005f);
}

TEST_P(UnreadableFileTest, ThemeKeepsItsValuesAndIsReportedInOneLine) {
    theme->border = 0.25f;
    const std::string report =
        ReadWithObstacle("my.theme", [&] { Theme::Read(*theme, "my.theme"); });
    EXPECT_THAT(report, StartsWith("reading theme my.theme\n" + Line("my.theme")
                                   + "(1, 1, 1, 1)\n(1, 0.71, 0.16, 1)\n"));
    EXPECT_EQ(theme->border, 0.25f);
}

TEST_P(UnreadableFileTest, ConfigurationKeepsTheValuesAndIsReportedInOneLine) {
    GLWidget::fadeRate = 0.125f;
    const std::string report =
        ReadWithObstacle("my.conf", [] { EXPECT_TRUE(GLWidget::Init("my.conf")); });
    EXPECT_EQ(report, Line("my.conf") + "Loading \nError loading the font\nLoaded.\n");
    EXPECT_EQ(GLWidget::fadeRate, 0.125f);
}

INSTANTIATE_TEST_SUITE_P(All, UnreadableFileTest, testing::ValuesIn(kObstacles),
                         [](const auto& obstacle) { return std::string(obstacle.param.name); });

}  // namespace
