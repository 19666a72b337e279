// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/font.h"

#include <GL/gl.h>
#include <ft2build.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>
#include FT_FREETYPE_H

#include "quarn2/matrix.h"
#include "quarn2/readfile.h"
#include "quarn2/texture.h"
#include "quarn2/texturedata.h"
#include "quarn2/trace.h"

namespace {

constexpr std::uintmax_t kMaxFileBytes = std::uintmax_t{1} << 29;
constexpr FT_F26Dot6 kCharacterSize = 4096;  // 64 points, in 64ths
constexpr FT_UInt kDotsPerInch = 96;
constexpr float kPixelsPerUnit = 64.0f;
constexpr std::int32_t kGlyphFlags = 38;  // clamped both ways, mipmapped
constexpr std::size_t kPrintBytes = 8192;
constexpr std::size_t kStackBytes = 8192;  // for more, Length allocates

struct FreeTypeDeleter {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Library = std::unique_ptr<std::remove_pointer_t<FT_Library>, FreeTypeDeleter>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, FreeTypeDeleter>;

/// The file is held in memory: one that is mapped, and written again meanwhile, kills the process.
struct OpenFont {
    Library library;
    std::vector<FT_Byte> file;
    Face face;
};

/// A font in use stays open until the process ends.
std::vector<OpenFont>& OpenFonts() {
    static std::vector<OpenFont>& fonts = *new std::vector<OpenFont>;
    return fonts;
}

FT_Error OpenFace(FT_Library library, const std::vector<FT_Byte>& bytes, FT_Face& face) {
    if (bytes.empty())
        return FT_Err_Unknown_File_Format;
    const FT_Error error =
        FT_New_Memory_Face(library, bytes.data(), static_cast<FT_Long>(bytes.size()), 0, &face);
    // FreeType's answer for a file that is too short for the header of some format.
    return error == FT_Err_Invalid_Stream_Operation ? FT_Err_Unknown_File_Format : error;
}

bool Open(const std::string& path, OpenFont& font) {
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != FT_Err_Ok) {
        std::cerr << "Error loading freetype library\n";
        return false;
    }
    font.library.reset(library);

    FT_Face face = nullptr;
    FT_Error error = FT_Err_Cannot_Open_Resource;
    if (ReadWholeFile(path, kMaxFileBytes, font.file) == FileProblem::None)
        error = OpenFace(library, font.file, face);
    if (error == FT_Err_Unknown_File_Format) {
        std::cerr << "The font file format is not recgonised\n";
        return false;
    }
    if (error != FT_Err_Ok) {
        std::cerr << "Error loading the font\n";
        return false;
    }
    font.face.reset(face);

    if (FT_Set_Char_Size(face, kCharacterSize, kCharacterSize, kDotsPerInch, kDotsPerInch)
        != FT_Err_Ok) {
        std::cerr << "Error setting the font size\n";
        return false;
    }
    return true;
}

/// Loads and rasterises the glyph of a code into the face's slot.
bool Rasterise(FT_Face face, FT_ULong code) {
    return FT_Load_Glyph(face, FT_Get_Char_Index(face, code), FT_LOAD_DEFAULT) == FT_Err_Ok
           && FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) == FT_Err_Ok;
}

/// The rasterised glyph's advance in font units, of whole pixels.
float AdvanceOf(const FT_GlyphSlotRec& glyph) {
    return static_cast<float>(glyph.advance.x >> 6) / kPixelsPerUnit;
}

/// The glyph in white, its coverage in every channel, in the lower left of a texture whose
/// sides are powers of two.
bool MakeImage(const FT_Bitmap& bitmap, TextureData& image) {
    const std::size_t wide = std::bit_ceil(std::size_t{bitmap.width});
    const std::size_t high = std::bit_ceil(std::size_t{bitmap.rows});
    if (wide * high > static_cast<std::size_t>(TextureData::kMaxPixels))
        return false;
    std::vector<std::uint8_t> pixels(wide * high * 4);
    // kept: a row is as long as the glyph is wide, not as the pitch. A bitmap with less than a
    // byte per pixel therefore ends before the last row.
    const std::span<const std::uint8_t> coverage(
        bitmap.buffer, std::size_t{bitmap.rows} * static_cast<std::size_t>(std::abs(bitmap.pitch)));
    for (std::size_t row = 0; row < bitmap.rows; ++row) {
        for (std::size_t column = 0; column < bitmap.width; ++column) {
            const std::size_t at = row * bitmap.width + column;
            if (at < coverage.size())
                std::fill_n(&pixels[(row * wide + column) * 4], 4, coverage[at]);
        }
    }
    return image.Load(static_cast<int>(wide), static_cast<int>(high), true, pixels.data());
}

void DrawGlyph(const FT_GlyphSlotRec& glyph, const TextureData& image) {
    const auto width = static_cast<float>(glyph.bitmap.width);
    const auto height = static_cast<float>(glyph.bitmap.rows);
    const float s = width / static_cast<float>(image.GetWidth());
    const float t = height / static_cast<float>(image.GetHeight());
    const float right = width / kPixelsPerUnit;
    const float top = height / kPixelsPerUnit;

    glPushMatrix();
    glTranslatef(static_cast<float>(glyph.bitmap_left) / kPixelsPerUnit,
                 (static_cast<float>(glyph.bitmap_top) - height) / kPixelsPerUnit, 0.0f);
    glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 0.0f);
    glVertex2f(0.0f, top);
    glTexCoord2f(0.0f, t);
    glVertex2f(0.0f, 0.0f);
    glTexCoord2f(s, t);
    glVertex2f(right, 0.0f);
    glTexCoord2f(s, 0.0f);
    glVertex2f(right, top);
    glEnd();
    glPopMatrix();
}

