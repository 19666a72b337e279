// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <benchmark/benchmark.h>
#include <png.h>

#include <iostream>
#include <sstream>

#include "bench/pictures.h"
#include "quarn2/decoders.h"

namespace {

void Report(benchmark::State& state, const Sample& sample, bool failed) {
    if (failed)
        state.SkipWithError("the picture is not decoded");
    state.SetLabel(sample.name);
    state.SetBytesProcessed(state.iterations()
                            * static_cast<std::int64_t>(sample.pixels.rgba.size()));
}

/// To floats, with the message of each decoding.
void BM_DecodePNG(benchmark::State& state) {
    const Sample& sample = SampleAt(state.range(0));
    std::stringbuf messages;
    std::streambuf* const before = std::cerr.rdbuf(&messages);
    DecodedImage image;
    bool failed = false;
    for ([[maybe_unused]] auto _ : state) {
        failed |= !DecodePNG(sample.name, sample.file, image);
        messages.str({});
    }
    std::cerr.rdbuf(before);
    Report(state, sample, failed);
}
BENCHMARK(BM_DecodePNG)->DenseRange(0, kSamples - 1)->Unit(benchmark::kMillisecond);

/// To bytes.
void BM_Libpng(benchmark::State& state) {
    const Sample& sample = SampleAt(state.range(0));
    bool failed = false;
    for ([[maybe_unused]] auto _ : state) {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        failed |=
            png_image_begin_read_from_memory(&image, sample.file.data(), sample.file.size()) == 0;
        image.format = PNG_FORMAT_RGBA;
        Bytes pixels(PNG_IMAGE_SIZE(image));
        failed |= png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0;
        benchmark::DoNotOptimize(pixels.data());
    }
    Report(state, sample, failed);
}
BENCHMARK(BM_Libpng)->DenseRange(0, kSamples - 1)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
