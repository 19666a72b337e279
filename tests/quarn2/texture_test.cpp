// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/texture.h"

#include <GL/gl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "quarn2/texturedata.h"
#include "tests/support/gl_fixture.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/trace_fixture.h"
#include "tests/support/trace_noter.h"

namespace {

using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;

/// A file of 2 by 2 pixels of one colour.
Bytes SmallFile(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha) {
    return {0, 0, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 2, 0, 32, 0, 0x83, blue, green, red, alpha};
}

TEST(TextureDetailsTest, AreEqualWhenFileAndFlagsAre) {
    EXPECT_TRUE(TextureDetails("a", 0) == TextureDetails("a", 0));
    EXPECT_FALSE(TextureDetails("a", 0) == TextureDetails("a", 1));
    EXPECT_FALSE(TextureDetails("a", 0) == TextureDetails("b", 0));
    EXPECT_FALSE(TextureDetails("a/b", 0) == TextureDetails("a//b", 0));
}

TEST(TextureWithoutGLTest, ANewHandleHoldsNoTexture) {
    EXPECT_EQ(Texture().GetName(), 0u);
    EXPECT_EQ(Texture::ReferenceCount(0), 0u);
    EXPECT_EQ(Texture::ReferenceCount(4000000000u), 0u);
}

TEST(TextureWithoutGLTest, ReferencesAreCountedIn16Bits) {
    static_assert(std::is_same_v<decltype(Texture::ReferenceCount(0)), std::uint16_t>);
}

/// Binds a null pointer; the sanitizer would report this before the assertion fails.
__attribute__((no_sanitize("undefined"))) void BindWithoutAnObject() {
    Texture* volatile none = nullptr;
    none->Bind();
}

TEST(TextureDeathTest, BindingWithoutAnObjectFailsAnAssertion) {
    EXPECT_EXIT((trace::Start(), BindWithoutAnObject()), testing::ExitedWithCode(0),
                "Assert failed on quarn2/texture:387 - \"this\"\n.*#1: Texture::Bind");
}

class TextureTest : public GLTest {
protected:
    /// Load(details)'s lines on standard error.
    std::string Lines(Texture& texture, const TextureDetails& details, bool expected = true) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(texture.Load(details), expected);
        return testing::internal::GetCapturedStderr();
    }

    /// Two rows of two pixels, each channel a different byte.
    static TextureData Picture(int width = 2, int height = 2) {
        Bytes bytes(static_cast<std::size_t>(width * height) * 4);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<std::uint8_t>(i * 7 + 3);
        TextureData data;
        data.Load(width, height, true, bytes.data());
        return data;
    }

    static GLint Parameter(GLenum parameter) {
        GLint value = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, parameter, &value);
        return value;
    }
    static GLint LevelParameter(GLint level, GLenum parameter) {
        GLint value = 0;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, level, parameter, &value);
        return value;
    }
    /// A level of the bound texture in RGBA bytes.
    static Bytes Level(GLint level) {
        Bytes bytes(static_cast<std::size_t>(LevelParameter(level, GL_TEXTURE_WIDTH))
                    * static_cast<std::size_t>(LevelParameter(level, GL_TEXTURE_HEIGHT)) * 4);
        glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
        return bytes;
    }

    TemporaryFolder folder;
};

TEST_F(TextureTest, TheSameFileTwiceIsOneTexture) {
    const TextureDetails details(folder.Write("a.tga", SmallFile(1, 2, 3, 4)), 0);
    Texture first;
    Texture second;
    EXPECT_EQ(Lines(first, details), "");
    EXPECT_NE(first.GetName(), 0u);
    EXPECT_EQ(Texture::ReferenceCount(first.GetName()), 1u);
    EXPECT_EQ(Lines(second, details), "not reloading texture\n");
    EXPECT_EQ(second.GetName(), first.GetName());
    EXPECT_EQ(Texture::ReferenceCount(first.GetName()), 2u);
}

