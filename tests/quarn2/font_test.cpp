// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/font.h"

#include <GL/gl.h>
#include <ft2build.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>
#include FT_FREETYPE_H

#include "tests/support/allocations.h"
#include "tests/support/file_reads.h"
#include "tests/support/font_access.h"
#include "tests/support/gl_fixture.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/trace_fixture.h"
#include "tests/support/trace_noter.h"
#include "tests/support/traced_gl.h"

// The linker's --wrap sends the engine's call here, because FreeType does not fail on demand.
static bool freeTypeCannotStart = false;
extern "C" {
FT_Error RealInitFreeType(FT_Library* library) asm("__real_FT_Init_FreeType");
FT_Error WrappedInitFreeType(FT_Library* library) asm("__wrap_FT_Init_FreeType");
FT_Error WrappedInitFreeType(FT_Library* library) {
    return freeTypeCannotStart ? FT_Err_Out_Of_Memory : RealInitFreeType(library);
}
}

namespace {

using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;

const char* const kFont = "data/font.ttf";

/// A font whose glyphs have different advances, without OpenGL.
class FontLengthTest : public testing::Test {
protected:
    FontLengthTest() {
        FontAccess::SetAdvance(font, 'a', 1.0f);
        FontAccess::SetAdvance(font, 'b', 2.0f);
        FontAccess::SetAdvance(font, 'c', 4.0f);
        FontAccess::SetAdvance(font, 'd', 8.0f);
        FontAccess::SetAdvance(font, 'e', 16.0f);
        FontAccess::SetAdvance(font, '%', 32.0f);
    }
    FontRender font;
};

TEST_F(FontLengthTest, OfNoTextIsZero) {
    EXPECT_EQ(font.Length("%s", ""), 0.0f);
    EXPECT_EQ(font.Length("\n\n"), 0.0f);
}

TEST_F(FontLengthTest, IsTheSumOfTheAdvances) {
    EXPECT_EQ(font.Length("a"), 1.0f);
    EXPECT_EQ(font.Length("abca"), 8.0f);
    EXPECT_EQ(font.Length("xyz"), 0.0f);
}

TEST_F(FontLengthTest, IsThatOfTheWidestLine) {
    EXPECT_EQ(font.Length("ab\nabc"), 7.0f);
    EXPECT_EQ(font.Length("abc\nab"), 7.0f);
    EXPECT_EQ(font.Length("abc\n"), 7.0f);
    EXPECT_EQ(font.Length("\nabc"), 7.0f);
}

TEST_F(FontLengthTest, AMiddleLineIsMeasuredWithTheRestOfALongerLineBeforeIt) {
    EXPECT_EQ(font.Length("abc\nd\ne"), 16.0f);       // abc 7, dbc 14, e 16
    EXPECT_EQ(font.Length("abc\nd\na"), 14.0f);       // dbc
    EXPECT_EQ(font.Length("abc\nd\n"), 14.0f);        // the last line is the empty one
    EXPECT_EQ(font.Length("abc\n\na"), 7.0f);         // the empty line reads abc
    EXPECT_EQ(font.Length("a\nbcd\ne\nb"), 28.0f);    // ecd
    EXPECT_EQ(font.Length("cccc\nd\naa\nb"), 20.0f);  // cccc 16, dccc 20, aacc 10
}

TEST_F(FontLengthTest, TheLastLineIsMeasuredAlone) {
    EXPECT_EQ(font.Length("cccc\nd"), 16.0f);
}

TEST_F(FontLengthTest, TakesPrintfArguments) {
    EXPECT_EQ(font.Length("%s%c", "ab", 'c'), 7.0f);
    EXPECT_EQ(font.Length("a%%"), 33.0f);
    EXPECT_EQ(font.Length("%.3s", "abcde"), 7.0f);
    EXPECT_EQ(font.Length("%s", "a\nb"), 2.0f);
}

TEST_F(FontLengthTest, StopsAtAZeroByteInTheText) {
    EXPECT_EQ(font.Length("a%cb", '\0'), 1.0f);
}

TEST_F(FontLengthTest, CharactersOf128AndAboveHaveNoWidth) {
    EXPECT_EQ(font.Length("a\x80\xC3\xA9\xFF"
                          "b"),
              3.0f);
}

TEST_F(FontLengthTest, IsScaledByTheHorizontalSize) {
    const float full = font.Length("abcde");
    EXPECT_TRUE(font.SetSize(0.5f, 0.5f));
    EXPECT_EQ(font.Length("abcde"), full / 2);
    font.SetSize(3.0f, 100.0f);
    EXPECT_EQ(font.Length("abcde"), full * 3);
}

TEST_F(FontLengthTest, TheSizeIsOneAtFirst) {
    EXPECT_EQ(FontAccess::SizeX(FontRender()), 1.0f);
    EXPECT_EQ(FontAccess::SizeY(FontRender()), 1.0f);
    font.SetSize(0.25f, 0.75f);
    EXPECT_EQ(FontAccess::SizeX(font), 0.25f);
    EXPECT_EQ(FontAccess::SizeY(font), 0.75f);
}

TEST_F(FontLengthTest, TextIsCutAfterTwiceTheFormatPlus511Characters) {
    const std::string fits(515, 'a');  // 2 * 2 + 512 bytes, with the end
    EXPECT_EQ(font.Length("%s", fits.c_str()), 515.0f);
    const std::string exceeds(5000, 'a');
    EXPECT_EQ(font.Length("%s", exceeds.c_str()), 515.0f);
}

TEST_F(FontLengthTest, AFormatOfAnyLengthIsMeasuredInFull) {
    for (const std::size_t length : {100u, 1791u, 1792u, 1793u, 5000u, 100000u}) {
        const std::string text(length, 'a');
        EXPECT_EQ(font.Length(text.c_str(), ""), static_cast<float>(length));
        std::string lines = text;
        lines.append("\nb\n").append(text).append("c");
        EXPECT_EQ(font.Length(lines.c_str(), ""), static_cast<float>(length + 4));
    }
}

TEST_F(FontLengthTest, AllocatesNothingForTextsOfOrdinaryLength) {
    const std::string text = std::string(1000, 'a') + "\n" + std::string(700, 'b');
    const std::size_t before = AllocationCount();
    for (int i = 0; i < 100; ++i)
        font.Length("%s", text.c_str());
    font.Length(text.c_str(), "");
    EXPECT_EQ(AllocationCount(), before);
}

using FontLengthDeathTest = FontLengthTest;

TEST_F(FontLengthDeathTest, ANullFormatFailsAnAssertion) {
    const char* volatile none = nullptr;
    EXPECT_EXIT((trace::Start(), font.Length(none, "")), testing::ExitedWithCode(0),
                "Assert failed on font:113 - \"str != 0\"\n.*#1: FontRender::Length");
}

TEST(FontTest, CodesOutsideZeroTo127HaveNoAdvance) {
    FontRender font;
    FontAccess::SetAdvances(font, 1.0f);
    EXPECT_EQ(font.Advance(0), 1.0f);
    EXPECT_EQ(font.Advance(127), 1.0f);
    EXPECT_EQ(font.Advance(128), 0.0f);
    EXPECT_EQ(font.Advance(-1), 0.0f);
}

class FontFileTest : public GLTest {
protected:
    std::string InitLine(const std::string& path) {
        FontRender font;
        testing::internal::CaptureStderr();
        EXPECT_FALSE(font.Init(path));
        return testing::internal::GetCapturedStderr();
    }
    TemporaryFolder folder;
};

TEST_F(FontFileTest, FreeTypeThatCannotStartIsReported) {
    freeTypeCannotStart = true;
    EXPECT_EQ(InitLine(kFont), "Error loading freetype library\n");
    freeTypeCannotStart = false;
}

TEST_F(FontFileTest, AnUnknownFormatIsReported) {
    const std::string path = folder.Write("text.ttf", "This is a text and no font at all.\n");
    EXPECT_EQ(InitLine(path), "The font file format is not recgonised\n");
}

TEST_F(FontFileTest, AFileTooShortForAnyFormatIsReportedAsUnknownFormat) {
    EXPECT_EQ(InitLine(folder.Write("empty.ttf", "")), "The font file format is not recgonised\n");
    EXPECT_EQ(InitLine(folder.Write("byte.ttf", "a")), "The font file format is not recgonised\n");
}

TEST_F(FontFileTest, TheFileIsNotMappedIntoMemorySoThatItMayBeOverwritten) {
    const std::string path = folder.Write("font.ttf", FileBytes(kFont));
    FontRender font;
    ASSERT_TRUE(font.Init(path));
    std::ifstream maps("/proc/self/maps");
    const std::string mapped{std::istreambuf_iterator<char>(maps), {}};
    ASSERT_FALSE(mapped.empty());
    EXPECT_EQ(mapped.find(path), std::string::npos);
}

TEST_F(FontFileTest, FileThatCannotBeReadIsReported) {
    for (const std::string& file :
         {folder.Path("none.ttf"), std::string("data"), folder.MakePipe("pipe.ttf"),
          std::string("/dev/zero"), folder.MakeSparseFile("great.ttf", std::uintmax_t{12} << 30)})
        EXPECT_EQ(InitLine(file), "Error loading the font\n") << file;
}

TEST_F(FontFileTest, FileThatBreaksOffHalfwayIsReported) {
    const FailingReads failing(10000);
    EXPECT_EQ(InitLine(kFont), "Error loading the font\n");
}

TEST_F(FontFileTest, AFontThatCannotHaveTheSizeIsReported) {
    // A bitmap font of eight pixels has no other size.
    const std::string path = folder.Write("small.bdf",
                                          "STARTFONT 2.1\n"
                                          "FONT -a-b-medium-r-normal--8-80-75-75-c-80-iso10646-1\n"
                                          "SIZE 8 75 75\n"
                                          "FONTBOUNDINGBOX 8 8 0 0\n"
                                          "STARTPROPERTIES 2\n"
                                          "FONT_ASCENT 8\n"
                                          "FONT_DESCENT 0\n"
                                          "ENDPROPERTIES\n"
                                          "CHARS 1\n"
                                          "STARTCHAR A\n"
                                          "ENCODING 65\n"
                                          "SWIDTH 1000 0\n"
                                          "DWIDTH 8 0\n"
                                          "BBX 8 1 0 0\n"
                                          "BITMAP\n"
                                          "FF\n"
                                          "ENDCHAR\n"
                                          "ENDFONT\n");
    EXPECT_EQ(InitLine(path), "Error setting the font size\n");
}

TEST_F(FontFileTest, AGlyphThatCannotBeLoadedIsReported) {
    Bytes file = FileBytes(kFont);
    // The table directory: 16 bytes per table from byte 12 on, of which the last eight are
    // the table's offset and length, big-endian.
    const auto number = [&](std::size_t at) {
        return std::size_t{file[at]} << 24 | std::size_t{file[at + 1]} << 16
               | std::size_t{file[at + 2]} << 8 | std::size_t{file[at + 3]};
    };
    std::size_t entry = 12;
    while (std::memcmp(&file[entry], "glyf", 4) != 0)
        entry += 16;
    const std::size_t offset = number(entry + 8);
    const std::size_t length = number(entry + 12);
    // 32767 contours, for which no glyph has enough bytes.
    for (std::size_t i = 0; i < length; ++i)
        file[offset + i] = i % 2 == 0 ? 0x7F : 0xFF;
    EXPECT_EQ(InitLine(folder.Write("broken.ttf", file)), "errors!\n");
}

TEST(FontMeasureTest, AFileThatIsNotAFontIsReported) {
    const TemporaryFolder folder;
    FontRender font;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(font.Measure(folder.Write("text.ttf", "This is a text and no font at all.\n")));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "The font file format is not recgonised\n");
}

