// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/chart.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <system_error>
#include <utility>

#include "glwidget/container.h"
#include "glwidget/drawing.h"
#include "glwidget/numbertext.h"
#include "quarn2/trace.h"

namespace {

// Distances, as multiples of the height of a glyph
constexpr float kPadding = 0.5f;  ///< between the edge of the chart and its texts
constexpr float kAscent = 1.0f;   ///< of capital letters and digits
constexpr float kDescent = 0.35f;
constexpr float kMiddle = 0.45f;    ///< of digits and small letters, above the baseline
constexpr float kGap = 0.5f;        ///< between a text and what it belongs to
constexpr float kLinkWidth = 1.2f;  ///< between the end of a line and its name
constexpr float kInset = 0.25f;     ///< between the edge of the plot and the extreme values
constexpr float kLeastPlot = 2.0f;  ///< width and height of the smallest plot that is useful

constexpr float kShadingOpacity = 0.2f;
constexpr float kBandOpacity = 0.1f;
constexpr float kThinLine = 1.0f;   ///< pixels
constexpr float kPointSize = 5.0f;  ///< pixels; of the values at the mouse
/// Added above the highest value for those that are infinite, as a share of the range.
constexpr double kRoomForInfinite = 0.1;
/// To both sides of a value that never changes, as a share of it.
constexpr double kRoomForConstant = 0.1;

constexpr std::size_t kWeekTextSize = 64;

struct SeriesLook {
    Vector colour;          ///< for a light ground, without the series' theme file
    std::uint16_t pattern;  ///< of the line, a bit per pixel
};
// Colours of Okabe and Ito, darkened until all of them have enough contrast to a light ground and
// differ for the colour blind.
const SeriesLook kLooks[] = {
    {Vector(0.0f, 0.34f, 0.54f), 0xFFFF},   // blue, solid
    {Vector(0.53f, 0.22f, 0.0f), 0x0FFF},   // vermilion, dashes
    {Vector(0.0f, 0.19f, 0.13f), 0x3333},   // dark green, dots
    {Vector(0.46f, 0.26f, 0.37f), 0x18FF},  // purple, dashes and dots
};
static_assert(std::size(kLooks) == Chart::kMaxSeries);

/// The theme of that file's name. Without the file it has the colour of the look.
Theme* MakeSeriesTheme(const char* file, const SeriesLook& look) {
    const auto known = GLWidget::themes.find(std::string_view(file));
    if (known != GLWidget::themes.end() && known->second != nullptr)
        return known->second;
    std::error_code unreadable;
    if (std::filesystem::exists(file, unreadable))
        return GLWidget::ThemeNamed(file, file);
    Theme* const theme = GLWidget::NewTheme(file);
    theme->textColour = theme->lineColour = look.colour;
    return theme;
}

void WriteWeek(float week, std::span<char> text) {
    std::snprintf(text.data(), text.size(), "Week %.0f", static_cast<double>(week));
}

/// The text for a week.
class WeekBuffer {
public:
    WeekBuffer(const Chart::WeekText& write, float week) {
        write(week, characters);
        characters.back() = '\0';
    }
    const char* Text() const { return characters.data(); }

private:
    std::array<char, kWeekTextSize> characters{};
};

int DecimalsFor(double largest) {
    if (largest >= 100.0)
        return 0;
    return largest >= 10.0 ? 1 : 2;
}

bool IsWhole(float value) {
    return std::trunc(value) == value;
}

std::string Number(double value, int decimals) {
    std::array<char, kNumberTextSize> buffer;
    return std::string(NumberText(value, decimals, buffer));
}

Vector Mix(const Vector& below, const Vector& above, float opacity) {
    const auto channel = [opacity](float a, float b) { return a + opacity * (b - a); };
    return {channel(below.x, above.x), channel(below.y, above.y), channel(below.z, above.z)};
}

/// The last value of a series that is a number or infinite; NaN if there is none.
float LastKnown(std::span<const float> values) {
    const auto known = std::find_if(values.rbegin(), values.rend(),
                                    [](float value) { return !std::isnan(value); });
    return known != values.rend() ? *known : Chart::kNone;
}

bool FitsWeeks(std::size_t count, std::size_t weeks) {
    return count <= 1 || count == weeks;
}

/// Never destroyed, because it may be drawn while the process ends.
const std::string& NoDataText() {
    static const std::string& text = *new std::string(Chart::kNoData);
    return text;
}

void SetPattern(std::uint16_t pattern) {
    glLineStipple(1, pattern);
    glEnable(GL_LINE_STIPPLE);
}

}  // namespace

