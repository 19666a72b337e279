#pragma once

#include <cstdint>
#include <memory>
#include <string>

/// An image in memory: RGBA pixels of 32-bit floats, nominally 0 to 1, row after row in the
/// order in which the source delivers them. A plain value: a copy shares the array, which a
/// loader or an operation that succeeds replaces by a new one.
class TextureData {
public:
    /// 2 by 2 pixels, zeroed.
    TextureData();

    /// Chooses a decoder by the path's text: "tga" anywhere in it first, then "png".
    /// On failure writes one line on standard error and leaves the array as it was.
    [[nodiscard]] bool Load(const std::string& path);

    /// Run-length-encoded true-colour images (type 10) of 24 or 32 bits. Rows keep the file's
    /// order, whatever its origin bit says.
    [[nodiscard]] bool LoadTGA(const std::string& path);

    /// Replaces the image by bytes of 3 (or, with `alpha`, 4) per pixel.
    bool Load(int newWidth, int newHeight, bool alpha, const std::uint8_t* bytes);

    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    float* GetData() { return data.get(); }
    const float* GetData() const { return data.get(); }
    int GetBitsPerPixel() const { return 32; }

private:
    std::int32_t width = 2;
    std::int32_t height = 2;
    std::shared_ptr<float[]> data;
};
