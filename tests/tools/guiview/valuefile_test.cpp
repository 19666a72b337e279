// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/valuefile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "glwidget/theme.h"

namespace guiview {
namespace {

using Lines = std::vector<std::string>;

std::string Joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

const Lines kTheme = {"1 1 1",        "0.3 0.3 0.3", "0 0 0",   "0 0 0", "1",         "0.8",
                      "1.5",          "0.01",        "0.03",    "0.003", "0.05 0.06", "0.9 1",
                      "0.01 -0.01 0", "0.1",         "gui.tga", "1"};

std::string FoundInTheme(const Lines& lines) {
    Findings findings;
    static_cast<void>(CheckThemeFile("a.theme", Joined(lines), findings));
    return findings.AsText();
}

Lines Without(Lines lines, std::size_t number) {
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(number) - 1);
    return lines;
}

Lines With(Lines lines, std::size_t number, const std::string& line) {
    lines[number - 1] = line;
    return lines;
}

TEST(ThemeFile, WithSixteenGoodLinesIsClean) {
    EXPECT_EQ(FoundInTheme(kTheme), "");
}

TEST(ThemeFile, LineThatIsMissingIsOneErrorThatNamesIt) {
    const auto expected = [](const std::string& place, const std::string& names) {
        return "a.theme:" + place + ":1: error: " + names
               + " is missing: the file has 15 lines of values, not 16\n";
    };
    EXPECT_EQ(FoundInTheme(Without(kTheme, 11)), expected("11", "the font size"));
    EXPECT_EQ(FoundInTheme(Without(kTheme, 13)), expected("13", "the press offset"));
    EXPECT_EQ(FoundInTheme(Without(kTheme, 14)), expected("14", "the box size"));
    EXPECT_EQ(FoundInTheme(Without(kTheme, 15)), expected("15", "the picture"));
    EXPECT_EQ(FoundInTheme(Without(kTheme, 16)), expected("15", "the fade"));
    EXPECT_EQ(FoundInTheme(Without(kTheme, 2)),
              expected("1",
                       "the text colour, the line colour, the fill colour or the fourth "
                       "colour"));
}

TEST(ThemeFile, SurplusLineIsOneError) {
    Lines lines = kTheme;
    lines.insert(lines.begin() + 10, "0.5 0.5 0.5 0.5 0.5");
    EXPECT_EQ(FoundInTheme(lines),
              "a.theme:11:1: error: one line too many: the file has 17 lines of values, not 16\n");
}

TEST(ThemeFile, LinesAfterTheLastAreNotRead) {
    Lines lines = kTheme;
    lines.emplace_back("drawn by hand");
    EXPECT_EQ(FoundInTheme(lines), "");
}

TEST(ThemeFile, ValuesOutOfTheRangesOfTheTableAreErrors) {
    for (std::size_t i = 0; i < Theme::Lines().size(); ++i) {
        const ValueLine& values = Theme::Lines()[i].values;
        if (!values.field.IsNumber() || values.field.Range().empty())
            continue;
        const std::string number = std::to_string(i + 1);
        for (const std::string wrong : {"-1", "255"}) {
            std::string line = wrong;
            for (int value = 1; value < values.count; ++value)
                line += " 0.05";
            EXPECT_EQ(FoundInTheme(With(kTheme, i + 1, line)),
                      "a.theme:" + number + ":1: error: '" + wrong + "' is out of range for the "
                          + std::string(values.field.name) + ": " + values.field.Range() + "\n");
        }
    }
}

TEST(ThemeFile, SecondValueOutOfRangeIsReportedAtItsColumn) {
    EXPECT_EQ(FoundInTheme(With(kTheme, 11, "0.05 0")),
              "a.theme:11:6: error: '0' is out of range for the font size: 0.04 to 0.4\n");
}

TEST(ThemeFile, CommentInPlaceOfAValueIsAMissingValue) {
    EXPECT_EQ(FoundInTheme(With(kTheme, 11, "0.05  // size")),
              "a.theme:11:5: error: the font size takes 2 numbers, not 1\n");
}

TEST(ConfigurationFile, RectangleWithSwappedEdgesIsAnErrorAtTheFirstOfThem) {
    const auto found = [](const std::string& ring) {
        Findings findings;
        static_cast<void>(CheckConfigurationFile(
            "a.conf", "f\nx\n" + ring + "\n0 0 1 1\n0 0 1 1\n0 0 1 1\n0 0 1 1\n0.005\n", findings));
        return findings.AsText();
    };
    EXPECT_EQ(found("0.1 0.2 0.3 0.4"), "");
    EXPECT_EQ(found("0.3 0.2 0.1 0.4"),
              "a.conf:3:1: error: the left edge of the option ring, 0.3, must be less than the "
              "right one, 0.1\n");
    EXPECT_EQ(found("0.1 0.4 0.3 0.2"),
              "a.conf:3:5: error: the lower edge of the option ring, 0.4, must be less than the "
              "upper one, 0.2\n");
    EXPECT_EQ(found("0.1 0.2 0.1 0.4"),
              "a.conf:3:1: error: the left edge of the option ring, 0.1, must be less than the "
              "right one, 0.1\n");
}

TEST(ConfigurationFile, TableOfTheDocumentIsThatOfTheCheck) {
    Lines expected;
    for (const ValueLine& values : ConfigurationLines()) {
        const std::string count = values.field.type == FieldType::Name ? "a word"
                                  : values.count == 1                  ? "a number"
                                                      : std::to_string(values.count) + " numbers";
        const std::string range = values.field.Range();
        expected.push_back("| " + std::to_string(expected.size() + 1) + " | "
                           + std::string(values.field.name) + " | " + count + " | " + range
                           + (range.empty() ? "|" : " |"));
    }
    std::ifstream document("docs/LAYOUT.md");
    Lines rows;
    bool inSection = false;
    for (std::string line; std::getline(document, line);) {
        if (line.starts_with("## "))
            inSection = line == "## The configuration";
        if (inSection && line.starts_with("| ") && line[2] >= '1' && line[2] <= '9')
            rows.push_back(line);
    }
    EXPECT_EQ(rows, expected);
}

}  // namespace
}  // namespace guiview