TEST_F(TextureTest, LoadingTheTextureThatTheHandleHoldsIsReportedAsReassigning) {
    const TextureDetails details(folder.Write("a.tga", SmallFile(1, 2, 3, 4)), 0);
    Texture texture;
    Lines(texture, details);
    const std::uint32_t name = texture.GetName();
    EXPECT_EQ(Lines(texture, details), "reassigning this texture\n");
    EXPECT_EQ(texture.GetName(), name);
    EXPECT_EQ(Texture::ReferenceCount(name), 1u);
}

TEST_F(TextureTest, OtherFlagsAreAnotherTexture) {
    const std::string path = folder.Write("a.tga", SmallFile(1, 2, 3, 4));
    Texture mipmapped;
    Texture single;
    EXPECT_EQ(Lines(mipmapped, {path, 0}), "");
    EXPECT_EQ(Lines(single, {path, 1}), "");
    EXPECT_NE(mipmapped.GetName(), single.GetName());
    EXPECT_EQ(Texture::ReferenceCount(mipmapped.GetName()), 1u);
    EXPECT_EQ(Texture::ReferenceCount(single.GetName()), 1u);
    Texture third;
    EXPECT_EQ(Lines(third, {path, 1}), "not reloading texture\n");
    EXPECT_EQ(third.GetName(), single.GetName());
}

TEST_F(TextureTest, AFailedLoadLeavesNoTextureAndIsNotCached) {
    const std::string path = folder.Path("late.tga");
    Texture texture;
    Lines(texture, {folder.Write("a.tga", SmallFile(1, 2, 3, 4)), 0});
    EXPECT_EQ(Lines(texture, {path, 0}, false), "Error loading texture tga file '" + path + "'\n");
    EXPECT_EQ(texture.GetName(), 0u);

    folder.Write("late.tga", SmallFile(1, 2, 3, 4));
    EXPECT_EQ(Lines(texture, {path, 0}), "");
    EXPECT_NE(texture.GetName(), 0u);
    EXPECT_EQ(Texture::ReferenceCount(texture.GetName()), 1u);
}

TEST_F(TextureTest, TakingACachedTextureReleasesTheOldOneWithoutDeletingIt) {
    const TextureDetails details(folder.Write("a.tga", SmallFile(1, 2, 3, 4)), 0);
    const TextureDetails others(folder.Write("b.tga", SmallFile(5, 6, 7, 8)), 0);
    Texture texture;
    Texture other;
    Lines(texture, details);
    Lines(other, others);
    const std::uint32_t old = texture.GetName();
    EXPECT_EQ(Lines(texture, others), "not reloading texture\n");
    EXPECT_EQ(Texture::ReferenceCount(old), 0u);
    EXPECT_EQ(Texture::ReferenceCount(other.GetName()), 2u);
    EXPECT_EQ(glIsTexture(old), GL_TRUE);

    EXPECT_EQ(Lines(other, details), "not reloading texture\n");
    EXPECT_EQ(other.GetName(), old);
    EXPECT_EQ(Texture::ReferenceCount(old), 1u);
}

TEST_F(TextureTest, LoadingANewFileLeavesTheOldTextureToItsOtherUsers) {
    const TextureDetails details(folder.Write("a.tga", SmallFile(1, 2, 3, 4)), 0);
    Texture texture;
    Lines(texture, details);
    const std::uint32_t old = texture.GetName();
    EXPECT_EQ(Lines(texture, {folder.Write("b.tga", SmallFile(5, 6, 7, 8)), 0}), "");
    EXPECT_NE(texture.GetName(), old);
    EXPECT_EQ(Texture::ReferenceCount(old), 1u);  // kept: only a cached file lowers the count
    Texture second;
    EXPECT_EQ(Lines(second, details), "not reloading texture\n");
    EXPECT_EQ(second.GetName(), old);
    EXPECT_EQ(Texture::ReferenceCount(old), 2u);
}

