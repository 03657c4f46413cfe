#include "geodesy/norwegian_axes.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

constexpr double kUnit = 536870.912;  // metres, of the polynomials' argument
constexpr double kNear = 0.01;        // metres
constexpr double kSettled = 1e-8;     // metres; the rounding of a northing is 1e-9
constexpr double kBetweenBlocks = 5;  // metres; neighbours differ by 2 at most
constexpr std::int32_t kMostAxes = 8;
constexpr int kMostRounds = 100;  // a handful serve in the covered area: each takes a factor of 20 off

/// Polynomial from an NGO axis to UTM, highest power first.
struct NorwegianAxisDef {
    const char* name;
    double X0;
    double re[5];
    double im[5];
};

// clang-format off
constexpr NorwegianAxisDef kAxes[8] = {
    // name              X0       real parts                                             imaginary parts
    {"NGO (Axis I)",     300000,  {0.121, 1.767, -50.956, 536287.325,  -67496.901},      {-0.299, -28.481,  565.997,  24053.06,  -160874.047}},
    {"NGO (Axis II)",    300000,  {0.013, 0.074,  -2.206, 536640.347,  -70944.16},       {-0.067,  -5.906,  118.305,   4990.631,  -33508.964}},
    {"NGO (Axis III)",   400000,  {0.053, 0.642, -17.064, 536523.332,   30069.122},      { 0.184,  16.803, -321.743, -14189.735,   91253.101}},
    {"NGO (Axis IV)",    900000,  {0.03,  0.82,  -16.136, 536488.296, 7329821.436},      {-0.17,  -17.961,  283.836,  15219.978,  419391.187}},
    {"NGO (Axis V)",     1100000, {0.038, 0.994, -17.076, 536452.414, 7529815.306},      { 0.14,   19.323, -278.899, -16389.092,  579208.227}},
    {"NGO (Axis VI)",    1300000, {0.014, 0.01,   -0.095, 536660.865, 7728548.305},      { 0.008,  -1.128,   15.64,     975.675,  495475.09}},
    {"NGO (Axis VII)",   1300000, {0.042, 1.308, -20.071, 536385.8,   7729981.558},      { 0.17,    1.308,  288.252,  18539.914,  417891.157}},
    {"NGO (Axis VIII)",  1300000, {0.054, 1.256, -19.024, 536399.941, 7729908.152},      { 0.176,  21.287, -280.044, -18052.407,  579458.078}},
};

/// Small turn, scale and shift that fits an axis to UTM within one part of the country.
struct NorwegianBlockDef { double A, B, C, D; };

constexpr NorwegianBlockDef kBlocks[11] = {
    // A        B       C      D
    { 5.057,  4.218, 1.621, 1.571},  // 1
    { 1.648,  6.569, 0.353, 1.097},  // 2
    {-0.432,  3.504, 1.11,  0.234},  // 3
    { 6.785,  3.732, 2.678, 1.706},  // 4
    { 6.012,  2.368, 2.228, 1.015},  // 5
    { 5.116,  2.947, 1.59,  0.941},  // 6
    { 1.239,  1.888, 1.177, 0.574},  // 7
    {-1.242, -1.404, 1.803, 1.131},  // 8
    { 0.799, -1.739, 0.499, 0.503},  // 9
    { 1.75,   0.805, 1.126, 0.642},  // 10
    { 2.292, -0.741, 0.752, 0.849},  // 11
};

/// The parts of the country: three strips of eastings, each cut by northings from the south up.
struct NorwegianLimitDef { double below; int block; };

constexpr NorwegianLimitDef kWest[]   = {{6640000.9, 1}, {6770001.6, 2}, {HUGE_VAL, 3}};
constexpr NorwegianLimitDef kMiddle[] = {{6530000.7, 4}, {6640000.6, 5}, {6730001.0, 6}, {6930001.1, 7}, {HUGE_VAL, 8}};
constexpr NorwegianLimitDef kEast[]   = {{6730000.1, 9}, {6900001.0, 10}, {7060001.6, 11}, {HUGE_VAL, 12}};
// clang-format on

constexpr int kNoBlock = 12;

template <std::size_t kCount>
int BlockBelow(const NorwegianLimitDef (&limits)[kCount], double northing) {
    for (const NorwegianLimitDef& limit : limits) {
        if (northing < limit.below) return limit.block;
    }
    return limits[kCount - 1].block;
}

