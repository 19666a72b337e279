// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "quarn2/texturedata.h"
#include "quarn2/vector.h"
#include "tests/support/plain_operations.h"

namespace {

constexpr int kSize = 1024;

/// Noise in which every 16th pixel is transparent.
TextureData MakeImage(int size = kSize) {
    TextureData image;
    image.Blank(size, size);
    std::minstd_rand random(1);
    const auto pixels = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    for (std::size_t pixel = 0; pixel < pixels; ++pixel) {
        for (std::size_t channel = 0; channel < 4; ++channel)
            image.GetData()[pixel * 4 + channel] = static_cast<float>(random() % 256) / 255.0f;
        if (pixel % 16 == 0)
            image.GetData()[pixel * 4 + 3] = 0;
    }
    return image;
}

void CountPixels(benchmark::State& state) {
    state.counters["pixels"] = benchmark::Counter(static_cast<double>(kSize) * kSize,
                                                  benchmark::Counter::kIsIterationInvariantRate);
}

void BM_Blur(benchmark::State& state) {
    TextureData image = MakeImage();
    for ([[maybe_unused]] auto _ : state)
        image.Blur(static_cast<int>(state.range(0)));
    CountPixels(state);
}
BENCHMARK(BM_Blur)->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond);

void BM_BlurPlain(benchmark::State& state) {
    PlainImage image(MakeImage());
    for ([[maybe_unused]] auto _ : state)
        PlainBlur(image, static_cast<int>(state.range(0)));
    CountPixels(state);
}
BENCHMARK(BM_BlurPlain)->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond);

// Six octaves, from cells of 256 pixels down to cells of 8.
constexpr int kOctaves = 6;
constexpr float kFrequency = 0.25f;

void BM_Perlin(benchmark::State& state) {
    TextureData image = MakeImage();
    for ([[maybe_unused]] auto _ : state)
        image.Perlin(kOctaves, kFrequency, 0.5f, 0.5f, 0.5f);
    CountPixels(state);
}
BENCHMARK(BM_Perlin)->Unit(benchmark::kMillisecond);

void BM_PerlinPlain(benchmark::State& state) {
    PlainImage image(MakeImage());
    for ([[maybe_unused]] auto _ : state)
        PlainPerlin(image, kOctaves, kFrequency, 0.5f, 0.5f, 0.5f);
    CountPixels(state);
}
BENCHMARK(BM_PerlinPlain)->Unit(benchmark::kMillisecond);

/// Cells of one pixel, which share only the points of the lattice.
void BM_PerlinFinest(benchmark::State& state) {
    TextureData image = MakeImage();
    for ([[maybe_unused]] auto _ : state)
        image.Perlin(1, 1.0f / kSize, 0.5f, 0.5f, 0.5f);
    CountPixels(state);
}
BENCHMARK(BM_PerlinFinest)->Unit(benchmark::kMillisecond);

void BM_PerlinFinestPlain(benchmark::State& state) {
    PlainImage image(MakeImage());
    for ([[maybe_unused]] auto _ : state)
        PlainPerlin(image, 1, 1.0f / kSize, 0.5f, 0.5f, 0.5f);
    CountPixels(state);
}
BENCHMARK(BM_PerlinFinestPlain)->Unit(benchmark::kMillisecond);

void BM_Blend(benchmark::State& state) {
    TextureData image = MakeImage();
    const TextureData other = MakeImage(kSize / 2);
    for ([[maybe_unused]] auto _ : state)
        image.Blend(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), other);
    CountPixels(state);
}
BENCHMARK(BM_Blend)->Args({1, 0})->Args({5, 3})->Args({8, 7})->Unit(benchmark::kMillisecond);

void BM_Translate(benchmark::State& state) {
    TextureData image = MakeImage();
    for ([[maybe_unused]] auto _ : state)
        image.Translate(3, -2, Vector(0, 0, 0, 1));
    CountPixels(state);
}
BENCHMARK(BM_Translate)->Unit(benchmark::kMillisecond);

void BM_Invert(benchmark::State& state) {
    TextureData image = MakeImage();
    for ([[maybe_unused]] auto _ : state)
        image.Invert(true);
    CountPixels(state);
}
BENCHMARK(BM_Invert)->Unit(benchmark::kMillisecond);

void BM_Clamp(benchmark::State& state) {
    TextureData image = MakeImage();
    for ([[maybe_unused]] auto _ : state)
        image.Clamp();
    CountPixels(state);
}
BENCHMARK(BM_Clamp)->Unit(benchmark::kMillisecond);

void BM_ScaleClamp(benchmark::State& state) {
    TextureData image = MakeImage();
    for ([[maybe_unused]] auto _ : state)
        image.ScaleClamp();
    CountPixels(state);
}
BENCHMARK(BM_ScaleClamp)->Unit(benchmark::kMillisecond);

void BM_Blank(benchmark::State& state) {
    TextureData image;
    for ([[maybe_unused]] auto _ : state)
        image.Blank(kSize, kSize);
    CountPixels(state);
}
BENCHMARK(BM_Blank)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