TEST_F(TextureTest, ManyFilesKeepTheirOwnTexturesAndCounts) {
    std::vector<Texture> textures(200);
    for (std::size_t i = 0; i < textures.size(); ++i) {
        const std::string name = std::to_string(i) + ".tga";
        EXPECT_EQ(Lines(textures[i], {folder.Write(name, SmallFile(1, 2, 3, 4)), 0}), "");
    }
    for (const Texture& texture : textures)
        EXPECT_EQ(Texture::ReferenceCount(texture.GetName()), 1u);
    Texture again;
    EXPECT_EQ(Lines(again, {folder.Path("0.tga"), 0}), "not reloading texture\n");
    EXPECT_EQ(again.GetName(), textures[0].GetName());
}

TEST_F(TextureTest, AnUploadIsNeitherCachedNorCounted) {
    Texture texture;
    EXPECT_TRUE(texture.Load(Picture(), TextureDetails("", 0)));
    const std::uint32_t first = texture.GetName();
    EXPECT_TRUE(texture.Load(Picture(), TextureDetails("", 0)));
    EXPECT_NE(texture.GetName(), first);
    EXPECT_EQ(Texture::ReferenceCount(first), 0u);
    EXPECT_EQ(glIsTexture(first), GL_TRUE);
}

TEST_F(TextureTest, BindingMakesItTheCurrentTexture) {
    Texture texture;
    texture.Load(Picture(), TextureDetails("", 0));
    glBindTexture(GL_TEXTURE_2D, 0);
    EXPECT_TRUE(texture.Bind());
    EXPECT_EQ(Integer(GL_TEXTURE_BINDING_2D), static_cast<GLint>(texture.GetName()));
    Texture none;
    EXPECT_TRUE(none.Bind());
    EXPECT_EQ(Integer(GL_TEXTURE_BINDING_2D), 0);
}

TEST_F(TextureTest, WithoutFlagsItIsMipmappedRepeatingRGBA) {
    Texture texture;
    texture.Load(Picture(4, 2), TextureDetails("", 0));
    texture.Bind();
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR_MIPMAP_NEAREST);
    EXPECT_EQ(Parameter(GL_TEXTURE_MAG_FILTER), GL_LINEAR);
    EXPECT_EQ(Parameter(GL_TEXTURE_WRAP_S), GL_REPEAT);
    EXPECT_EQ(Parameter(GL_TEXTURE_WRAP_T), GL_REPEAT);
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_INTERNAL_FORMAT), GL_RGBA);
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_WIDTH), 4);
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_HEIGHT), 2);
    EXPECT_EQ(LevelParameter(1, GL_TEXTURE_WIDTH), 2);
    EXPECT_EQ(LevelParameter(1, GL_TEXTURE_HEIGHT), 1);
    EXPECT_EQ(LevelParameter(2, GL_TEXTURE_WIDTH), 1);
    EXPECT_EQ(LevelParameter(2, GL_TEXTURE_HEIGHT), 1);
    EXPECT_EQ(LevelParameter(3, GL_TEXTURE_WIDTH), 0);
}

TEST_F(TextureTest, LevelsAreLookedForOnlyWhereMoreThanTheFirstCouldBeNeeded) {
    Texture texture;
    texture.Load(Picture(4, 2), TextureDetails("", 0));
    EXPECT_TRUE(texture.BindForSize(3.2f, 1.6f));
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR);
    EXPECT_FALSE(texture.BindForSize(3.1f, 1.6f));
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR_MIPMAP_NEAREST);
    texture.BindForSize(400.0f, 1.5f);
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR_MIPMAP_NEAREST);
    texture.BindForSize(400.0f, 200.0f);
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR);
    texture.Bind();
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR_MIPMAP_NEAREST);
}

