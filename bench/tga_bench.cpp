// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// The TGA decoder to floats beside stb_image to bytes, on the same files.

#include <benchmark/benchmark.h>
#include <stb/stb_image.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "quarn2/texturedata.h"
#include "tests/support/temporary_folder.h"
#include "tools/tgawriter.h"

namespace {

constexpr int kSide = 1024;

/// Pixels in runs of `run`; with 1, no two neighbours are equal.
std::string WriteSample(const TemporaryFolder& folder, int run) {
    std::vector<std::uint8_t> bytes(std::size_t{kSide} * kSide * 4);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto step = static_cast<std::uint32_t>(i / 4) / static_cast<std::uint32_t>(run);
        bytes[i] = static_cast<std::uint8_t>((step * 2654435761u) >> (8 * (i % 4)));
    }
    TextureData image;
    image.Load(kSide, kSide, true, bytes.data());
    std::string path = folder.Path("sample.tga");
    if (!WriteTGA(image, path))
        std::abort();
    return path;
}

void LoadTGA(benchmark::State& state) {
    const TemporaryFolder folder;
    const std::string path = WriteSample(folder, static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        TextureData image;
        if (!image.LoadTGA(path))
            state.SkipWithError("not loaded");
        benchmark::DoNotOptimize(image.GetData());
    }
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}
BENCHMARK(LoadTGA)->Name("TGA to floats, runs of")->Arg(1)->Arg(8)->Arg(200);

void StbImage(benchmark::State& state) {
    const TemporaryFolder folder;
    const std::string path = WriteSample(folder, static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        int width = 0, height = 0, channels = 0;
        stbi_uc* const bytes = stbi_load(path.c_str(), &width, &height, &channels, 4);
        if (bytes == nullptr)
            state.SkipWithError("not loaded");
        benchmark::DoNotOptimize(bytes);
        stbi_image_free(bytes);
    }
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}
BENCHMARK(StbImage)->Name("stb_image to bytes, runs of")->Arg(1)->Arg(8)->Arg(200);

}  // namespace

BENCHMARK_MAIN();
