// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/glwidget.h"
#include "glwidget/plot.h"

/// `Chart width height caption`, width and height above 0, at most 10: up to four series of values
/// over weeks, as lines. Each line has a pattern, a colour and its name at its end. While the mouse
/// is over the lines, the chart shows the week that is nearest to it, and the values of that week.
///
/// SetData prepares all that is drawn. Drawing and moving the mouse allocate nothing.
class Chart : public GLWidget {
public:
    static constexpr std::size_t kMaxSeries = 4;
    /// The files of the series' themes, and their names. Without its file a theme has colours for a
    /// light ground. Of a theme the chart uses the text colour, for the name and the values of the
    /// series, and the line colour and line width, for its line.
    static constexpr std::array<const char*, kMaxSeries> kSeriesThemes{
        "series1.theme", "series2.theme", "series3.theme", "series4.theme"};

    static constexpr const char* kNoData = "No weeks yet";
    static constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
    static constexpr float kUnlimited = std::numeric_limits<float>::infinity();

    /// Values of one series. NaN is a gap in the line; an infinite value is at the edge.
    struct Series {
        std::string_view name = {};
        std::span<const float> values = {};  ///< one per week
    };
    /// A thin line at a value that means something. Without values there is none.
    struct Mark {
        std::string_view name = {};
        std::span<const float> values = {};  ///< a single one, or one per week
    };
    /// A range of values that means something. Without values there is none.
    struct Band {
        std::string_view name = {};
        std::span<const float> low = {};   ///< a single value, or one per week
        std::span<const float> high = {};  ///< as many as `low`
    };
    /// What a chart shows. The caller keeps the values until SetData returns.
    struct Data {
        std::span<const float> weeks = {};  ///< rising, not evenly
        std::span<const Series> series = {};
        /// One per week, or empty. The time from the week before to a week whose value is not 0 is
        /// shaded.
        std::span<const std::uint8_t> shaded = {};
        Mark mark = {};
        Band band = {};
        /// The values that the axis shows at least; NaN for no such value.
        float alwaysLow = kNone;
        float alwaysHigh = kNone;
        /// The highest value that the axis shows. What is above it is drawn at the upper edge.
        float limit = kUnlimited;
    };

    /// Writes the text for a week, with a zero at its end, into the characters that it gets. It
    /// must not allocate.
    using WeekText = std::function<void(float week, std::span<char> text)>;

    Chart(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
          const Vector& size, const std::string& caption);

    /// Replaces the caption.
    void SetText(std::string_view newText) override;
    /// Never takes a click.
    bool MouseClick(bool, bool, bool) override { return false; }
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    /// Also prepares the data again if the font or the size of the window has changed.
    bool Update(int milliseconds) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    std::string GetType() override { return "Chart"; }
    void SetFocussed(GLWidget*) override {}

    /// Shows other data, of which it keeps a copy. Call it when a week has been added, not in every
    /// frame.
    void SetData(const Data& data);
    bool HasData() const { return !weeks.empty(); }

    /// Sets how weeks are written, with the next SetData: below the mouse, and at both ends of the
    /// axis. At first both are "Week 12".
    void SetWeekTexts(WeekText ofReading, WeekText ofAxis);

    /// The area of the lines, in the parent's coordinates as Getbbox gives it.
    Vector PlotBox() const;
    /// By how much the chart is too small for its texts, in both directions; 0 if it is not.
    Vector MissingSize() const { return missingSize; }
    /// The colours that lines can be on, at this brightness of the chart: its fill, shaded weeks,
    /// the band, and both.
    std::array<Vector, 4> Grounds(float brightness) const;
    /// The theme of a series.
    const Theme& SeriesTheme(std::size_t index) const { return *seriesThemes[index]; }

    /// The number of the sample that the mouse is at, or -1.
    std::int32_t Hovered() const { return hovered; }
    /// The week that the mouse is at (index 0), or the name and the value of a series (from 1);
    /// empty if there is none.
    std::string_view ReadingOf(std::size_t index) const;
    /// Where that text begins, on its baseline, from the chart's corner.
    Vector ReadingPlace(std::size_t index) const { return reading[index].place; }

private:
    struct ValueRange {
        double lowest = 0.0;
        double highest = 0.0;
        bool any = false;

        void Add(double value);
    };
    /// What is prepared depends on this besides the data.
    struct Measure {
        std::uint32_t fontLoads = 0;
        float glyphWidth = 0.0f;
        float glyphHeight = 0.0f;
        float pixel = 0.0f;  ///< its side in GUI units

        bool operator==(const Measure&) const = default;
    };
    struct PlacedText {
        std::string text;
        Vector place;  ///< start of the baseline
    };
    /// A name at the end of a line or band.
    struct EndName {
        PlacedText name;
        std::size_t series = kMaxSeries;  ///< or kMaxSeries for a mark or a band
        float end = 0.0f;                 ///< height of what it names
    };

    Measure MeasureNow() const;
    void Prepare();
    void FindRange();
    void PrepareAxis();
    void PrepareEndNames();
    void PlaceEndNames(float left);
    void PrepareReading();
    void PrepareVertices();
    void PlaceAxisTexts();
    void AddEndName(const std::string& name, std::size_t series, double value);
    float WidestReading(std::size_t index) const;
    float TextWidth(const std::string& text) const;
    float LineStep() const;
    float CaptionBaseline() const;
    float LowerBaseline() const;

    bool IsBeyond(float value) const { return value > limit; }
    std::int32_t SampleAt(const Vector& point) const;
    void Read(std::int32_t sample);

    void DrawGround() const;
    void DrawAreas() const;
    void DrawAxes() const;
    void DrawSeries() const;
    void DrawPointer() const;
    void DrawLinks() const;
    void DrawTexts() const;
    void DrawText(const std::string& line, const Vector& place) const;

    std::array<Theme*, kMaxSeries> seriesThemes{};  // not owned
    WeekText readingText;
    WeekText axisText;

    // The data
    std::vector<float> weeks;
    std::array<std::string, kMaxSeries> names;
    std::array<std::vector<float>, kMaxSeries> values;
    std::size_t seriesCount = 0;
    std::vector<std::uint8_t> shaded;
    std::string markName;
    std::vector<float> mark;
    std::string bandName;
    std::vector<float> bandLow;
    std::vector<float> bandHigh;
    float alwaysLow = kNone;
    float alwaysHigh = kNone;
    float limit = kUnlimited;

    // What is prepared from them. Places are relative to the chart's corner.
    std::uint64_t prepared = 0;  // as Toolkit counts changes; no two charts have the same
    Measure measure;
    PlotArea plot;
    ValueRange shown;  // of the series, as far as the axis goes
    bool beyondLimit = false;
    int decimals = 0;
    Vertices vertices;
    Vertices::Run shading;
    Vertices::Run band;
    std::vector<Vertices::Run> markRuns;
    std::array<std::vector<Vertices::Run>, kMaxSeries> seriesRuns;
    PlacedText lowestText;
    PlacedText highestText;
    PlacedText firstText;
    PlacedText lastText;
    std::array<EndName, kMaxSeries + 2> endNames;  // rising
    std::size_t endNameCount = 0;
    Vector missingSize;

    // The reading: the week, then the series
    std::array<PlacedText, 1 + kMaxSeries> reading;
    bool weekReplacesCaption = false;
    std::int32_t hovered = -1;
};