/// One font for all tests that draw.
class FontDrawingTest : public GLTest {
protected:
    FontDrawingTest() : font(SharedFont()), base(ListBase()) {
        font.SetSize(1.0f, 1.0f);
        // One unit is 64 pixels, the scale at which glyphs are rasterised; the lower left
        // pixel is at the origin.
        glMatrixMode(GL_PROJECTION);
        glOrtho(0, kWide / 64.0, 0, kHigh / 64.0, -1, 1);
        glMatrixMode(GL_MODELVIEW);
        glColor4f(1, 1, 1, 1);
    }

    static FontRender& SharedFont() {
        static FontRender& shared = *new FontRender;
        static const bool loaded = shared.Init(kFont);
        EXPECT_TRUE(loaded);
        return shared;
    }

    /// The first list of the font, which Print sets.
    GLuint ListBase() {
        font.Print("%s", "");
        return static_cast<GLuint>(Integer(GL_LIST_BASE));
    }

    /// The glyph texture that a code's list binds.
    GLint TextureOf(int code) {
        glCallList(base + static_cast<GLuint>(code));
        return Integer(GL_TEXTURE_BINDING_2D);
    }

    struct Box {
        int left = kWide, bottom = kHigh, right = -1, top = -1;
        bool operator==(const Box&) const = default;
    };
    /// The smallest box around all pixels that are not black.
    Box Drawn() const {
        const Bytes pixels = window.Pixels();
        Box box;
        for (int y = 0; y < kHigh; ++y) {
            for (int x = 0; x < kWide; ++x) {
                if (pixels[static_cast<std::size_t>(y * kWide + x) * 4] == 0)
                    continue;
                box.left = std::min(box.left, x);
                box.right = std::max(box.right, x);
                box.bottom = std::min(box.bottom, y);
                box.top = std::max(box.top, y);
            }
        }
        return box;
    }

