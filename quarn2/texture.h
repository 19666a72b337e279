// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>

class TextureData;

/// The cache's key: a file and how it is uploaded.
class TextureDetails {
public:
    /// @param newFlags  as `flags`
    TextureDetails(std::string newFilename, std::int32_t newFlags);

    bool operator==(const TextureDetails& other) const;

    std::string filename;  ///< as given: two spellings of one file are two keys
    /// 1: no mipmaps, and only the red channel; 2, 4: clamped in s, t; 16: floats as they are.
    std::int32_t flags;
};

/// A handle to one OpenGL texture; files come through a process-wide cache. Needs a current
/// OpenGL context. Deletes nothing.
class Texture {
public:
    /// Takes the image of a file, which is loaded unless an equal key is in the cache.
    [[nodiscard]] bool Load(const TextureDetails& details);
    /// Uploads an image as a new OpenGL texture that is not in the cache.
    /// @return true
    bool Load(const TextureData& data, const TextureDetails& details);
    /// @return true
    bool Bind();
    /// Bind for one upright quad that shows the whole image `width` by `height` pixels large. The
    /// pixels are those that Bind gives. If the quad is so large that they all come from the first
    /// level of the mipmap, OpenGL does not look for the level of each.
    /// @return whether that is so
    bool BindForSize(float width, float height);

    /// Whether nothing behind the image can be seen. Holds without a texture too: OpenGL then
    /// draws as if texturing were off.
    bool IsOpaque() const;

    /// The OpenGL name; 0 when there is none.
    std::uint32_t GetName() const { return name; }

    /// How many handles share the OpenGL texture `textureName`.
    static std::uint16_t ReferenceCount(std::uint32_t textureName);

private:
    std::uint32_t name = 0;
};
