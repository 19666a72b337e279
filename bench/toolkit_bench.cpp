// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// The toolkit without its OpenGL calls. The widgets are those of the game's layout, read in an
// empty folder, so that no picture and no font is loaded.

#include <benchmark/benchmark.h>

#include <iostream>
#include <sstream>
#include <string>

#include "glwidget/drawing.h"
#include "glwidget/label.h"
#include "glwidget/wordwrap.h"
#include "quarn2/trace.h"
#include "tests/support/font_access.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr const char* kShortText = "Government funds: 123456 doubloons";

/// Fourteen lines, as many as the longest label of the game has.
std::string LongText() {
    std::string text;
    for (int line = 0; line < 14; ++line)
        text += "Some statistics of a far country: 123456 (78%)\n";
    return text;
}

void StartToolkit() {
    static bool started = false;
    if (started)
        return;
    started = true;
    trace::Start();
    const WorkingFolder folder;
    Toolkit::Get().readViewport = Toolkit::ReadViewportWithoutWindow;
    FontAccess::SetAdvances(GLWidget::font, 0.6f);
    const std::ostringstream quiet;
    std::streambuf* const errors = std::cerr.rdbuf(quiet.rdbuf());
    GLWidget::StartGUI(LAYOUT_FILE);
    std::cerr.rdbuf(errors);
}

Label& MakeLabel(const std::string& text) {
    StartToolkit();
    const std::ostringstream quiet;
    std::streambuf* const errors = std::cerr.rdbuf(quiet.rdbuf());
    auto* const label = new Label("bench", nullptr, Vector(0.0f, 0.0f), nullptr, text);
    std::cerr.rdbuf(errors);
    return *label;
}

void BM_LabelWithUnchangedText(benchmark::State& state) {
    const std::string text = LongText();
    Label& label = MakeLabel(text);
    for (auto _ : state) {
        label.SetText(text);
        benchmark::DoNotOptimize(label.Wrapped().data());
    }
}
BENCHMARK(BM_LabelWithUnchangedText);

void BM_LabelWithChangingText(benchmark::State& state) {
    std::string text = LongText();
    Label& label = MakeLabel(text);
    for (auto _ : state) {
        text.front() = text.front() == 'S' ? 's' : 'S';
        label.SetText(text);
        benchmark::DoNotOptimize(label.Wrapped().data());
    }
}
BENCHMARK(BM_LabelWithChangingText);

void BM_ShortLabelWithChangingText(benchmark::State& state) {
    std::string text = kShortText;
    Label& label = MakeLabel(text);
    for (auto _ : state) {
        text.front() = text.front() == 'G' ? 'g' : 'G';
        label.SetText(text);
        benchmark::DoNotOptimize(label.Wrapped().data());
    }
}
BENCHMARK(BM_ShortLabelWithChangingText);

void BM_WordWrap(benchmark::State& state) {
    StartToolkit();
    const Theme theme;
    const std::string text = LongText();
    std::string wrapped;
    for (auto _ : state) {
        WrapWords(theme, text, 0.5f, wrapped);
        benchmark::DoNotOptimize(wrapped.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_WordWrap);

/// The line breaks that Label finds, found by measuring the whole line again per character.
void BM_WordWrapByMeasuringEachLineAgain(benchmark::State& state) {
    StartToolkit();
    const Theme theme;
    const std::string text = LongText();
    std::string line;
    std::string wrapped;
    for (auto _ : state) {
        line.clear();
        wrapped.clear();
        for (const char character : text) {
            line += character;
            if (MeasureText(theme, line) > 0.5f) {
                const std::size_t blank = wrapped.find_last_of(" \t");
                if (blank != std::string::npos) {
                    wrapped[blank] = '\n';
                    line.clear();
                }
            }
            wrapped += character;
        }
        benchmark::DoNotOptimize(wrapped.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_WordWrapByMeasuringEachLineAgain);

void BM_TagLookup(benchmark::State& state) {
    StartToolkit();
    for (auto _ : state)
        benchmark::DoNotOptimize(GLWidget::GetByTag("justiceslide"));
}
BENCHMARK(BM_TagLookup);

void BM_MouseMove(benchmark::State& state) {
    StartToolkit();
    int step = 0;
    for (auto _ : state) {
        ++step;
        GLWidget::MouseMoveWidgets(
            Vector(static_cast<float>(step % 800), static_cast<float>(step % 600)));
    }
}
BENCHMARK(BM_MouseMove);

void BM_MouseClick(benchmark::State& state) {
    StartToolkit();
    for (auto _ : state)
        GLWidget::MouseClickWidgets(false, false, false);
}
BENCHMARK(BM_MouseClick);

void BM_Update(benchmark::State& state) {
    StartToolkit();
    for (auto _ : state)
        GLWidget::UpdateWidgets(16);
}
BENCHMARK(BM_Update);

}  // namespace

BENCHMARK_MAIN();
