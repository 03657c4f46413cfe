#include "geodesy/norwegian_axes.h"

#include <cmath>

namespace quillon {
namespace {

constexpr double kUnit = 536870.912;  // metres, of the polynomials' argument
constexpr double kNear = 0.01;        // metres
constexpr int kMostRounds = 100;      // a handful serve in the covered area: each takes a factor of 20 off

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

int BlockOf(const CGrid& grid, double easting, double northing) {
    if (grid.utmZone >= 33) return kNoBlock;
    if (easting < 400000) return BlockBelow(kWest, northing);
    if (easting < 530001) return BlockBelow(kMiddle, northing);
    return BlockBelow(kEast, northing);
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

}  // namespace

tagNorwegian NorwegianFromUtm(CGrid& grid, double easting, double northing) {
    const int block = BlockOf(grid, easting, northing);
    const std::int32_t number = block < kNoBlock ? (block + 4) / 4 : grid.axis;
    if (number < 1 || number > 8) return {};
    const NorwegianAxisDef& axis = kAxes[number - 1];

    tagNorwegian position{northing - (block < kNoBlock ? 6430000 : 7200000), easting};
    for (int round = 0; round < kMostRounds; round++) {
        tagImage image = ImageOf(axis, position);
        if (block < kNoBlock) image = InBlock(kBlocks[block - 1], image);
        const double dN = northing - image.north, dE = easting - image.east;
        // One of the two is enough; the other may still be off by more.
        if (std::fabs(dN) <= kNear || std::fabs(dE) <= kNear) {
            grid.axis = number;
            grid.comment = axis.name;
            return position;
        }
        position.X += dN;
        position.Y += dE;
    }
    return {};
}

}  // namespace quillon