    FontRender& font;
    GLuint base;
};

/// A glyph as FreeType renders it.
class Glyph {
public:
    explicit Glyph(int code) {
        EXPECT_EQ(FT_Init_FreeType(&library), 0);
        EXPECT_EQ(FT_New_Face(library, kFont, 0, &face), 0);
        EXPECT_EQ(FT_Set_Char_Size(face, 4096, 4096, 96, 96), 0);
        EXPECT_EQ(FT_Load_Char(face, static_cast<FT_ULong>(code), FT_LOAD_RENDER), 0);
    }
    ~Glyph() { FT_Done_FreeType(library); }
    Glyph(const Glyph&) = delete;
    Glyph& operator=(const Glyph&) = delete;

    int Width() const { return static_cast<int>(face->glyph->bitmap.width); }
    int Rows() const { return static_cast<int>(face->glyph->bitmap.rows); }
    int Left() const { return face->glyph->bitmap_left; }
    int Top() const { return face->glyph->bitmap_top; }
    float Advance() const { return static_cast<float>(face->glyph->advance.x >> 6) / 64.0f; }
    /// Of the pixel `x` from the left and `y` from the top; 0 outside.
    std::uint8_t Coverage(int x, int y) const {
        if (x < 0 || y < 0 || x >= Width() || y >= Rows())
            return 0;
        return face->glyph->bitmap.buffer[y * face->glyph->bitmap.pitch + x];
    }

private:
    FT_Library library = nullptr;
    FT_Face face = nullptr;
};

