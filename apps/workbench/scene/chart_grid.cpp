#include "scene/chart_grid.h"

#include <cmath>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr double kLeastGridPixels = 110.0;
constexpr int kMostLines = 200;
/// Of a round figure, so that 0.1 and 0.3 - 0.2 count as one.
constexpr double kSlack = 1e-9;

int DecimalsOf(double step) {
    int decimals = 0;
    for (double s = step; decimals < 6 && s < 1.0 - kSlack; s *= 10.0) ++decimals;
    return decimals;
}

std::vector<ChartGridLine> Lines(double from, double to, double step, char side) {
    std::vector<ChartGridLine> lines;
    const double first = std::ceil(from / step);
    for (int i = 0; i < kMostLines; ++i) {
        const double value = (first + i) * step;
        if (value > to) break;
        lines.push_back({value, 0.0, GroupedDigits(value, step) + ' ' + side});
    }
    return lines;
}

}  // namespace

double RoundStep(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least * (1.0 - kSlack)) return factor * power;
    }
    return 10.0 * power;
}

std::string GroupedDigits(double value, double step) {
    std::string text;
    AppendFixed(text, std::abs(value), DecimalsOf(step));
    const std::size_t point = text.find('.');
    for (std::size_t at = point == std::string::npos ? text.size() : point; at > 3;) text.insert(at -= 3, 1, ' ');
    const bool isZero = text.find_first_not_of("0. ") == std::string::npos;
    return value < 0 && !isZero ? "-" + text : text;
}

ChartGrid GridOf(const ChartView& view) {
    const ChartBox box = view.WorldBox();
    ChartGrid grid{.step = RoundStep(kLeastGridPixels * view.MetresPerPixel()), .eastings = {}, .northings = {}};
    grid.eastings = Lines(box.minX, box.maxX, grid.step, 'E');
    grid.northings = Lines(box.minY, box.maxY, grid.step, 'N');
    for (ChartGridLine& line : grid.eastings) line.pixel = view.ToPixel({line.value, 0.0}).x;
    for (ChartGridLine& line : grid.northings) line.pixel = view.ToPixel({0.0, line.value}).y;
    return grid;
}

std::vector<ChartLegendMark> LegendMarks(double least, double greatest, double most) {
    const double span = greatest - least;
    if (!(span > 0.0) || !(most >= 1.0)) return {{0.0, GroupedDigits(least, std::abs(least) < 100.0 ? 0.1 : 1.0)}};
    const double step = RoundStep(span / most);
    std::vector<ChartLegendMark> marks;
    for (double count = std::ceil(least / step - kSlack); count * step <= greatest + kSlack * span; ++count) {
        marks.push_back({(count * step - least) / span, GroupedDigits(count * step, step)});
    }
    return marks;
}

ChartScaleBar ScaleBarOf(const ChartView& view, double mostPixels) {
    const double most = mostPixels * view.MetresPerPixel();
    double metres = RoundStep(most);
    if (metres > most) {
        const double leading = metres / std::pow(10.0, std::floor(std::log10(metres) + kSlack));
        metres /= leading > 4.0 ? 2.5 : 2.0;
    }
    const bool isKilometres = metres >= 1000.0 * (1.0 - kSlack);
    const double shown = isKilometres ? metres / 1000.0 : metres;
    return {metres, metres / view.MetresPerPixel(), GroupedDigits(shown, shown) + (isKilometres ? " km" : " m")};
}

}  // namespace quillon
