// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Plants mistakes in files that are clean: each must be reported by its cause, in one line.

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <string>

#include "tests/tools/guiview/layout_test.h"
#include "tools/guisheet.h"
#include "tools/tgawriter.h"

namespace guiview {
namespace {

constexpr const char* kLayout = R"(// An office with a map of the country.
CONF gui.conf
THEM default.theme NULL
CADD Win   office  NULL   -1.6 -0.1 0 The office of the steward
CADD Label greet   office  0    0.9 Good morning
CADD Check open    office  0    0.75 Open the gates
CADD Opt   wool    office  0    0.6 Wool
CADD Opt   salt    office  0    0.45 Salt
CADD Frame shelf   office  0    0   1
CADD Label book    shelf   0    0   A book
THEM brass.theme NULL
CADD Butt  reply   office  0.6  0.45 Reply
CADD Slide level   office  0.1  0.25 0.6 0
CADD Butt  seal    NULL    1.2 -1.2 TEX 0.4 0.4
CADD Text  name    NULL    0.6  0.3 10 1
THEM default.theme NULL
CADD Combo partner NULL    0.6  0.9
TEXT partner Ashmoor
TEXT partner Bellhaven
CADD TWin  map     NULL   -1.6 -1
NTAB map 0 North
NTAB map 1 South
TADD 0 Label snow  map     0    0   Snow and wolves
TADD 1 Label sand  map     0    0   Sand and sun
SOLID
CENTREX greet
)";

constexpr const char* kBrass = R"(// Light letters on brass.
1 0.97 0.88      // text colour
0.3 0.19 0.06    // line colour
0.45 0.29 0.1    // fill colour
0 0 0
1                // opacity
0.8
1.5              // line width
0.005            // border
0.06             // corner
0.003
0.05 0.055       // font size
0.72 0.95        // dim and bright
0.01 -0.012 0    // press offset
0.08             // box size
sheet.tga        // picture
1                // fade
)";

constexpr const char* kConfiguration = R"(font.ttf                         // the font
sheet
0.03125 0.03125 0.21875 0.21875  // option ring
0.28125 0.03125 0.46875 0.21875  // option dot
0.53125 0.03125 0.71875 0.21875  // tick box
0.78125 0.03125 0.96875 0.21875  // tick
0.03125 0.28125 0.21875 0.46875  // slider knob
0.005                            // fade rate
)";

constexpr const char* kLayoutFile = "test.gui";
constexpr const char* kBrassFile = "brass.theme";
constexpr const char* kConfigurationFile = "gui.conf";

struct Mistake {
    const char* file;
    const char* right;  ///< occurs once in the file
    const char* wrong;
    const char* reported;
};

