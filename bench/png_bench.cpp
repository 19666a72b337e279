// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <benchmark/benchmark.h>
#include <png.h>

#include <iostream>
#include <sstream>

#include "bench/pictures.h"
#include "quarn2/texturedata.h"
#include "tests/support/temporary_folder.h"

namespace {

/// A sample as a file.
class SampleFile {
public:
    explicit SampleFile(std::int64_t index)
        : sample(SampleAt(index)), path(folder.Write("picture.png", sample.file)) {}

    const std::string& Path() const { return path; }

    void Report(benchmark::State& state, bool failed) const {
        if (failed)
            state.SkipWithError("the picture is not read");
        state.SetLabel(sample.name);
        state.SetBytesProcessed(state.iterations()
                                * static_cast<std::int64_t>(sample.pixels.rgba.size()));
    }

private:
    const Sample& sample;
    TemporaryFolder folder;
    std::string path;
};

/// To floats, the message of each load included.
void BM_LoadPNG(benchmark::State& state) {
    const SampleFile file(state.range(0));
    std::stringbuf messages;
    std::streambuf* const before = std::cerr.rdbuf(&messages);
    TextureData image;
    bool failed = false;
    for ([[maybe_unused]] auto _ : state) {
        failed |= !image.LoadPNG(file.Path());
        messages.str({});
    }
    std::cerr.rdbuf(before);
    file.Report(state, failed);
}
BENCHMARK(BM_LoadPNG)->DenseRange(0, kSamples - 1)->Unit(benchmark::kMillisecond);

/// To bytes.
void BM_Libpng(benchmark::State& state) {
    const SampleFile file(state.range(0));
    bool failed = false;
    for ([[maybe_unused]] auto _ : state) {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        failed |= png_image_begin_read_from_file(&image, file.Path().c_str()) == 0;
        image.format = PNG_FORMAT_RGBA;
        Bytes pixels(PNG_IMAGE_SIZE(image));
        failed |= png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0;
        benchmark::DoNotOptimize(pixels.data());
    }
    file.Report(state, failed);
}
BENCHMARK(BM_Libpng)->DenseRange(0, kSamples - 1)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
