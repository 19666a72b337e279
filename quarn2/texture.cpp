// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/texture.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cstddef>
#include <iostream>
#include <utility>
#include <vector>

#include "quarn2/texturedata.h"
#include "quarn2/trace.h"

namespace {

// Upload options, bits of TextureDetails::flags.
constexpr std::int32_t kSingleChannel = 1;  // and no mipmaps
constexpr std::int32_t kClampS = 2;
constexpr std::int32_t kClampT = 4;
constexpr std::int32_t kFloats = 16;

/// OpenGL takes the first level of a mipmap up to the square root of 2 texels per pixel. Less,
/// because drivers only estimate that number.
constexpr float kFirstLevelShrink = 1.25f;

struct CacheEntry {
    TextureDetails details;
    std::uint32_t name;
};

// Neither table is ever destroyed: static objects may still use textures while the process ends.

std::vector<CacheEntry>& Cache() {
    static std::vector<CacheEntry>& cache = *new std::vector<CacheEntry>;
    return cache;
}

/// What is known of an OpenGL texture.
struct Record {
    std::uint16_t references = 0;
    bool opaque = false;
    bool mipmapped = false;
    bool levelsUsed = false;  ///< its minifying filter is the one that looks for a level
    std::int32_t width = 0;   ///< pixels
    std::int32_t height = 0;  ///< pixels
};

/// Indexed by OpenGL texture name.
std::vector<Record>& Records() {
    static std::vector<Record>& records = *new std::vector<Record>;
    return records;
}

Record& RecordOf(std::uint32_t name) {
    std::vector<Record>& records = Records();
    if (name >= records.size())
        records.resize(std::size_t{name} + 1);
    return records[name];
}

std::uint16_t& CountOf(std::uint32_t name) {
    return RecordOf(name).references;
}

bool EveryPixelIsOpaque(const TextureData& data) {
    const std::size_t values =
        static_cast<std::size_t>(data.GetWidth()) * static_cast<std::size_t>(data.GetHeight()) * 4;
    for (std::size_t alpha = 3; alpha < values; alpha += 4) {
        if (!(data.GetData()[alpha] >= 1.0f))  // also if it is NaN
            return false;
    }
    return true;
}

/// The value times 255, without its fraction. A value outside 0 to 1 becomes 0 or 255.
std::uint8_t ByteOf(float value) {
    const float scaled = value * 255.0f;
    if (!(scaled > 0.0f))  // also if it is NaN
        return 0;
    return scaled < 255.0f ? static_cast<std::uint8_t>(scaled) : std::uint8_t{255};
}

/// Every `step`th float of the image as a byte.
std::vector<std::uint8_t> Bytes(const TextureData& data, std::size_t step) {
    const std::size_t count = static_cast<std::size_t>(data.GetWidth())
                              * static_cast<std::size_t>(data.GetHeight()) * 4 / step;
    std::vector<std::uint8_t> bytes(count);
    const float* value = data.GetData();
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = ByteOf(value[i * step]);
    return bytes;
}

void SetParameter(GLenum parameter, GLint value) {
    glTexParameteri(GL_TEXTURE_2D, parameter, value);
}

/// Chooses the minifying filter of the bound texture.
void UseLevels(Record& record, bool use) {
    if (!record.mipmapped || record.levelsUsed == use)
        return;
    record.levelsUsed = use;
    SetParameter(GL_TEXTURE_MIN_FILTER, use ? GL_LINEAR_MIPMAP_NEAREST : GL_LINEAR);
}

}  // namespace

TextureDetails::TextureDetails(std::string newFilename, std::int32_t newFlags)
    : filename(std::move(newFilename)), flags(newFlags) {
    TraceFrame frame("TextureDetails", "TextureDetails");
}

bool TextureDetails::operator==(const TextureDetails& other) const {
    TraceFrame frame("operator==", "TextureDetails");
    return filename == other.filename && flags == other.flags;
}

bool Texture::Load(const TextureDetails& details) {
    TraceFrame frame("Load", "Texture");
    for (const CacheEntry& entry : Cache()) {
        if (!(entry.details == details))
            continue;
        if (entry.name == name) {
            std::cerr << "reassigning this texture\n";
            return true;
        }
        if (glIsTexture(name) == GL_TRUE)
            --CountOf(name);
        name = entry.name;
        if (glIsTexture(name) == GL_TRUE)
            ++CountOf(name);
        std::cerr << "not reloading texture\n";
        return true;
    }

    name = 0;
    TextureData data;
    if (!data.Load(details.filename))
        return false;
    Load(data, details);
    Cache().push_back({details, name});
    ++CountOf(name);
    return true;
}

bool Texture::Load(const TextureData& data, const TextureDetails& details) {
    TraceFrame frame("Load", "Texture");
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);

    const bool mipmapped = (details.flags & kSingleChannel) == 0;
    SetParameter(GL_TEXTURE_MIN_FILTER, mipmapped ? GL_LINEAR_MIPMAP_NEAREST : GL_LINEAR);
    SetParameter(GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    if ((details.flags & kClampS) != 0)
        SetParameter(GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    if ((details.flags & kClampT) != 0)
        SetParameter(GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);

    const GLsizei width = data.GetWidth();
    const GLsizei height = data.GetHeight();
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);  // rows of any width, without padding
    if ((details.flags & kFloats) != 0) {
        if (mipmapped) {
            gluBuild2DMipmaps(GL_TEXTURE_2D, GL_RGBA, width, height, GL_RGBA, GL_FLOAT,
                              data.GetData());
        } else {
            glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_FLOAT,
                         data.GetData());
        }
    } else if (mipmapped) {
        gluBuild2DMipmaps(GL_TEXTURE_2D, GL_RGBA, width, height, GL_RGBA, GL_UNSIGNED_BYTE,
                          Bytes(data, 1).data());
    } else {
        // Images without mipmaps keep their content in the red channel.
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_LUMINANCE, GL_UNSIGNED_BYTE,
                     Bytes(data, 4).data());
    }
    glPopClientAttrib();

    Record& record = RecordOf(name);
    record.opaque = mipmapped && EveryPixelIsOpaque(data);
    record.mipmapped = mipmapped;
    record.levelsUsed = mipmapped;
    record.width = width;
    record.height = height;
    return true;
}

bool Texture::Bind() {
    TraceFrame frame("Bind", "Texture");
    // Volatile, because compilers assume that `this` is never null.
    const Texture* const volatile self = this;
    Assert("quarn2/texture", 387, "this", self != nullptr);
    glBindTexture(GL_TEXTURE_2D, name);
    UseLevels(RecordOf(name), true);
    return true;
}

bool Texture::BindForSize(float width, float height) {
    TraceFrame frame("BindForSize", "Texture");
    glBindTexture(GL_TEXTURE_2D, name);
    Record& record = RecordOf(name);
    const bool firstLevel = static_cast<float>(record.width) <= kFirstLevelShrink * width
                            && static_cast<float>(record.height) <= kFirstLevelShrink * height;
    UseLevels(record, !firstLevel);
    return firstLevel && record.mipmapped;
}

bool Texture::IsOpaque() const {
    return name == 0 || RecordOf(name).opaque;
}

std::uint16_t Texture::ReferenceCount(std::uint32_t textureName) {
    const std::vector<Record>& records = Records();
    return textureName < records.size() ? records[textureName].references : std::uint16_t{0};
}