TEST_F(FontDrawingTest, TheCodesHaveConsecutiveDisplayLists) {
    for (GLuint code = 0; code < 128; ++code)
        EXPECT_EQ(glIsList(base + code), GL_TRUE) << code;
}

TEST_F(FontDrawingTest, AdvancesAreThoseOfFreeTypeInWholePixels) {
    constexpr int kCodes[] = {0, 'A', 'g', 'i', '%', ' ', 127};
    for (const int code : kCodes)
        EXPECT_EQ(font.Advance(code), Glyph(code).Advance()) << code;
    EXPECT_GT(font.Advance('m'), font.Advance('i'));
    EXPECT_EQ(font.Length("Am"), font.Advance('A') + font.Advance('m'));
}

TEST_F(FontDrawingTest, AFontThatOnlyMeasuresHasTheSameAdvances) {
    FontRender measured;
    ASSERT_TRUE(measured.Measure(kFont));
    for (int code = 0; code < FontRender::kGlyphCount; ++code)
        EXPECT_EQ(measured.Advance(code), font.Advance(code)) << code;
}

TEST_F(FontDrawingTest, AListMovesThePenByTheAdvance) {
    glTranslatef(1, 2, 0);
    glCallList(base + 'A');
    float matrix[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, matrix);
    EXPECT_EQ(matrix[12], 1.0f + font.Advance('A'));
    EXPECT_EQ(matrix[13], 2.0f);
    EXPECT_EQ(matrix[14], 0.0f);
}