int BlockOf(std::int32_t utmZone, double easting, double northing) {
    if (utmZone >= 33) return kNoBlock;
    if (easting < 400000) return BlockBelow(kWest, northing);
    if (easting < 530001) return BlockBelow(kMiddle, northing);
    return BlockBelow(kEast, northing);
}

/// The northing at which a block ends.
double LimitOf(int block) {
    if (block <= 3) return kWest[block - 1].below;
    return block <= 8 ? kMiddle[block - 4].below : kEast[block - 9].below;
}

struct tagImage {
    double north;
    double east;
};

tagImage ImageOf(const NorwegianAxisDef& axis, tagNorwegian position) {
    const double x = (position.X - axis.X0) / kUnit, y = position.Y / kUnit;
    double re = axis.re[0], im = axis.im[0];
    for (int k = 1; k < 5; k++) {
        const double turned = re * x - im * y + axis.re[k];
        im = re * y + im * x + axis.im[k];
        re = turned;
    }
    return {re, im};
}

tagImage InBlock(const NorwegianBlockDef& block, tagImage image) {
    const double north = image.north / kUnit, east = image.east / kUnit;
    const double scale = 536870 + block.A;
    return {scale * north - block.B * east + 6800000 + block.C, scale * east + block.B * north + 500000 + block.D};
}

tagImage ImageOf(std::int32_t axis, int block, tagNorwegian position) {
    const tagImage image = ImageOf(kAxes[axis - 1], position);
    return block < kNoBlock ? InBlock(kBlocks[block - 1], image) : image;
}

/// The published way looks at one coordinate, whichever fits first.
bool Ends(NORWEGIAN_END end, double dN, double dE) {
    dN = std::fabs(dN);
    dE = std::fabs(dE);
    return end == NORWEGIAN_END::SETTLED ? dN <= kSettled && dE <= kSettled : dN <= kNear || dE <= kNear;
}

/// How far a UTM position lies outside a block, in the larger of its two coordinates; 0 inside.
double OutsideBlock(int block, double easting, double northing) {
    const double west = block <= 3 ? -HUGE_VAL : block <= 8 ? 400000 : 530001;
    const double east = block <= 3 ? 400000 : block <= 8 ? 530001 : HUGE_VAL;
    const double south = block == 1 || block == 4 || block == 9 ? -HUGE_VAL : LimitOf(block - 1);
    const double north = LimitOf(block);
    return std::max({west - easting, easting - east, south - northing, northing - north, 0.0});
}

}  // namespace

const char* NorwegianAxisName(std::int32_t axis) {
    return kAxes[axis - 1].name;
}

tagNorwegian NorwegianFromUtm(std::int32_t utmZone, std::int32_t axis, double easting, double northing,
                              NORWEGIAN_END end) {
    const int block = BlockOf(utmZone, easting, northing);
    const std::int32_t number = block < kNoBlock ? (block + 4) / 4 : axis;
    if (number < 1 || number > kMostAxes) return {};

    tagNorwegian position{northing - (block < kNoBlock ? 6430000 : 7200000), easting, number};
    for (int round = 0; round < kMostRounds; round++) {
        const tagImage image = ImageOf(number, block, position);
        const double dN = northing - image.north, dE = easting - image.east;
        if (Ends(end, dN, dE)) return position;
        position.X += dN;
        position.Y += dE;
    }
    return {};
}

std::optional<tagXY> UtmFromNorwegian(std::int32_t utmZone, std::int32_t axis, double X, double Y) {
    if (axis < 1 || axis > kMostAxes || !std::isfinite(X) || !std::isfinite(Y)) return std::nullopt;
    const tagNorwegian position{X, Y, axis};
    // The north-east, and all of the zones without blocks.
    const tagImage plain = ImageOf(axis, kNoBlock, position);
    if (!std::isfinite(plain.east) || !std::isfinite(plain.north)) return std::nullopt;
    if (BlockOf(utmZone, plain.east, plain.north) == kNoBlock) return tagXY{plain.east, plain.north};

    std::optional<tagXY> nearest;
    double outside = kBetweenBlocks;
    for (int block = std::max(1, 4 * axis - 4); block < kNoBlock && (block + 4) / 4 == axis; block++) {
        const tagImage image = ImageOf(axis, block, position);
        const double off = OutsideBlock(block, image.east, image.north);
        if (off >= outside) continue;
        outside = off;
        nearest = tagXY{image.east, image.north};
    }
    return nearest;
}

}  // namespace quillon
