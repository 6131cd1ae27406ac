#pragma once

// A small drawing module for the report: charts as inline SVG, with axes
// that carry readable tick values (steps of 1, 2 or 5 times a power of ten)
// and their units, polylines, horizontal bands and levels, and a legend.
// Everything the report draws goes through here, so that every chart looks
// alike and no SVG text is pasted together anywhere else.

#include <string>
#include <utility>
#include <vector>

namespace TerrixTool {
namespace Svg {

// Text as XML and HTML content or attribute value.
std::string Escaped(const std::string& text);

// About `count` round values covering [low, high]: multiples of 1, 2 or 5
// times a power of ten, the first at or below `low`, the last at or above
// `high`.
std::vector<double> Ticks(double low, double high, int count);

// A tick value as text: as few digits as it takes ("0.25", "1e+06").
std::string TickText(double value);

struct Point {
    double x;
    double y;
};

// A line through points; a point that is not finite breaks it in two.
struct Line {
    std::string label;  // in the legend; none when empty
    std::string colour;
    std::vector<Point> points;
};

// A stretch of the vertical axis from y0 to y1, filled across the chart,
// with its label written inside.
struct Band {
    double y0;
    double y1;
    std::string colour;
    std::string label;
};

// A level across the chart: a dashed line with its label.
struct Level {
    double y;
    std::string colour;
    std::string label;
};

// One chart. With `depthDown` the vertical axis grows downwards, as depths
// do; the horizontal axis is always drawn at the top then, where a reader
// of a depth plot looks for it. Ranges not set are taken from the data.
class Chart {
public:
    Chart(std::string title, std::string xAxis, std::string yAxis, bool depthDown, int width, int height);

    void SetXRange(double low, double high);
    void SetYRange(double low, double high);
    // No horizontal axis (a soil column has none).
    void HideXAxis() { showXAxis_ = false; }
    void AddLine(Line line) { lines_.push_back(std::move(line)); }
    void AddBand(Band band) { bands_.push_back(std::move(band)); }
    void AddLevel(Level level) { levels_.push_back(std::move(level)); }

    // <svg class="plot CLASS" ...>...</svg>
    std::string Render(const std::string& cssClass) const;

private:
    std::pair<double, double> XData() const;
    std::pair<double, double> YData() const;

    std::string title_;
    std::string xAxis_;
    std::string yAxis_;
    bool depthDown_;
    int width_;
    int height_;
    bool showXAxis_ = true;
    bool hasXRange_ = false;
    bool hasYRange_ = false;
    double xLow_ = 0, xHigh_ = 1, yLow_ = 0, yHigh_ = 1;
    std::vector<Line> lines_;
    std::vector<Band> bands_;
    std::vector<Level> levels_;
};

// Colours that tell lines apart, for the i-th line of a chart.
const char* SeriesColour(std::size_t index);

}  // namespace Svg
}  // namespace TerrixTool