TEST_F(FontDrawingTest, AGlyphTextureHasTheCoverageInEveryChannelAndSidesOfPowersOfTwo) {
    constexpr int kCodes[] = {'A', 'g', '.', '%', '|', 0};
    for (const int code : kCodes) {
        SCOPED_TRACE(code);
        const Glyph glyph(code);
        glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(TextureOf(code)));
        GLint wide = 0;
        GLint high = 0;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &wide);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &high);
        ASSERT_EQ(static_cast<unsigned>(wide), std::bit_ceil(static_cast<unsigned>(glyph.Width())));
        ASSERT_EQ(static_cast<unsigned>(high), std::bit_ceil(static_cast<unsigned>(glyph.Rows())));
        Bytes image(static_cast<std::size_t>(wide * high) * 4);
        glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, image.data());
        for (int y = 0; y < high; ++y) {
            for (int x = 0; x < wide; ++x) {
                const std::uint8_t coverage = glyph.Coverage(x, y);
                const auto pixel = image.begin() + static_cast<std::ptrdiff_t>(y * wide + x) * 4;
                ASSERT_EQ(Bytes(pixel, pixel + 4), Bytes(4, coverage)) << x << ", " << y;
            }
        }
    }
}

TEST_F(FontDrawingTest, GlyphTexturesAreMipmappedAndClamped) {
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(TextureOf('A')));
    const auto parameter = [](GLenum name) {
        GLint value = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, name, &value);
        return value;
    };
    EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR_MIPMAP_NEAREST);
    EXPECT_EQ(parameter(GL_TEXTURE_MAG_FILTER), GL_LINEAR);
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_S), GL_CLAMP_TO_EDGE);
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_T), GL_CLAMP_TO_EDGE);
    GLint internalFormat = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 1, GL_TEXTURE_INTERNAL_FORMAT, &internalFormat);
    EXPECT_EQ(internalFormat, GL_RGBA);
}

TEST_F(FontDrawingTest, EveryGlyphHasItsOwnTexture) {
    std::vector<GLint> names(128);
    for (std::size_t code = 0; code < names.size(); ++code)
        names[code] = TextureOf(static_cast<int>(code));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
    EXPECT_GT(names.front(), 0);
}

TEST_F(FontDrawingTest, AGlyphIsDrawnPixelByPixelAtItsPosition) {
    for (const char code : {'A', 'g', '%', 'j'}) {
        SCOPED_TRACE(code);
        const Glyph glyph(code);
        constexpr int kPenX = 20;
        constexpr int kPenY = 40;
        glClear(GL_COLOR_BUFFER_BIT);
        glLoadIdentity();
        glTranslatef(kPenX / 64.0f, kPenY / 64.0f, 0);
        EXPECT_TRUE(font.Print("%c", code));
        const Bytes pixels = window.Pixels();
        for (int y = 0; y < kHigh; ++y) {
            for (int x = 0; x < kWide; ++x) {
                const int coverage =
                    glyph.Coverage(x - kPenX - glyph.Left(), kPenY + glyph.Top() - 1 - y);
                // White times the coverage, blended with the coverage as alpha.
                ASSERT_NEAR(pixels[static_cast<std::size_t>(y * kWide + x) * 4],
                            coverage * coverage / 255.0, 1.5)
                    << x << ", " << y;
            }
        }
    }
}

TEST_F(FontDrawingTest, EachCharacterBeginsWhereTheAdvanceOfTheOneBeforeEnds) {
    glTranslatef(0.25f, 1, 0);
    font.Print("i");
    const Box alone = Drawn();
    glClear(GL_COLOR_BUFFER_BIT);
    font.Print(" i");
    const Box second = Drawn();
    const int advance = static_cast<int>(std::lround(font.Advance(' ') * 64));
    EXPECT_EQ(second.left, alone.left + advance);
    EXPECT_EQ(second.right, alone.right + advance);
    EXPECT_EQ(second.bottom, alone.bottom);
}

