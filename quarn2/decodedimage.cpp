// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/decodedimage.h"

#include <iostream>

bool CanBeDecoded(const std::string& path, std::int64_t width, std::int64_t height) {
    if (width >= 1 && height >= 1 && height <= kMaxImagePixels / width)
        return true;
    std::cerr << path << ": an image of " << width << " x " << height
              << " pixels cannot be loaded; it must have from 1 to " << kMaxImagePixels
              << " pixels\n";
    return false;
}

std::shared_ptr<float[]> NewPixels(std::int64_t width, std::int64_t height) {
    return std::make_shared_for_overwrite<float[]>(static_cast<std::size_t>(width * height * 4));
}
