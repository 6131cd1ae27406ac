#include "Svg.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <tuple>

#include <TerrixExchange/archive/NumberText.h>

#include "FileUnits.h"

namespace TerrixTool {
namespace Svg {

namespace {

// Room around the plotting area: tick values on the left, the title and a
// depth chart's horizontal axis on top, the legend below.
const int marginLeft = 52;
// Room on the right for half of the last tick value ("15000").
const int marginRight = 26;
const int marginTop = 52;
const int marginBottom = 14;
const int legendRowHeight = 16;

// A coordinate, to a tenth of a pixel: tenths counted as a whole number,
// which is quicker than formatting the double; a value beyond pixels (or no
// number) is formatted all the same.
std::string Number(double value) {
    if (!(std::fabs(value) < 1e15)) {
        // Room for every digit of the largest double (309) and ".0".
        char wide[320];
        std::snprintf(wide, sizeof wide, "%.1f", value);
        return wide;
    }
    char buffer[32];
    const long long tenths = std::llround(value * 10.0);
    const unsigned long long magnitude = static_cast<unsigned long long>(tenths < 0 ? -tenths : tenths);
    char* end = buffer;
    if (tenths < 0) *end++ = '-';
    // A sign and at most 20 digits go before the point.
    end = std::to_chars(end, buffer + 21, magnitude / 10).ptr;
    *end++ = '.';
    *end++ = static_cast<char>('0' + magnitude % 10);
    return std::string(buffer, end);
}

// Appends every piece to `out` as it is, without a string in between.
template <class... Pieces>
void Append(std::string& out, const Pieces&... pieces) {
    (out.append(pieces), ...);
}

// A range of no width (one value) is widened so that it can be drawn.
std::pair<double, double> Widened(double low, double high) {
    if (!(low <= high)) return {0.0, 1.0};  // no finite data
    if (low == high) {
        const double margin = low == 0.0 ? 1.0 : std::fabs(low) * 0.1;
        return {low - margin, high + margin};
    }
    return {low, high};
}

void Extend(double value, double& low, double& high) {
    if (!std::isfinite(value)) return;
    low = std::min(low, value);
    high = std::max(high, value);
}

}  // namespace

std::string Escaped(const std::string& text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            case '"': escaped += "&quot;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

std::vector<double> Ticks(double low, double high, int count) {
    const double span = high - low;
    if (!(span > 0) || !std::isfinite(span)) return {low};
    const double rough = span / std::max(count, 1);
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    double step = power;
    for (const double factor : {1.0, 2.0, 5.0, 10.0})
        if (factor * power >= rough) {
            step = factor * power;
            break;
        }
    std::vector<double> ticks;
    const double first = std::floor(low / step + 1e-9);
    const double last = std::ceil(high / step - 1e-9);
    for (double k = first; k <= last && ticks.size() < 50; k += 1.0) {
        const double value = k * step;
        ticks.push_back(std::fabs(value) < step * 1e-9 ? 0.0 : value);
    }
    return ticks;
}

std::string TickText(double value) {
    // Six significant digits take away the noise of k * step.
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.6g", value);
    double rounded = value;
    TerrixExchange::ParseReal(buffer, rounded);
    return Compact(rounded, 8);
}

const char* SeriesColour(std::size_t index) {
    static const char* const colours[] = {"#1f5fa8", "#c0392b", "#2e8b57", "#8e44ad", "#d68910", "#17808a"};
    return colours[index % (sizeof colours / sizeof colours[0])];
}

Chart::Chart(std::string title, std::string xAxis, std::string yAxis, bool depthDown, int width, int height)
    : title_(std::move(title)),
      xAxis_(std::move(xAxis)),
      yAxis_(std::move(yAxis)),
      depthDown_(depthDown),
      width_(width),
      height_(height) {}

void Chart::SetXRange(double low, double high) {
    hasXRange_ = true;
    xLow_ = low;
    xHigh_ = high;
}

void Chart::SetYRange(double low, double high) {
    hasYRange_ = true;
    yLow_ = low;
    yHigh_ = high;
}

std::pair<double, double> Chart::XData() const {
    if (hasXRange_) return Widened(xLow_, xHigh_);
    double low = std::numeric_limits<double>::infinity(), high = -low;
    for (const Line& line : lines_)
        for (const Point& point : line.points) Extend(point.x, low, high);
    return Widened(low, high);
}

std::pair<double, double> Chart::YData() const {
    if (hasYRange_) return Widened(yLow_, yHigh_);
    double low = std::numeric_limits<double>::infinity(), high = -low;
    for (const Line& line : lines_)
        for (const Point& point : line.points) Extend(point.y, low, high);
    for (const Band& band : bands_) {
        Extend(band.y0, low, high);
        Extend(band.y1, low, high);
    }
    return Widened(low, high);
}

std::string Chart::Render(const std::string& cssClass) const {
    std::size_t labelled = 0;
    for (const Line& line : lines_) labelled += line.label.empty() ? 0 : 1;
    const int legendHeight = static_cast<int>(labelled) * legendRowHeight;
    const int height = height_ + legendHeight;
    const double left = marginLeft, right = width_ - marginRight;
    // A depth chart has its horizontal axis on top, any other chart below.
    const double top = depthDown_ ? marginTop : 24, bottom = height_ - (depthDown_ ? marginBottom : 36);

    // The axes run from tick to tick, so that both ends carry a value.
    // Plain variables, not structured bindings: the lambdas below capture them.
    double xLow = 0.0, xHigh = 0.0, yLow = 0.0, yHigh = 0.0;
    std::tie(xLow, xHigh) = XData();
    std::tie(yLow, yHigh) = YData();
    const std::vector<double> xTicks = showXAxis_ ? Ticks(xLow, xHigh, 4) : std::vector<double>{};
    if (xTicks.size() > 1) xLow = xTicks.front(), xHigh = xTicks.back();
    const std::vector<double> yTicks = Ticks(yLow, yHigh, 8);
    if (yTicks.size() > 1 && !hasYRange_) yLow = yTicks.front(), yHigh = yTicks.back();
    auto X = [&](double x) { return left + (x - xLow) / (xHigh - xLow) * (right - left); };
    auto Y = [&](double y) {
        const double share = (y - yLow) / (yHigh - yLow);
        return depthDown_ ? top + share * (bottom - top) : bottom - share * (bottom - top);
    };
    auto clampY = [&](double y) { return std::min(std::max(Y(y), top), bottom); };

    std::string svg;
    Append(svg, "<svg class=\"plot ", cssClass, "\" xmlns=\"http://www.w3.org/2000/svg\" width=\"",
           std::to_string(width_), "\" height=\"", std::to_string(height), "\" viewBox=\"0 0 ", std::to_string(width_),
           " ", std::to_string(height), "\" role=\"img\">");
    Append(svg, "<title>", Escaped(title_), "</title>");
    Append(svg, "<text class=\"title\" x=\"", Number(width_ / 2.0), "\" y=\"14\" text-anchor=\"middle\">",
           Escaped(title_), "</text>");

    for (const Band& band : bands_) {
        const double y0 = clampY(band.y0), y1 = clampY(band.y1);
        Append(svg, "<rect x=\"", Number(left), "\" y=\"", Number(std::min(y0, y1)), "\" width=\"",
               Number(right - left), "\" height=\"", Number(std::fabs(y1 - y0)), "\" fill=\"", band.colour,
               "\" stroke=\"#555\" stroke-width=\"0.5\"/>");
        if (std::fabs(y1 - y0) >= 11)
            Append(svg, "<text class=\"band\" x=\"", Number((left + right) / 2), "\" y=\"", Number((y0 + y1) / 2 + 4),
                   "\" text-anchor=\"middle\">", Escaped(band.label), "</text>");
    }

    // Grid and tick values.
    Append(svg, "<g class=\"axis\">");
    for (const double tick : yTicks) {
        if (tick < std::min(yLow, yHigh) || tick > std::max(yLow, yHigh)) continue;
        const std::string y = Number(Y(tick));
        Append(svg, "<line class=\"grid\" x1=\"", Number(left), "\" x2=\"", Number(right), "\" y1=\"", y, "\" y2=\"", y,
               "\"/>");
        Append(svg, "<text x=\"", Number(left - 4), "\" y=\"", Number(Y(tick) + 4), "\" text-anchor=\"end\">",
               TickText(tick), "</text>");
    }
    const double xAxisY = depthDown_ ? top : bottom;
    const double tickTextY = depthDown_ ? top - 5 : bottom + 13;
    for (const double tick : xTicks) {
        const std::string x = Number(X(tick));
        Append(svg, "<line class=\"grid\" x1=\"", x, "\" x2=\"", x, "\" y1=\"", Number(top), "\" y2=\"", Number(bottom),
               "\"/>");
        Append(svg, "<text x=\"", x, "\" y=\"", Number(tickTextY), "\" text-anchor=\"middle\">", TickText(tick),
               "</text>");
    }
    Append(svg, "<rect class=\"frame\" x=\"", Number(left), "\" y=\"", Number(top), "\" width=\"", Number(right - left),
           "\" height=\"", Number(bottom - top), "\"/>");
    if (showXAxis_)
        // Centred on the whole chart: a long axis title may be wider than
        // the plotting area.
        Append(svg, "<text class=\"unit\" x=\"", Number(width_ / 2.0), "\" y=\"", Number(depthDown_ ? 30 : xAxisY + 26),
               "\" text-anchor=\"middle\">", Escaped(xAxis_), "</text>");
    Append(svg, "<text class=\"unit\" transform=\"translate(12 ", Number((top + bottom) / 2),
           ") rotate(-90)\" text-anchor=\"middle\">", Escaped(yAxis_), "</text>");
    Append(svg, "</g>");

    for (const Level& level : levels_) {
        if (!std::isfinite(level.y)) continue;
        const std::string y = Number(clampY(level.y));
        Append(svg, "<line x1=\"", Number(left), "\" x2=\"", Number(right), "\" y1=\"", y, "\" y2=\"", y,
               "\" stroke=\"", level.colour, "\" stroke-width=\"2\" stroke-dasharray=\"6 3\"/>");
        Append(svg, "<text class=\"level\" x=\"", Number(right - 2), "\" y=\"", Number(clampY(level.y) - 3),
               "\" text-anchor=\"end\" fill=\"", level.colour, "\">", Escaped(level.label), "</text>");
    }

    // The lines, clipped to the plotting area.
    for (const Line& line : lines_) {
        std::string points;
        auto flush = [&] {
            if (!points.empty())
                Append(svg, "<polyline fill=\"none\" stroke=\"", line.colour, "\" stroke-width=\"1.5\" points=\"",
                       points, "\"/>");
            points.clear();
        };
        for (const Point& point : line.points) {
            if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
                flush();
                continue;
            }
            Append(points, (points.empty() ? "" : " "), Number(X(point.x)), ",", Number(clampY(point.y)));
        }
        flush();
    }

    // The legend, one line per labelled line, under the chart.
    double legendY = height_ + 2;
    for (const Line& line : lines_) {
        if (line.label.empty()) continue;
        Append(svg, "<line x1=\"", Number(left), "\" x2=\"", Number(left + 18), "\" y1=\"", Number(legendY + 4),
               "\" y2=\"", Number(legendY + 4), "\" stroke=\"", line.colour, "\" stroke-width=\"2\"/>");
        Append(svg, "<text class=\"legend\" x=\"", Number(left + 24), "\" y=\"", Number(legendY + 8), "\">",
               Escaped(line.label), "</text>");
        legendY += legendRowHeight;
    }
    svg += "</svg>";
    return svg;
}

}  // namespace Svg
}  // namespace TerrixTool