TEST_F(FontDrawingTest, ASpaceDrawsNothingAndHasATextureOfOnePixel) {
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(TextureOf(' ')));
    GLint side = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &side);
    EXPECT_EQ(side, 1);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &side);
    EXPECT_EQ(side, 1);
    glLoadIdentity();
    font.Print("     ");
    EXPECT_EQ(Drawn(), Box());
    EXPECT_GT(font.Advance(' '), 0.0f);
}

TEST_F(FontDrawingTest, LinesGoDownwardsBy1Point3TimesTheVerticalSize) {
    font.SetSize(0.5f, 0.5f);
    glTranslatef(0.25f, 2, 0);
    font.Print("H");
    const Box first = Drawn();
    for (const int line : {1, 2}) {
        glClear(GL_COLOR_BUFFER_BIT);
        font.Print("%sH", std::string(static_cast<std::size_t>(line), '\n').c_str());
        const Box box = Drawn();
        const float step = 1.3f * 0.5f * 64.0f * static_cast<float>(line);
        EXPECT_NEAR(static_cast<float>(first.bottom - box.bottom), step, 1.0f);
        EXPECT_EQ(box.left, first.left);
    }
}

TEST_F(FontDrawingTest, TheModelViewMatrixDoesNotScaleTheLineStep) {
    glTranslatef(0.25f, 2, 0);
    glScalef(0.5f, 0.5f, 1);
    font.Print("H");
    const Box first = Drawn();
    glClear(GL_COLOR_BUFFER_BIT);
    font.Print("\nH");
    EXPECT_NEAR(first.bottom - Drawn().bottom, 1.3f * 64.0f, 1.0f);
}

TEST_F(FontDrawingTest, EachAxisHasItsOwnSize) {
    glTranslatef(0.25f, 1, 0);
    font.Print("H");
    const Box full = Drawn();
    glClear(GL_COLOR_BUFFER_BIT);
    font.SetSize(0.5f, 1.0f);
    font.Print("H");
    const Box narrow = Drawn();
    EXPECT_NEAR(narrow.right - narrow.left, (full.right - full.left) / 2.0, 1.5);
    EXPECT_NEAR(narrow.top - narrow.bottom, full.top - full.bottom, 1.5);
}

TEST_F(FontDrawingTest, TextHasTheCurrentColourAndDoesNotChangeIt) {
    glColor4f(1, 0.5f, 0, 1);
    glTranslatef(0.25f, 1, 0);
    font.Print("H");
    float colour[4];
    glGetFloatv(GL_CURRENT_COLOR, colour);
    EXPECT_EQ(colour[0], 1.0f);
    EXPECT_EQ(colour[1], 0.5f);
    EXPECT_EQ(colour[2], 0.0f);
    EXPECT_EQ(colour[3], 1.0f);
    const Bytes pixels = window.Pixels();
    std::uint8_t most[3] = {};
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        if (i % 4 < 3)
            most[i % 4] = std::max(most[i % 4], pixels[i]);
    }
    EXPECT_EQ(most[0], 255);
    EXPECT_NEAR(most[1], 128, 1);
    EXPECT_EQ(most[2], 0);
}

TEST_F(FontDrawingTest, StateAndMatrixAreRestored) {
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
    glTranslatef(0.25f, 1, 0);
    glRotatef(10, 0, 0, 1);
    float before[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, before);
    const GLint depth = Integer(GL_MODELVIEW_STACK_DEPTH);
    const GLint attributes = Integer(GL_ATTRIB_STACK_DEPTH);
    font.Print("H\nH");
    float after[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, after);
    EXPECT_TRUE(std::equal(std::begin(before), std::end(before), std::begin(after)));
    EXPECT_EQ(Integer(GL_MODELVIEW_STACK_DEPTH), depth);
    EXPECT_EQ(Integer(GL_ATTRIB_STACK_DEPTH), attributes);
    EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
}

TEST_F(FontDrawingTest, TextIgnoresLightsAndTheDepthBuffer) {
    glTranslatef(0.25f, 1, 0);
    font.Print("H");
    const Bytes plain = window.Pixels();
    glClearDepth(0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LIGHTING);
    font.Print("H");
    EXPECT_NE(Drawn(), Box());
    EXPECT_EQ(window.Pixels(), plain);
}