constexpr Mistake kMistakes[] = {
    {kLayoutFile, "CADD Win ", "CDAD Win ",
     "test.gui:4:1: error: unknown statement 'CDAD'; did you mean 'CADD'?"},
    {kLayoutFile, "CONF gui", "CNOF gui",
     "test.gui:2:1: error: unknown statement 'CNOF'; did you mean 'CONF'?"},
    {kLayoutFile, "THEM brass", "TEHM brass",
     "test.gui:11:1: error: unknown statement 'TEHM'; did you mean 'THEM'?"},
    {kLayoutFile, "SOLID", "SOLDI",
     "test.gui:25:1: error: unknown statement 'SOLDI'; did you mean 'SOLID'?"},
    {kLayoutFile, "CENTREX", "CENTERX",
     "test.gui:26:1: error: unknown statement 'CENTERX'; did you mean 'CENTREX'?"},
    {kLayoutFile, "NTAB map 1", "NTBA map 1",
     "test.gui:22:1: error: unknown statement 'NTBA'; did you mean 'NTAB'?"},
    {kLayoutFile, "Label greet", "Laebl greet",
     "test.gui:5:6: error: unknown kind 'Laebl'; did you mean 'Label'?"},
    {kLayoutFile, "Butt  reply", "Button reply",
     "test.gui:12:6: error: unknown kind 'Button'; did you mean 'Butt'?"},
    {kLayoutFile, "Combo partner", "ComboBox partner",
     "test.gui:17:6: error: unknown kind 'ComboBox'; did you mean 'Combo'?"},
    {kLayoutFile, "open    office", "open    ofice",
     "test.gui:6:20: error: unknown tag 'ofice'; did you mean 'office' of line 4?"},
    {kLayoutFile, "TEXT partner Ashmoor", "TEXT parter Ashmoor",
     "test.gui:18:6: error: unknown tag 'parter'; did you mean 'partner' of line 17?"},
    {kLayoutFile, "Win   office", "Win   ofice",
     "test.gui:5:20: error: unknown tag 'office'; did you mean 'ofice' of line 4?"},
    {kLayoutFile, "Opt   salt", "Opt   wool",
     "test.gui:8:12: error: the tag 'wool' is already used in line 7"},
    {kLayoutFile,
     "CADD Frame shelf   office  0    0   1\nCADD Label book    shelf   0    0   A book\n",
     "CADD Label book    shelf   0    0   A book\nCADD Frame shelf   office  0    0   1\n",
     "test.gui:9:20: error: the tag 'shelf' is not known before line 10"},
    {kLayoutFile, "book    shelf", "book    greet",
     "test.gui:10:20: error: the parent 'greet' is a Label, not a Win, Frame or TWin"},
    {kLayoutFile, "greet   office", "greet",
     "test.gui:5:19: error: missing tag or parent before '0'"},
    {kLayoutFile, "0    0   1\n", "0    0\n", "test.gui:9:34: error: missing border"},
    {kLayoutFile, "-1.6 -0.1 0 The", "-1,6 -0.1 0 The",
     "test.gui:4:27: error: '-1,6' is not a number for x"},
    {kLayoutFile, "NULL    1.2", "NULL    400",
     "test.gui:14:28: error: '400' is out of range for x: -100 to 100"},
    {kLayoutFile, "TEX 0.4 0.4", "TEX 92 92",
     "test.gui:14:41: error: '92' is out of range for width: above 0, at most 10"},
    {kLayoutFile, "TEX 0.4", "tex 0.4",
     "test.gui:14:37: error: unknown form 'tex'; did you mean 'TEX'?"},
    {kLayoutFile, "0.6 0\n", "0.6 0.05\n",
     "test.gui:13:38: error: a Slide needs a width above 0 and a height of 0, or the reverse"},
    {kLayoutFile, "-0.1 0 The", "-0.1 no The",
     "test.gui:4:37: error: 'no' is neither 0 nor 1 for movable"},
    {kLayoutFile, "-0.1 0 The", "-0.1 The",
     "test.gui:4:37: error: 'The' is neither 0 nor 1 for movable"},
    {kLayoutFile, "NTAB map 1", "NTAB map 2",
     "test.gui:24:6: error: tab 1 of 'map' has no NTAB and cannot be opened"},
    {kLayoutFile, "TADD 1 Label sand", "CADD Label sand",
     "test.gui:24:12: error: 'sand' is on no tab of 'map' and is never seen: use TADD"},
    {kLayoutFile, "TADD 1 Label", "TADD Label", "test.gui:24:6: error: missing tab before 'Label'"},
    {kLayoutFile,
     "NTAB map 1 South\nTADD 0 Label snow  map     0    0   Snow and wolves\nTADD 1 Label sand  "
     "map     0    0   Sand and sun\n",
     "TADD 0 Label snow  map     0    0   Snow and wolves\nTADD 1 Label sand  map     0    0   "
     "Sand and sun\nNTAB map 1 South\n",
     "test.gui:24:10: error: NTAB removes 'sand' from tab 1 of 'map': it must come before TADD"},
    {kLayoutFile, "brass.theme NULL", "brass.theme", "test.gui:11:17: error: missing NULL"},
    {kLayoutFile, "brass.theme", "bras.theme",
     "test.gui:11:6: error: the theme 'bras.theme' cannot be read; did you mean 'brass.theme'?"},
    {kLayoutFile, "brass.theme", "brass",
     "test.gui:11:6: error: the theme 'brass' cannot be read; did you mean 'brass.theme'?"},
    {kLayoutFile, "gui.conf", "giu.conf",
     "test.gui:2:6: error: the configuration 'giu.conf' cannot be read; did you mean 'gui.conf'?"},
    {kLayoutFile, "TEXT partner Bell", "TEXT greet Bell",
     "test.gui:19:6: warning: 'greet' is a Label: only a Combo shows items"},
    {kLayoutFile, "0.45 Reply", "0.45 Reply now",
     "test.gui:12:44: warning: a Butt's caption is one word: 'now' is not shown"},
    {kBrassFile, "0.05 0.055", "0 0",
     "brass.theme:12:1: error: '0' is out of range for the font size: 0.04 to 0.4"},
    {kBrassFile, "0.05 0.055", "0.029 0.032",
     "brass.theme:12:1: error: '0.029' is out of range for the font size: 0.04 to 0.4"},
    {kBrassFile, "0.05 0.055", "12 12",
     "brass.theme:12:1: error: '12' is out of range for the font size: 0.04 to 0.4"},
    {kBrassFile, "1                // opacity", "2                // opacity",
     "brass.theme:6:1: error: '2' is out of range for the opacity: 0 to 1"},
    {kBrassFile, "1 0.97 0.88", "255 247 224",
     "brass.theme:2:1: error: '255' is out of range for the text colour: 0 to 1"},
    {kBrassFile, "0.45 0.29 0.1", "#734a1a",
     "brass.theme:4:1: error: '#734a1a' is not a number for the fill colour"},
    {kBrassFile, "0.005 ", "-0.005 ",
     "brass.theme:9:1: error: '-0.005' is out of range for the border: 0 to 0.3"},
    {kBrassFile, "0.005 ", "3 ",
     "brass.theme:9:1: error: '3' is out of range for the border: 0 to 0.3"},
    {kBrassFile, "0.08 ", "1 ",
     "brass.theme:15:1: error: '1' is out of range for the box size: above 0, at most 0.5"},
    {kBrassFile, "0.08 ", "0 ",
     "brass.theme:15:1: error: '0' is out of range for the box size: above 0, at most 0.5"},
    {kBrassFile, "0.06             // corner", "6                // corner",
     "brass.theme:10:1: error: '6' is out of range for the corner: 0 to 1"},
    {kBrassFile, "1.5 ", "0 ",
     "brass.theme:8:1: error: '0' is out of range for the line width: above 0, at most 20"},
    {kBrassFile, "0.72 0.95", "72 95",
     "brass.theme:13:1: error: '72' is out of range for the dim and bright: 0 to 2"},
    {kBrassFile, "0.01 -0.012 0", "2 -3 0",
     "brass.theme:14:1: error: '2' is out of range for the press offset: -0.5 to 0.5"},
    {kBrassFile, "sheet.tga", "shete.tga",
     "brass.theme:16:1: error: the picture 'shete.tga' cannot be loaded: Error loading texture tga "
     "file 'shete.tga'; did you mean 'sheet.tga'?"},
    {kBrassFile, "1                // fade", "yes              // fade",
     "brass.theme:17:1: error: 'yes' is neither 0 nor 1 for the fade"},
    {kBrassFile, "0.05 0.055", "0.05",
     "brass.theme:12:5: error: the font size takes 2 numbers, not 1"},
    {kBrassFile, "0.005            // border\n", "",
     "brass.theme:9:1: error: the border, the corner or the tenth value is missing: the file has "
     "15 lines of values, not 16"},
    {kBrassFile, "0 0 0\n", "0 0 0\n0.5 0.5 0.5 0.5\n",
     "brass.theme:6:1: error: one line too many: the file has 17 lines of values, not 16"},
    {kBrassFile, "1                // fade\n", "",
     "brass.theme:16:1: error: the fade is missing: the file has 15 lines of values, not 16"},
    {kConfigurationFile, "0.03125 0.03125 0.21875 0.21875", "8 8 56 56",
     "gui.conf:3:1: error: '8' is out of range for the option ring: 0 to 1"},
    {kConfigurationFile, "0.28125 0.03125 0.46875 0.21875", "0.46875 0.03125 0.28125 0.21875",
     "gui.conf:4:1: error: the left edge of the option dot, 0.46875, must be less than the right "
     "one, 0.28125"},
    {kConfigurationFile, "0.53125 0.03125 0.71875 0.21875", "0.53125 0.21875 0.71875 0.03125",
     "gui.conf:5:9: error: the lower edge of the tick box, 0.21875, must be less than the upper "
     "one, 0.03125"},
    {kConfigurationFile, "0.78125 0.03125 0.96875 0.21875", "0.78125 0.03125 0.96875",
     "gui.conf:6:24: error: the tick takes 4 numbers, not 3"},
    {kConfigurationFile, "0.005", "0",
     "gui.conf:8:1: error: '0' is out of range for the fade rate: above 0, at most 1"},
    {kConfigurationFile, "0.005", "-0.005",
     "gui.conf:8:1: error: '-0.005' is out of range for the fade rate: above 0, at most 1"},
    {kConfigurationFile, "0.005", "5",
     "gui.conf:8:1: error: '5' is out of range for the fade rate: above 0, at most 1"},
    {kConfigurationFile, "font.ttf", "fnot.ttf",
     "gui.conf:1:1: error: the font 'fnot.ttf' cannot be loaded: Error loading the font; did you "
     "mean 'font.ttf'?"},
    {kConfigurationFile, "0.53125 0.03125 0.71875 0.21875  // tick box\n", "",
     "gui.conf:3:1: error: the option ring, the option dot, the tick box, the tick or the slider "
     "knob is missing: the file has 7 lines of values, not 8"},
    {kConfigurationFile, "0.46875  //", "0,46875  //",
     "gui.conf:7:25: error: '0,46875' is not a number for the slider knob"},
};
static_assert(std::size(kMistakes) == 64);