Chart::Chart(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
             const Vector& size, const std::string& caption)
    : GLWidget(name, parent, position, theme), readingText(WriteWeek), axisText(WriteWeek) {
    TraceFrame frame("Chart", "Chart");
    this->size = size;
    text = caption;
    for (std::size_t index = 0; index < kMaxSeries; ++index)
        seriesThemes[index] = MakeSeriesTheme(kSeriesThemes[index], kLooks[index]);
    Prepare();
}

void Chart::SetText(std::string_view newText) {
    TraceFrame frame("SetText", "Chart");
    if (newText == text)
        return;
    text = newText;
    Prepare();
}

void Chart::SetWeekTexts(WeekText ofReading, WeekText ofAxis) {
    TraceFrame frame("SetWeekTexts", "Chart");
    readingText = std::move(ofReading);
    axisText = std::move(ofAxis);
}

void Chart::SetData(const Data& data) {
    TraceFrame frame("SetData", "Chart");
    const std::size_t count = data.weeks.size();
    const auto fits = [count](const Series& series) { return series.values.size() == count; };
    Assert("glwidget/chart", __LINE__, "data.series.size() <= kMaxSeries",
           data.series.size() <= kMaxSeries);
    Assert("glwidget/chart", __LINE__, "each series has a value per week",
           std::ranges::all_of(data.series, fits));
    Assert("glwidget/chart", __LINE__, "the weeks rise",
           std::ranges::adjacent_find(data.weeks, std::not_fn(std::less<>())) == data.weeks.end());
    Assert("glwidget/chart", __LINE__, "mark, band and shading fit the weeks",
           FitsWeeks(data.mark.values.size(), count) && FitsWeeks(data.band.low.size(), count)
               && data.band.low.size() == data.band.high.size()
               && (data.shaded.empty() || data.shaded.size() == count));
    weeks.assign(data.weeks.begin(), data.weeks.end());
    seriesCount = data.series.size();
    for (std::size_t index = 0; index < seriesCount; ++index) {
        const Series& series = data.series[index];
        names[index] = series.name;
        values[index].assign(series.values.begin(), series.values.end());
    }
    shaded.assign(data.shaded.begin(), data.shaded.end());
    markName = data.mark.name;
    mark.assign(data.mark.values.begin(), data.mark.values.end());
    bandName = data.band.name;
    bandLow.assign(data.band.low.begin(), data.band.low.end());
    bandHigh.assign(data.band.high.begin(), data.band.high.end());
    alwaysLow = data.alwaysLow;
    alwaysHigh = data.alwaysHigh;
    limit = data.limit;
    Prepare();
}

Chart::Measure Chart::MeasureNow() const {
    return {fontLoads, theme->fontSize.x, theme->fontSize.y,
            2.0f * guiScale / static_cast<float>(std::max(viewport[3], 1))};
}

bool Chart::Update(int milliseconds) {
    TraceFrame frame("Update", "Chart");
    if (measure != MeasureNow())
        Prepare();
    return GLWidget::Update(milliseconds);
}

float Chart::TextWidth(const std::string& line) const {
    return MeasureText(*theme, line);
}

float Chart::LineStep() const {
    return FontRender::kLineStep * theme->fontSize.y;
}

float Chart::CaptionBaseline() const {
    return size.y - (kPadding + kAscent) * theme->fontSize.y;
}

float Chart::LowerBaseline() const {
    return (kPadding + kDescent) * theme->fontSize.y;
}

void Chart::Prepare() {
    TraceFrame frame("Prepare", "Chart");
    prepared = ++Toolkit::Get().changes;
    measure = MeasureNow();
    missingSize = Vector();
    endNameCount = 0;
    FindRange();
    PrepareAxis();
    PrepareEndNames();
    PlaceAxisTexts();
    PrepareReading();
    PrepareVertices();
    hovered = -1;
    Read(SampleAt(mouse));
}

void Chart::ValueRange::Add(double value) {
    lowest = any ? std::min(lowest, value) : value;
    highest = any ? std::max(highest, value) : value;
    any = true;
}