/// Formats into `buffer`. A longer text is cut.
std::string_view Format(std::span<char> buffer, const char* format, std::va_list arguments) {
    if (std::vsnprintf(buffer.data(), buffer.size(), format, arguments) < 0)
        buffer.front() = '\0';
    return buffer.data();
}

/// The lines of a text, one more than it has line breaks.
class Lines {
public:
    explicit Lines(std::string_view text) : rest(text) {}

    bool Any() const { return any; }

    /// Takes the next line. Call it only if there are Any.
    std::string_view Take() {
        const std::size_t end = rest.find('\n');
        any = end != std::string_view::npos;
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(any ? end + 1 : rest.size());
        return line;
    }

private:
    std::string_view rest;
    bool any = true;
};

}  // namespace

bool FontRender::Init(const std::string& path) {
    TraceFrame frame("Init", "FontRender");
    OpenFont font;
    if (!Open(path, font))
        return false;
    const FT_Face face = font.face.get();

    listBase = glGenLists(kGlyphCount);
    for (int code = 0; code < kGlyphCount; ++code) {
        TextureData image;
        if (!Rasterise(face, static_cast<FT_ULong>(code))
            || !MakeImage(face->glyph->bitmap, image)) {
            std::cerr << "errors!\n";
            return false;
        }
        Texture texture;
        texture.Load(image, TextureDetails("", kGlyphFlags));

        const float advance = AdvanceOf(*face->glyph);
        glNewList(listBase + static_cast<GLuint>(code), GL_COMPILE);
        texture.Bind();
        DrawGlyph(*face->glyph, image);
        glTranslatef(advance, 0.0f, 0.0f);
        glEndList();
        advances[code] = advance;
    }
    OpenFonts().push_back(std::move(font));
    return true;
}

bool FontRender::Measure(const std::string& path) {
    TraceFrame frame("Measure", "FontRender");
    OpenFont font;
    if (!Open(path, font))
        return false;
    for (int code = 0; code < kGlyphCount; ++code) {
        if (!Rasterise(font.face.get(), static_cast<FT_ULong>(code))) {
            std::cerr << "errors!\n";
            return false;
        }
        advances[code] = AdvanceOf(*font.face->glyph);
    }
    return true;
}

bool FontRender::SetSize(float x, float y) {
    TraceFrame frame("SetSize", "FontRender");
    sizeX = x;
    sizeY = y;
    return true;
}

float FontRender::LineLength(std::string_view line) const {
    float length = 0.0f;
    for (const char character : line)
        length += Advance(static_cast<signed char>(character)) * sizeX;
    return length;
}

float FontRender::LongestLine(std::string_view text, char* scratch) const {
    float longest = 0.0f;
    Lines lines(text);
    while (lines.Any()) {
        std::string_view line = lines.Take();
        if (lines.Any()) {
            // kept: every line except the last is copied over the earlier ones without a zero
            // byte at its end, so the rest of a longer line is measured with it
            line.copy(scratch, line.size());
            line = scratch;
        }
        longest = std::max(longest, LineLength(line));
    }
    return longest;
}

float FontRender::Length(const char* format, ...) {
    TraceFrame frame("Length", "FontRender");
    Assert("font", 113, "str != 0", format != nullptr);
    const std::size_t size = 2 * std::strlen(format) + 512;

    std::array<char, kStackBytes> stack;
    std::vector<char> heap;
    std::span<char> buffer = stack;
    if (2 * size > stack.size()) {
        heap.resize(2 * size);
        buffer = heap;
    }
    std::va_list arguments;
    va_start(arguments, format);
    const std::string_view text = Format(buffer.first(size), format, arguments);
    va_end(arguments);
    const std::span<char> scratch = buffer.subspan(size, text.size() + 1);
    std::fill(scratch.begin(), scratch.end(), '\0');
    return LongestLine(text, scratch.data());
}

bool FontRender::Print(const char* format, ...) {
    TraceFrame frame("Print", "FontRender");
    glPushAttrib(GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT);

    std::array<char, kPrintBytes> buffer;
    std::va_list arguments;
    va_start(arguments, format);
    Lines lines(Format(buffer, format, arguments));
    va_end(arguments);

    glDisable(GL_DEPTH_TEST);
    glDisable(GL_LIGHTING);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glListBase(listBase);

    Matrix modelView;
    modelView.GetModelView();
    Assert("font", 200, "lines.size()", lines.Any());
    for (int index = 0; lines.Any(); ++index) {
        const std::string_view line = lines.Take();
        glPushMatrix();
        glLoadIdentity();
        glTranslatef(0.0f, -static_cast<float>(index) * kLineStep * sizeY, 0.0f);
        modelView.ApplyModelView();
        glScalef(sizeX, sizeY, 0.0f);
        glCallLists(static_cast<GLsizei>(line.size()), GL_UNSIGNED_BYTE, line.data());
        glPopMatrix();
    }
    glPopAttrib();
    return true;
}
