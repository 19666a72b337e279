// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <benchmark/benchmark.h>
#include <zlib.h>

#include <cstdint>
#include <string>

#include "bench/pictures.h"
#include "quarn2/inflate.h"
#include "tests/support/deflate_streams.h"

namespace {

/// A raw stream and how many bytes it holds.
struct Stream {
    std::string name;
    Bytes input;
    std::size_t bytes;
};

/// The image data of the pictures, then text, zeros, noise and stored noise.
Stream StreamAt(std::int64_t index) {
    if (index < kSamples) {
        const Sample& sample = SampleAt(index);
        Bytes input = ImageDataOf(sample.file);
        input.erase(input.begin(), input.begin() + 2);  // the zlib header
        return {sample.name, input, std::size_t{kPictureSize} * (kPictureSize * 4 + 1)};
    }
    constexpr std::size_t kSize = std::size_t{1} << 22;
    const auto content = static_cast<Content>(index - kSamples);
    return {NameOf(content), DeflateWithZlib(MakeContent(content, kSize), 6), kSize};
}

void Report(benchmark::State& state, const Stream& stream, bool failed) {
    if (failed)
        state.SkipWithError("the stream is not decoded");
    state.SetLabel(stream.name);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(stream.bytes));
}

void BM_Inflate(benchmark::State& state) {
    const Stream stream = StreamAt(state.range(0));
    Bytes output(stream.bytes);
    std::uint32_t count = 0;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(Inflate(output.data(), static_cast<std::uint32_t>(output.size()),
                                         &count, stream.input.data(),
                                         static_cast<std::uint32_t>(stream.input.size())));
    }
    Report(state, stream, count != stream.bytes);
}
BENCHMARK(BM_Inflate)->DenseRange(0, kSamples + 3)->Unit(benchmark::kMillisecond);

void BM_Zlib(benchmark::State& state) {
    const Stream stream = StreamAt(state.range(0));
    Bytes output(stream.bytes);
    uLong count = 0;
    for ([[maybe_unused]] auto _ : state) {
        z_stream zlib{};
        inflateInit2(&zlib, -15);
        zlib.next_in = const_cast<Bytef*>(stream.input.data());
        zlib.avail_in = static_cast<uInt>(stream.input.size());
        zlib.next_out = output.data();
        zlib.avail_out = static_cast<uInt>(output.size());
        benchmark::DoNotOptimize(inflate(&zlib, Z_FINISH));
        count = zlib.total_out;
        inflateEnd(&zlib);
    }
    Report(state, stream, count != stream.bytes);
}
BENCHMARK(BM_Zlib)->DenseRange(0, kSamples + 3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