class PlantedMistake : public LayoutTest {
protected:
    PlantedMistake() {
        EXPECT_TRUE(WriteTGA(DrawGuiSheet(), folder.Path("sheet.tga")));
        WriteFiles();
    }

    void WriteFiles() const {
        for (const auto& [name, text] : right)
            folder.Write(name, text);
    }

    std::string FoundWith(const Mistake& mistake) const {
        WriteFiles();
        std::string text = right.at(mistake.file);
        const std::string part = mistake.right;
        const std::size_t at = text.find(part);
        EXPECT_NE(at, std::string::npos) << part;
        EXPECT_EQ(text.find(part, at + 1), std::string::npos) << part << " occurs twice";
        text.replace(at, part.size(), mistake.wrong);
        folder.Write(mistake.file, text);
        return Found(mistake.file == std::string(kLayoutFile) ? text : kLayout);
    }

    /// Plants all mistakes of one file, one after the other.
    void ExpectAllFound(const std::string& file) const {
        for (const Mistake& mistake : kMistakes) {
            if (mistake.file == file) {
                EXPECT_EQ(FoundWith(mistake), mistake.reported + std::string("\n"))
                    << mistake.right << " -> " << mistake.wrong;
            }
        }
    }

private:
    const std::map<std::string, std::string> right{
        {kLayoutFile, kLayout}, {kBrassFile, kBrass}, {kConfigurationFile, kConfiguration}};
};

TEST_F(PlantedMistake, IsTheOnlyFinding) {
    EXPECT_EQ(Found(kLayout), "");
}

TEST_F(PlantedMistake, InALayoutIsReportedByItsCauseInOneLine) {
    ExpectAllFound(kLayoutFile);
}

TEST_F(PlantedMistake, InAThemeIsReportedByItsCauseInOneLine) {
    ExpectAllFound(kBrassFile);
}

TEST_F(PlantedMistake, InAConfigurationIsReportedByItsCauseInOneLine) {
    ExpectAllFound(kConfigurationFile);
}

}  // namespace
}  // namespace guiview