void Chart::FindRange() {
    shown = {};
    beyondLimit = false;
    bool infinite = false;
    bool whole = true;
    for (std::size_t index = 0; index < seriesCount; ++index) {
        for (const float value : values[index]) {
            beyondLimit = beyondLimit || IsBeyond(value);
            infinite = infinite || std::isinf(value);
            if (!std::isfinite(value) || IsBeyond(value))
                continue;
            shown.Add(value);
            whole = whole && IsWhole(value);
        }
    }
    decimals = whole ? 0 : DecimalsFor(std::max(std::abs(shown.lowest), std::abs(shown.highest)));
    ValueRange range = shown;
    const auto add = [&](float value) {
        if (std::isfinite(value) && !IsBeyond(value))
            range.Add(value);
    };
    for (const std::vector<float>* each : {&mark, &bandLow, &bandHigh})
        std::ranges::for_each(*each, add);
    add(alwaysLow);
    add(alwaysHigh);
    if (beyondLimit && std::isfinite(limit))
        range.Add(limit);
    const double length = range.highest - range.lowest;
    if (length <= 0.0) {
        const double room = std::max(std::abs(range.highest) * kRoomForConstant, 1.0);
        range.lowest -= room;
        range.highest += room;
    } else if (infinite && !std::isfinite(limit)) {
        range.highest += length * kRoomForInfinite;
        range.lowest -= length * kRoomForInfinite;
    }
    plot.lowest = range.lowest;
    plot.highest = range.highest;
}

void Chart::PrepareAxis() {
    const float unit = theme->fontSize.y;
    const float padding = kPadding * unit;
    lowestText.text.clear();
    highestText.text.clear();
    firstText.text.clear();
    lastText.text.clear();
    const float top = CaptionBaseline() - (kDescent + kGap) * unit;
    const float bottom = LowerBaseline() + (kAscent + kGap) * unit;
    plot.corner = Vector(padding, bottom + kInset * unit);
    plot.size = Vector(size.x - 2.0f * padding, top - bottom - 2.0f * kInset * unit);
    if (!HasData())
        return;
    plot.firstWeek = weeks.size() > 1 ? weeks.front() : weeks.front() - 1.0;
    plot.lastWeek = weeks.back();
    if (shown.any)
        lowestText.text = Number(shown.lowest, decimals);
    if (beyondLimit && std::isfinite(limit)) {
        // A whole limit is written without decimals, even if the values have some.
        highestText.text = "over " + Number(limit, IsWhole(limit) ? 0 : decimals);
    } else if (shown.any) {
        highestText.text = Number(shown.highest, decimals);
    }
    if (highestText.text == lowestText.text)
        lowestText.text.clear();
    const float width = std::max(TextWidth(lowestText.text), TextWidth(highestText.text));
    if (!highestText.text.empty()) {
        plot.corner.x += width + kGap * unit;
        plot.size.x -= width + kGap * unit;
    }
    firstText.text = WeekBuffer(axisText, weeks.front()).Text();
    lastText.text = WeekBuffer(axisText, weeks.back()).Text();
    if (firstText.text == lastText.text)
        firstText.text.clear();
}

void Chart::PrepareEndNames() {
    const float unit = theme->fontSize.y;
    if (!HasData())
        return;
    for (std::size_t index = 0; index < seriesCount; ++index)
        AddEndName(names[index], index, LastKnown(values[index]));
    if (!mark.empty())
        AddEndName(markName, kMaxSeries, LastKnown(mark));
    if (!bandLow.empty())
        AddEndName(bandName, kMaxSeries, (LastKnown(bandLow) + LastKnown(bandHigh)) / 2.0f);
    const std::span<EndName> all(endNames.data(), endNameCount);
    float width = 0.0f;
    for (const EndName& each : all)
        width = std::max(width, TextWidth(each.name.text));
    if (!all.empty())
        plot.size.x -= width + kLinkWidth * unit;
    missingSize.x = std::max(kLeastPlot * unit - plot.size.x, 0.0f);
    plot.size.x = std::max(plot.size.x, 0.0f);
    const float rows = static_cast<float>(endNameCount) * LineStep();
    missingSize.y = std::max(std::max(kLeastPlot * unit, rows) - plot.size.y, 0.0f);
    plot.size.y = std::max(plot.size.y, 0.0f);
    PlaceEndNames(plot.corner.x + plot.size.x + kLinkWidth * unit);
}

void Chart::AddEndName(const std::string& name, std::size_t series, double value) {
    if (name.empty() || std::isnan(value))
        return;
    EndName& each = endNames[endNameCount++];
    each.name.text = name;
    each.series = series;
    each.end = plot.Y(value);
}

