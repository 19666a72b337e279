// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Compares DecodeTGA, which gives floats, with stb_image, which gives bytes.

#include <benchmark/benchmark.h>
#include <stb/stb_image.h>

#include <cstdint>
#include <vector>

#include "quarn2/decoders.h"
#include "quarn2/texturedata.h"
#include "tools/tgawriter.h"

namespace {

constexpr int kSide = 1024;

/// Pixels in runs of `run`; with 1, no two neighbours are equal.
std::vector<std::uint8_t> MakeSample(std::int64_t run) {
    std::vector<std::uint8_t> bytes(std::size_t{kSide} * kSide * 4);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto step = static_cast<std::uint32_t>(i / 4) / static_cast<std::uint32_t>(run);
        bytes[i] = static_cast<std::uint8_t>((step * 2654435761u) >> (8 * (i % 4)));
    }
    TextureData image;
    image.Load(kSide, kSide, true, bytes.data());
    return EncodeTGA(image);
}

void BM_DecodeTGA(benchmark::State& state) {
    const std::vector<std::uint8_t> sample = MakeSample(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        DecodedImage image;
        if (!DecodeTGA("sample", sample, image))
            state.SkipWithError("not decoded");
        benchmark::DoNotOptimize(image.pixels.get());
    }
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}
BENCHMARK(BM_DecodeTGA)->Name("TGA to floats, runs of")->Arg(1)->Arg(8)->Arg(200);

void BM_StbImage(benchmark::State& state) {
    const std::vector<std::uint8_t> sample = MakeSample(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        int width = 0, height = 0, channels = 0;
        stbi_uc* const bytes = stbi_load_from_memory(sample.data(), static_cast<int>(sample.size()),
                                                     &width, &height, &channels, 4);
        if (bytes == nullptr)
            state.SkipWithError("not decoded");
        benchmark::DoNotOptimize(bytes);
        stbi_image_free(bytes);
    }
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}
BENCHMARK(BM_StbImage)->Name("stb_image to bytes, runs of")->Arg(1)->Arg(8)->Arg(200);

}  // namespace

BENCHMARK_MAIN();
