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

struct CacheEntry {
    TextureDetails details;
    std::uint32_t name;
};

// Neither table is ever destroyed: static objects may still use textures while the process ends.

std::vector<CacheEntry>& Cache() {
    static std::vector<CacheEntry>& cache = *new std::vector<CacheEntry>;
    return cache;
}

/// Indexed by OpenGL texture name.
std::vector<std::uint16_t>& ReferenceCounts() {
    static std::vector<std::uint16_t>& counts = *new std::vector<std::uint16_t>;
    return counts;
}

std::uint16_t& CountOf(std::uint32_t name) {
    std::vector<std::uint16_t>& counts = ReferenceCounts();
    if (name >= counts.size())
        counts.resize(std::size_t{name} + 1);
    return counts[name];
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
    return true;
}

bool Texture::Bind() {
    TraceFrame frame("Bind", "Texture");
    // Volatile, because compilers assume that `this` is never null.
    const Texture* const volatile self = this;
    Assert("quarn2/texture", 387, "this", self != nullptr);
    glBindTexture(GL_TEXTURE_2D, name);
    return true;
}

std::uint16_t Texture::ReferenceCount(std::uint32_t textureName) {
    const std::vector<std::uint16_t>& counts = ReferenceCounts();
    return textureName < counts.size() ? counts[textureName] : std::uint16_t{0};
}