void Chart::PlaceEndNames(float left) {
    const float unit = theme->fontSize.y;
    const std::span<EndName> all(endNames.data(), endNameCount);
    // Of lines that end at one height the first has the highest name.
    std::ranges::reverse(all);
    std::ranges::stable_sort(all, {}, &EndName::end);
    std::array<float, kMaxSeries + 2> baselines{};
    std::ranges::transform(all, baselines.begin(),
                           [&](const EndName& each) { return each.end - kMiddle * unit; });
    SpreadApart({baselines.data(), endNameCount}, LineStep(), plot.corner.y - kInset * unit,
                plot.corner.y + plot.size.y - kAscent * unit + kInset * unit);
    for (std::size_t index = 0; index < endNameCount; ++index)
        all[index].name.place = Vector(left, baselines[index]);
}

void Chart::PlaceAxisTexts() {
    const float unit = theme->fontSize.y;
    const float right = plot.corner.x + plot.size.x;
    firstText.place = Vector(plot.corner.x, LowerBaseline());
    lastText.place = Vector(right - TextWidth(lastText.text), LowerBaseline());
    if (lastText.place.x < plot.corner.x + TextWidth(firstText.text) + unit)
        firstText.text.clear();
    lastText.place.x = std::max(lastText.place.x, kPadding * unit);
    if (highestText.text.empty())
        return;
    std::array<float, 2> baselines{plot.Y(shown.lowest) - kMiddle * unit,
                                   plot.Y(beyondLimit ? limit : shown.highest) - kMiddle * unit};
    const std::span<float> all =
        lowestText.text.empty() ? std::span<float>(baselines).last(1) : std::span<float>(baselines);
    SpreadApart(all, (kAscent + kDescent) * unit, plot.corner.y - kInset * unit,
                plot.corner.y + plot.size.y - (kAscent - kInset) * unit);
    const auto left = [&](const PlacedText& each) {
        return plot.corner.x - kGap * unit - TextWidth(each.text);
    };
    lowestText.place = Vector(left(lowestText), baselines.front());
    highestText.place = Vector(left(highestText), baselines.back());
}

void Chart::PrepareReading() {
    const float unit = theme->fontSize.y;
    const float left = kPadding * unit;
    const float right = size.x - left;
    const float gap = 2.0f * kGap * unit;
    if (!HasData())
        return;
    std::array<float, 1 + kMaxSeries> widths{};
    for (const float week : weeks)
        widths[0] = std::max(widths[0], TextWidth(WeekBuffer(readingText, week).Text()));
    float sum = -gap;
    for (std::size_t index = 0; index < seriesCount; ++index) {
        widths[index + 1] = WidestReading(index);
        sum += widths[index + 1] + gap;
        reading[index + 1].text.reserve(names[index].size() + 1 + kNumberTextSize);
    }
    reading[0].text.reserve(kWeekTextSize);
    const bool oneRow = sum <= right - left;
    weekReplacesCaption = !oneRow || left + TextWidth(text) + gap + widths[0] > right;
    reading[0].place = Vector(weekReplacesCaption ? left : right - widths[0], CaptionBaseline());
    // If one row is not enough, the values begin beside the week.
    float x = oneRow ? left : left + widths[0] + gap;
    float baseline = oneRow ? LowerBaseline() : CaptionBaseline();
    for (std::size_t index = 1; index <= seriesCount; ++index) {
        if (x + widths[index] > right && baseline > LowerBaseline()) {
            x = left;
            baseline = LowerBaseline();
        }
        reading[index].place = Vector(x, baseline);
        missingSize.x = std::max(missingSize.x, x + widths[index] - right);
        x += widths[index] + gap;
    }
}

float Chart::WidestReading(std::size_t index) const {
    float widest = 0.0f;
    ValueRange range;
    const auto add = [&](double value) {
        widest = std::max(widest, TextWidth(names[index] + ' ' + Number(value, decimals)));
    };
    for (const float value : values[index]) {
        if (!std::isnan(value))
            range.Add(value);
    }
    if (range.any) {
        add(range.lowest);
        add(range.highest);
    }
    if (std::ranges::any_of(values[index], [](float value) { return std::isnan(value); }))
        add(kNone);
    return widest;
}