TEST_F(TextureTest, SizeChangesNoFilterOfATextureWithoutLevels) {
    Texture texture;
    texture.Load(Picture(4, 2), TextureDetails("", 1));
    EXPECT_FALSE(texture.BindForSize(4.0f, 4.0f));
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR);
    texture.Bind();
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR);
}

TEST_F(TextureTest, IsOpaqueIfEveryPixelIsOrThereIsNone) {
    Texture texture;
    EXPECT_TRUE(texture.IsOpaque());
    Bytes bytes(16, 255);
    TextureData data;
    data.Load(2, 2, true, bytes.data());
    texture.Load(data, TextureDetails("", 0));
    EXPECT_TRUE(texture.IsOpaque());
    bytes.back() = 254;
    data.Load(2, 2, true, bytes.data());
    texture.Load(data, TextureDetails("", 0));
    EXPECT_FALSE(texture.IsOpaque());
}

TEST_F(TextureTest, EveryByteValueOfAFileReachesOpenGLUnchanged) {
    Bytes bytes;
    for (int i = 0; i < 256; ++i) {
        for (int channel = 0; channel < 4; ++channel)
            bytes.push_back(static_cast<std::uint8_t>(i + channel * 50));
    }
    TextureData data;
    data.Load(256, 1, true, bytes.data());
    Texture texture;
    texture.Load(data, TextureDetails("", 0));
    EXPECT_EQ(Level(0), bytes);
}

TEST_F(TextureTest, AMipmapIsTheMeanOfItsPixels) {
    const std::uint8_t bytes[] = {0, 0, 0, 0, 100, 20, 0, 200, 100, 0, 40, 0, 200, 20, 40, 200};
    TextureData data;
    data.Load(2, 2, true, bytes);
    Texture texture;
    texture.Load(data, TextureDetails("", 0));
    EXPECT_EQ(Level(1), (Bytes{100, 10, 20, 100}));
}

TEST_F(TextureTest, EachClampingFlagClampsItsDirection) {
    for (const std::int32_t flags : {0, 2, 4, 6, 38}) {
        Texture texture;
        texture.Load(Picture(), TextureDetails("", flags));
        EXPECT_EQ(Parameter(GL_TEXTURE_WRAP_S), (flags & 2) != 0 ? GL_CLAMP_TO_EDGE : GL_REPEAT);
        EXPECT_EQ(Parameter(GL_TEXTURE_WRAP_T), (flags & 4) != 0 ? GL_CLAMP_TO_EDGE : GL_REPEAT);
    }
}

TEST_F(TextureTest, WithoutMipmapsOnlyTheRedChannelIsKept) {
    Texture texture;
    texture.Load(Picture(), TextureDetails("", 1));
    texture.Bind();
    EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR);
    EXPECT_EQ(Parameter(GL_TEXTURE_MAG_FILTER), GL_LINEAR);
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_INTERNAL_FORMAT), GL_RGBA);
    EXPECT_EQ(LevelParameter(1, GL_TEXTURE_WIDTH), 0);
    EXPECT_EQ(Level(0), (Bytes{3, 3, 3, 255, 31, 31, 31, 255, 59, 59, 59, 255, 87, 87, 87, 255}));
}

TEST_F(TextureTest, SingleChannelRowsOfAnyWidthAreKeptApart) {
    for (const int width : {1, 2, 3, 5, 7}) {
        const TextureData data = Picture(width, 3);
        Texture texture;
        texture.Load(data, TextureDetails("", 1));
        const Bytes level = Level(0);
        for (std::size_t i = 0; i < level.size(); i += 4)
            EXPECT_EQ(level[i], static_cast<std::uint8_t>(i * 7 + 3)) << width;
    }
    EXPECT_EQ(Integer(GL_UNPACK_ALIGNMENT), 4);
}