TEST_F(FontDrawingTest, TextIsBlendedWithTheBackground) {
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0, 0, 0, 0);
    const Glyph glyph('H');
    glTranslatef(0.25f, 1, 0);
    font.Print("H");
    const auto background = window.At(1, 1);
    EXPECT_EQ(background.blue, 255);
    EXPECT_EQ(background.red, 0);
    EXPECT_EQ(Integer(GL_BLEND_SRC), GL_SRC_ALPHA);
    EXPECT_EQ(Integer(GL_BLEND_DST), GL_ONE_MINUS_SRC_ALPHA);
    // The stems of the letter are white.
    const Box box = Drawn();
    EXPECT_GT(box.right, box.left);
    bool white = false;
    for (int x = box.left; x <= box.right; ++x)
        white = white || window.At(x, (box.bottom + box.top) / 2).green == 255;
    EXPECT_TRUE(white);
}

TEST_F(FontDrawingTest, BytesOf128AndAboveDrawNothing) {
    // A font that was loaded later has the next list names.
    if (glIsList(base + 0xC3) == GL_TRUE)
        glDeleteLists(base + 128, 128);
    glTranslatef(0.25f, 1, 0);
    font.Print("\xC3\xA9\x80\xFF");
    EXPECT_EQ(Drawn(), Box());
}

TEST_F(FontDrawingTest, TakesPrintfArguments) {
    glTranslatef(0.25f, 1, 0);
    font.Print("%d%%", 7);
    const Bytes formatted = window.Pixels();
    glClear(GL_COLOR_BUFFER_BIT);
    font.Print("%s", "7%");
    EXPECT_EQ(window.Pixels(), formatted);
    EXPECT_NE(Drawn(), Box());
}

TEST_F(FontDrawingTest, TextBeyondEightKibibytesIsCut) {
    // The lines are so flat that the whole text would fit on the screen.
    font.SetSize(1.0f, 1.0f / 65536);
    std::string text(8190, '\n');
    glTranslatef(0.25f, 1, 0);
    glScalef(1, 65536, 1);
    EXPECT_TRUE(font.Print("%sH", text.c_str()));
    EXPECT_NE(Drawn(), Box());
    glClear(GL_COLOR_BUFFER_BIT);
    text += '\n';
    EXPECT_TRUE(font.Print("%sH", text.c_str()));
    EXPECT_EQ(Drawn(), Box());
    EXPECT_TRUE(font.Print("%s", std::string(100000, 'H').c_str()));
}

TEST_F(FontDrawingTest, PrintingAllocatesNothing) {
    const auto print = [&] {
        font.Print("Population: %d\nFunds: %d", 100000, 4500);
        glFinish();
    };
    for (int i = 0; i < 3; ++i)
        print();  // the driver allocates once
    const std::size_t before = AllocationCount();
    print();
    EXPECT_EQ(AllocationCount(), before);
}

TEST_F(FontDrawingTest, SeveralFontsCanBeLoadedAtOnce) {
    FontRender second;
    ASSERT_TRUE(second.Init(kFont));
    second.SetSize(1, 1);
    glTranslatef(0.25f, 1, 0);
    font.Print("Ag");
    const Bytes first = window.Pixels();
    glClear(GL_COLOR_BUFFER_BIT);
    second.Print("Ag");
    EXPECT_EQ(window.Pixels(), first);
    EXPECT_NE(Integer(GL_LIST_BASE), static_cast<GLint>(base));
}

class FontTraceTest : public FontDrawingTest, public TraceSwitch {};

TEST_F(FontTraceTest, PrintingIsTraced) {
    font.Print("A");
    EXPECT_THAT(CallsOfGetFloat(), ElementsAre("Matrix::GetModelView", "FontRender::Print"));
    EXPECT_THAT(CallsOfMultMatrix(), ElementsAre("Matrix::ApplyModelView", "FontRender::Print"));
    EXPECT_TRUE(trace::Frames().empty());
}

TEST_F(FontTraceTest, LoadingIsTraced) {
    TraceNoter noter;
    EXPECT_FALSE(FontRender().Init("none.ttf"));
    EXPECT_THAT(noter.calls, ElementsAre("FontRender::Init"));
    EXPECT_TRUE(trace::Frames().empty());
}

}  // namespace