void Chart::PrepareVertices() {
    const float pixels =
        std::clamp(plot.size.x / measure.pixel, 1.0f, static_cast<float>(PlotArea::kMaxColumns));
    plot.columns = static_cast<int>(std::isnan(pixels) ? 1.0f : pixels);
    vertices.Clear();
    markRuns.clear();
    for (std::vector<Vertices::Run>& runs : seriesRuns)
        runs.clear();
    shading = band = {};
    if (!HasData())
        return;
    AddShading(plot, weeks, shaded, vertices);
    shading = vertices.Since(0);
    if (!bandLow.empty())
        AddBand(plot, weeks, bandLow, bandHigh, vertices);
    band = vertices.Since(shading.count);
    if (mark.size() == 1 && !std::isnan(mark.front())) {
        const std::int32_t first = vertices.Count();
        vertices.Add(plot.corner.x, plot.Y(mark.front()));
        vertices.Add(plot.corner.x + plot.size.x, plot.Y(mark.front()));
        markRuns.push_back(vertices.Since(first));
    } else if (mark.size() > 1) {
        AddLine(plot, weeks, mark, vertices, markRuns);
    }
    for (std::size_t index = 0; index < seriesCount; ++index)
        AddLine(plot, weeks, values[index], vertices, seriesRuns[index]);
}

bool Chart::MouseMove(float x, float y) {
    TraceFrame frame("MouseMove", "Chart");
    GLWidget::MouseMove(x, y);
    const std::int32_t sample = SampleAt(mouse);
    if (sample != hovered)
        Read(sample);
    return true;
}

std::int32_t Chart::SampleAt(const Vector& point) const {
    const Vector box = PlotBox();
    if (!HasData() || point.x < box.x || point.x > box.z || point.y < box.y || point.y > box.w)
        return -1;
    const double share =
        static_cast<double>(point.x - box.x) / std::max(plot.size.x, measure.pixel);
    const double week = plot.firstWeek + share * (plot.lastWeek - plot.firstWeek);
    const auto after = std::ranges::lower_bound(weeks, week);
    if (after == weeks.begin())
        return 0;
    const auto before = after - 1;
    const bool nearer = after == weeks.end() || week - *before < *after - week;
    return static_cast<std::int32_t>((nearer ? before : after) - weeks.begin());
}

void Chart::Read(std::int32_t sample) {
    hovered = sample;
    if (sample < 0)
        return;
    const auto place = static_cast<std::size_t>(sample);
    reading[0].text = WeekBuffer(readingText, weeks[place]).Text();
    std::array<char, kNumberTextSize> buffer;
    for (std::size_t index = 0; index < seriesCount; ++index) {
        std::string& line = reading[index + 1].text;
        line = names[index];
        line += ' ';
        line += NumberText(values[index][place], decimals, buffer);
    }
}

Vector Chart::PlotBox() const {
    const Vector corner = position + plot.corner;
    return {corner.x, corner.y, corner.x + plot.size.x, corner.y + plot.size.y};
}

std::array<Vector, 4> Chart::Grounds(float brightness) const {
    const Vector plain = Mix(Vector(), theme->fillColour, brightness);
    const Vector shade = Mix(plain, theme->lineColour, kShadingOpacity);
    return {plain, shade, Mix(plain, theme->textColour, kBandOpacity),
            Mix(shade, theme->textColour, kBandOpacity)};
}

std::string_view Chart::ReadingOf(std::size_t index) const {
    return hovered >= 0 && index <= seriesCount ? std::string_view(reading[index].text) : "";
}

void Chart::Render() {
    TraceFrame frame("Render", "Chart");
    Assert("glwidget/chart", __LINE__, "rendering", rendering);
    const MatrixScope matrix;
    EnableBlending();
    DisableDepthTest();
    SetTexturing(false);
    Translate(position.x, position.y);
    DrawGround();
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, vertices.Data());
    DrawAreas();
    DrawAxes();
    DrawSeries();
    glDisableClientState(GL_VERTEX_ARRAY);
    DrawLinks();
    if (hovered >= 0)
        DrawPointer();
    DrawTexts();
}

void Chart::AddAppearance(Fingerprint& print) {
    AddBase(print);
    for (const Theme* series : seriesThemes)
        print.Add(*series);
    print.Add(text);
    print.Add(prepared);
    print.Add(hovered);
}

void Chart::DrawGround() const {
    const MatrixScope matrix;
    Translate(size.x / 2.0f, size.y / 2.0f);
    glLineWidth(theme->lineWidth);
    // The corners are cut as in a box of one row, so that no text stands over the cut.
    const float cut = theme->corner * std::min(LineStep() / std::max(size.y, measure.pixel), 1.0f);
    container::DrawPanel(*theme, Brightness(*theme, highlight), size.x, size.y, cut);
}