TEST_F(TextureTest, ValuesLoseTheirFractionAsBytes) {
    TextureData data = Picture(1, 1);
    data.GetData()[0] = 0.999f;  // 254.7
    data.GetData()[1] = 0.5f;    // 127.5
    data.GetData()[2] = 0.003f;  // 0.8
    Texture texture;
    texture.Load(data, TextureDetails("", 0));
    EXPECT_EQ(Level(0), (Bytes{254, 127, 0, 24}));
    texture.Load(data, TextureDetails("", 1));
    EXPECT_EQ(Level(0), (Bytes{254, 254, 254, 255}));
}

TEST_F(TextureTest, ValuesOutsideZeroToOneBecomeZeroOr255) {
    TextureData data = Picture(1, 1);
    data.GetData()[0] = 1.01f;
    data.GetData()[1] = -0.5f;
    data.GetData()[2] = 1e30f;
    data.GetData()[3] = std::numeric_limits<float>::quiet_NaN();
    Texture texture;
    texture.Load(data, TextureDetails("", 0));
    EXPECT_EQ(Level(0), (Bytes{255, 0, 255, 0}));
}

TEST_F(TextureTest, FloatsGoToOpenGLUnchangedWithAndWithoutMipmaps) {
    for (const std::int32_t flags : {16, 17}) {
        TextureData data = Picture();
        data.GetData()[0] = 0.999f;  // OpenGL rounds it to 255
        data.GetData()[1] = 0.0f;
        data.GetData()[2] = 1.0f;
        data.GetData()[3] = 0.5019608f;
        Texture texture;
        texture.Load(data, TextureDetails("", flags));
        const Bytes level = Level(0);
        EXPECT_EQ((Bytes{level.begin(), level.begin() + 4}), (Bytes{255, 0, 255, 128})) << flags;
        EXPECT_EQ(level[5], 38) << flags;  // green is kept without mipmaps, too
        EXPECT_EQ(LevelParameter(1, GL_TEXTURE_WIDTH), flags == 16 ? 1 : 0);
        EXPECT_EQ(LevelParameter(0, GL_TEXTURE_INTERNAL_FORMAT), GL_RGBA);
    }
}

TEST_F(TextureTest, SidesThatAreNotPowersOfTwoAreScaledToSome) {
    Texture texture;
    texture.Load(Picture(3, 5), TextureDetails("", 0));
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_WIDTH), 4);
    EXPECT_EQ(LevelParameter(0, GL_TEXTURE_HEIGHT), 4);
}

TEST_F(TextureTest, TheFirstRowIsAtTheBottomOfAQuadWhoseTGrowsUpwards) {
    const std::uint8_t rows[] = {255, 0, 0, 255, 0, 255, 0, 255};  // red, then green
    TextureData data;
    data.Load(1, 2, true, rows);
    Texture texture;
    texture.Load(data, TextureDetails("", 2 | 4));
    glEnable(GL_TEXTURE_2D);
    glColor3f(1, 1, 1);
    glBegin(GL_QUADS);
    for (const auto& [s, t] : {std::pair{0.0f, 0.0f}, {0.0f, 1.0f}, {1.0f, 1.0f}, {1.0f, 0.0f}}) {
        glTexCoord2f(s, t);
        glVertex2f(2 * s - 1, 2 * t - 1);
    }
    glEnd();
    EXPECT_EQ(window.At(kWide / 2, 2).red, 255);
    EXPECT_EQ(window.At(kWide / 2, 2).green, 0);
    EXPECT_EQ(window.At(kWide / 2, kHigh - 3).red, 0);
    EXPECT_EQ(window.At(kWide / 2, kHigh - 3).green, 255);
}

class TextureTraceTest : public TracedTest {};

TEST_F(TextureTraceTest, LoadingAFileIsTraced) {
    TraceNoter noter;
    EXPECT_FALSE(Texture().Load(TextureDetails("none.tga", 0)));
    EXPECT_THAT(noter.calls,
                ElementsAre("TextureData::LoadTGA", "TextureData::Load", "Texture::Load"));
    EXPECT_TRUE(trace::Frames().empty());
}

}  // namespace
