#include "scene/line_mask.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace quillon {
namespace {

constexpr int kWide = 90, kHigh = 70;
using CAP = LineMask::CAP;

struct Piece {
    PixelPoint from, to;
    double width;
    CAP begin = CAP::ROUND, end = CAP::ROUND;
};

/// How much of a pixel a line covers, from 16 by 16 places in it.
double CoverOf(const Piece& piece, int column, int row) {
    const PixelPoint a = piece.from, b = piece.to;
    const double radius = 0.5 * piece.width, length = std::hypot(b.x - a.x, b.y - a.y);
    if (SquaredDistance(column + 0.5, row + 0.5, a.x, a.y, b.x, b.y) > (radius + 1) * (radius + 1)) return 0.0;
    int inside = 0;
    for (int i = 0; i < 256; ++i) {
        const double x = column + (i % 16 + 0.5) / 16, y = row + (i / 16 + 0.5) / 16;
        const double ahead = length > 0 ? ((x - a.x) * (b.x - a.x) + (y - a.y) * (b.y - a.y)) / length : 0.0;
        if ((ahead < 0 && piece.begin == CAP::FLAT) || (ahead > length && piece.end == CAP::FLAT)) continue;
        inside += SquaredDistance(x, y, a.x, a.y, b.x, b.y) <= radius * radius;
    }
    return inside / 256.0;
}

TEST(LineMask, CoversWhatTheLineDoes) {
    std::mt19937 random(4);
    const auto within = [&](double least, double most) {
        return least + (most - least) * static_cast<double>(random() % 10000) / 10000.0;
    };
    std::vector<Piece> pieces = {{{10, 10}, {80, 10}, 2},
                                 {{10, 10.5}, {80, 10.5}, 1},
                                 {{20, 60}, {20, 5}, 3},
                                 {{40, 40}, {40, 40}, 9},
                                 {{-20, -30}, {120, 90}, 4},
                                 {{5, 5}, {80, 9}, 7, CAP::FLAT},
                                 {{10, 60}, {70, 20}, 9, CAP::FLAT, CAP::FLAT}};
    for (int i = 0; i < 150; ++i) {
        const auto cap = [&] { return random() % 3 == 0 ? CAP::FLAT : CAP::ROUND; };
        pieces.push_back(
            {{within(-30, 120), within(-30, 100)}, {within(-30, 120), within(-30, 100)}, within(1, 10), cap(), cap()});
    }
    LineMask mask;
    std::vector<std::uint32_t> picture(kWide * kHigh);
    for (const Piece& piece : pieces) {
        mask.Reset(kWide, kHigh);
        mask.AddSegment(piece.from, piece.to, piece.width, piece.begin, piece.end);
        double off = 0.0, all = 0.0;
        for (int y = 0; y < kHigh; ++y) {
            for (int x = 0; x < kWide; ++x) {
                const double cover = mask.At(x, y) / 255.0, wanted = CoverOf(piece, x, y);
                off += cover - wanted;
                all += wanted;
                ASSERT_NEAR(cover, wanted, 0.3) << x << ',' << y << " width " << piece.width << " from " << piece.from.x
                                                << ',' << piece.from.y << " to " << piece.to.x << ',' << piece.to.y;
            }
        }
        EXPECT_LE(std::abs(off), 0.02 * all + 2.0) << "as wide as it should be";
        mask.Lay(RGB(1, 2, 3), picture.data(), kWide);
    }
}

TEST(LineMask, LaysItsColourOnceAndIsCleanAgain) {
    LineMask mask;
    constexpr int kStride = 2600, kWidest = 2500;  // more than 64 blocks of 32 pixels
    mask.Reset(kWidest, 3);
    std::vector<std::uint32_t> picture(kStride * 3, 0xFF000000);
    const auto draw = [&] {
        for (int piece = 0; piece < 3; ++piece) mask.AddSegment({10, 1.5}, {2490, 1.75}, 1.0, CAP::FLAT, CAP::FLAT);
        mask.Lay(RGB(200, 100, 50), picture.data(), kStride);
    };
    draw();
    EXPECT_EQ(picture[kStride + 10], 0xFFC86432) << "red, green and blue from the higher to the lower byte";
    EXPECT_EQ(picture[kStride + 9], 0xFF000000);
    EXPECT_EQ(picture[2 * kStride + 10], 0xFF000000);
    EXPECT_EQ(picture[kStride + 2490], 0xFF000000);
    const auto red = [&](int row, int x) { return picture[static_cast<std::size_t>(row * kStride + x)] >> 16 & 0xFF; };
    EXPECT_NEAR(red(1, 2485), 150, 3) << "three quarters, though it was drawn three times";
    EXPECT_NEAR(red(2, 2485), 50, 3);
    EXPECT_EQ(mask.At(100, 1), 0);
    const auto before = picture;
    mask.Lay(RGB(255, 255, 255), picture.data(), kStride);
    EXPECT_EQ(picture, before) << "nothing is covered any more";
}

}  // namespace
}  // namespace quillon