void Chart::DrawAreas() const {
    SetColour(theme->lineColour, 1.0f, kShadingOpacity);
    glDrawArrays(GL_QUADS, shading.first, shading.count);
    SetColour(theme->textColour, 1.0f, kBandOpacity);
    glDrawArrays(GL_QUADS, band.first, band.count);
}

void Chart::DrawAxes() const {
    SetColour(theme->lineColour);
    glLineWidth(kThinLine);
    const float inset = kInset * theme->fontSize.y;
    const float bottom = plot.corner.y - inset;
    glBegin(GL_LINE_STRIP);
    glVertex2f(plot.corner.x, plot.corner.y + plot.size.y + inset);
    glVertex2f(plot.corner.x, bottom);
    glVertex2f(plot.corner.x + plot.size.x, bottom);
    glEnd();
    for (const Vertices::Run& run : markRuns)
        glDrawArrays(GL_LINE_STRIP, run.first, run.count);
}

void Chart::DrawSeries() const {
    // The first series is the most important one, so it is on top.
    for (std::size_t index = seriesCount; index-- > 0;) {
        SetColour(seriesThemes[index]->lineColour);
        glLineWidth(seriesThemes[index]->lineWidth);
        SetPattern(kLooks[index].pattern);
        for (const Vertices::Run& run : seriesRuns[index])
            glDrawArrays(GL_LINE_STRIP, run.first, run.count);
    }
    glDisable(GL_LINE_STIPPLE);
}

void Chart::DrawLinks() const {
    const float unit = theme->fontSize.y;
    const float edge = plot.corner.x + plot.size.x;
    glLineWidth(kThinLine);
    for (const EndName& each : std::span(endNames.data(), endNameCount)) {
        const bool isSeries = each.series < kMaxSeries;
        SetColour(isSeries ? seriesThemes[each.series]->lineColour : theme->lineColour);
        glBegin(GL_LINES);
        glVertex2f(edge + kInset * unit, each.end);
        glVertex2f(each.name.place.x - kInset * unit, each.name.place.y + kMiddle * unit);
        glEnd();
    }
}

void Chart::DrawPointer() const {
    const auto place = static_cast<std::size_t>(hovered);
    const float x = plot.X(weeks[place]);
    const float inset = kInset * theme->fontSize.y;
    const float half = measure.pixel * kPointSize / 2.0f;
    SetColour(theme->textColour);
    glLineWidth(kThinLine);
    glBegin(GL_LINES);
    glVertex2f(x, plot.corner.y - inset);
    glVertex2f(x, plot.corner.y + plot.size.y + inset);
    glEnd();
    glBegin(GL_QUADS);
    for (std::size_t index = 0; index < seriesCount; ++index) {
        const float value = values[index][place];
        if (std::isnan(value))
            continue;
        const float y = plot.Y(value);
        SetColour(seriesThemes[index]->lineColour);
        glVertex2f(x - half, y - half);
        glVertex2f(x + half, y - half);
        glVertex2f(x + half, y + half);
        glVertex2f(x - half, y + half);
    }
    glEnd();
}

void Chart::DrawTexts() const {
    SetColour(theme->textColour);
    if (hovered < 0 || !weekReplacesCaption)
        DrawText(text, Vector(kPadding * theme->fontSize.y, CaptionBaseline()));
    if (!HasData()) {
        const std::string& none = NoDataText();
        DrawText(none, plot.corner
                           + Vector((plot.size.x - TextWidth(none)) / 2.0f,
                                    plot.size.y / 2.0f - kMiddle * theme->fontSize.y));
        return;
    }
    DrawText(lowestText.text, lowestText.place);
    DrawText(highestText.text, highestText.place);
    if (hovered < 0) {
        DrawText(firstText.text, firstText.place);
        DrawText(lastText.text, lastText.place);
    } else {
        DrawText(reading[0].text, reading[0].place);
    }
    for (const EndName& each : std::span(endNames.data(), endNameCount)) {
        SetColour(each.series < kMaxSeries ? seriesThemes[each.series]->textColour
                                           : theme->textColour);
        DrawText(each.name.text, each.name.place);
    }
    for (std::size_t index = 0; hovered >= 0 && index < seriesCount; ++index) {
        SetColour(seriesThemes[index]->textColour);
        DrawText(reading[index + 1].text, reading[index + 1].place);
    }
}

void Chart::DrawText(const std::string& line, const Vector& place) const {
    const MatrixScope matrix;
    Translate(place.x, place.y);
    PrintText(*theme, line);
}
