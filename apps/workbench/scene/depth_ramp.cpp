#include "scene/depth_ramp.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace quillon {
namespace {

// Our own ways through the space. The turns lie where sea charts have theirs: sand, shoal green, deep blue.
constexpr std::array<LabColour, 4> kDay = {{{95, -1, 15}, {88, -18, 6}, {79, -20, -13}, {68.5, -6, -33}}};
constexpr std::array<LabColour, 4> kNight = {{{15, -3, 6}, {12.5, -9, 0}, {8.5, -5, -9}, {4, 4, -18}}};

/// The white of D65, and the matrix from linear sRGB to XYZ (IEC 61966-2-1).
constexpr std::array<double, 3> kWhite = {0.95047, 1.0, 1.08883};
constexpr double kToXyz[3][3] = {
    {0.4124564, 0.3575761, 0.1804375}, {0.2126729, 0.7151522, 0.0721750}, {0.0193339, 0.1191920, 0.9503041}};
constexpr double kFromXyz[3][3] = {
    {3.2404542, -1.5371385, -0.4985314}, {-0.9692660, 1.8760108, 0.0415560}, {0.0556434, -0.2040259, 1.0572252}};

// CIE 15:2004: the cube root, with a straight line near black.
constexpr double kKnee = 6.0 / 29.0;

double Root(double t) {
    return t > kKnee * kKnee * kKnee ? std::cbrt(t) : t / (3.0 * kKnee * kKnee) + 4.0 / 29.0;
}
double Cube(double t) {
    return t > kKnee ? t * t * t : 3.0 * kKnee * kKnee * (t - 4.0 / 29.0);
}
double Linear(unsigned part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}
unsigned Screen(double share) {
    share = std::clamp(share, 0.0, 1.0);
    const double part = share <= 0.0031308 ? 12.92 * share : 1.055 * std::pow(share, 1.0 / 2.4) - 0.055;
    return static_cast<unsigned>(std::lround(255.0 * part));
}

std::array<double, 3> Multiply(const double (&matrix)[3][3], const std::array<double, 3>& by) {
    std::array<double, 3> product{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t i = 0; i < 3; ++i) product[row] += matrix[row][i] * by[i];
    }
    return product;
}

LabColour Between(const LabColour& from, const LabColour& to, double part) {
    return {from.lightness + (to.lightness - from.lightness) * part, from.a + (to.a - from.a) * part,
            from.b + (to.b - from.b) * part};
}

/// The place on a way, 0 to 1 of its length.
LabColour Along(std::span<const LabColour> way, double part) {
    double length = 0.0;
    for (std::size_t i = 1; i < way.size(); ++i) length += Difference(way[i - 1], way[i]);
    double left = part * length;
    for (std::size_t i = 1; i < way.size(); ++i) {
        const double piece = Difference(way[i - 1], way[i]);
        if (left <= piece) return Between(way[i - 1], way[i], left / piece);
        left -= piece;
    }
    return way.back();
}

}  // namespace

LabColour LabOf(COLORREF colour) {
    const std::array<double, 3> xyz =
        Multiply(kToXyz, {Linear(GetRValue(colour)), Linear(GetGValue(colour)), Linear(GetBValue(colour))});
    const double x = Root(xyz[0] / kWhite[0]), y = Root(xyz[1] / kWhite[1]), z = Root(xyz[2] / kWhite[2]);
    return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

COLORREF ColourOf(const LabColour& colour) {
    const double y = (colour.lightness + 16.0) / 116.0;
    const std::array<double, 3> xyz = {kWhite[0] * Cube(y + colour.a / 500.0), kWhite[1] * Cube(y),
                                       kWhite[2] * Cube(y - colour.b / 200.0)};
    const std::array<double, 3> linear = Multiply(kFromXyz, xyz);
    return RGB(Screen(linear[0]), Screen(linear[1]), Screen(linear[2]));
}

double Difference(const LabColour& a, const LabColour& b) {
    return std::hypot(a.lightness - b.lightness, a.a - b.a, a.b - b.b);
}

std::vector<COLORREF> DepthRamp(bool night, int count) {
    std::vector<COLORREF> colours;
    for (int i = 0; i < count; ++i) {
        colours.push_back(
            ColourOf(Along(night ? kNight : kDay, count > 1 ? static_cast<double>(i) / (count - 1) : 0.0)));
    }
    return colours;
}

}  // namespace quillon
