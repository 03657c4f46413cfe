#include "scene/line_mask.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace quillon {
namespace {

/// From where to where a row is covered, as pixels' middles.
struct Interval {
    double first = std::numeric_limits<double>::infinity();
    double last = -std::numeric_limits<double>::infinity();

    bool IsEmpty() const { return !(first <= last); }
    void Join(Interval other) {
        first = std::min(first, other.first);
        last = std::max(last, other.last);
    }
};

Interval Common(Interval a, Interval b) {
    return {std::max(a.first, b.first), std::min(a.last, b.last)};
}

constexpr double kEverywhere = 1e30;

/// Both colours at full alpha; `part` of 255 of the second.
std::uint32_t Blended(std::uint32_t below, std::uint32_t ink, std::uint32_t part) {
    const std::uint32_t rest = 255 - part;
    const auto mix = [&](unsigned shift) {
        const std::uint32_t sum = ((below >> shift) & 0xFF) * rest + ((ink >> shift) & 0xFF) * part + 127;
        return ((sum + 1 + (sum >> 8)) >> 8) << shift;
    };
    return 0xFF000000 | mix(16) | mix(8) | mix(0);
}

}  // namespace

/// A segment with what each of its rows asks for. A pixel is covered by how far its middle lies within half the width,
/// counted from half a pixel outside to half a pixel inside.
struct LineMask::Segment {
    Segment(PixelPoint a, PixelPoint b, double lineWidth, CAP beginCap, CAP endCap)
        : from(a), to(b), radius(0.5 * lineWidth), begin(beginCap), end(endCap) {
        const double dx = to.x - from.x, dy = to.y - from.y;
        length = std::sqrt(dx * dx + dy * dy);
        along = length > 0 ? PixelPoint{dx / length, dy / length} : PixelPoint{1.0, 0.0};
        reach = radius + 0.5;
        if (along.y != 0) perAcross = 1.0 / std::abs(along.y), lean = along.x / along.y;
        if (along.x != 0) perAhead = 1.0 / along.x, endLean = along.y / along.x;
    }

    /// The pixels of a row within a distance of the segment; flat ends move with the distance, too.
    Interval Row(double y, double distance) const {
        const double dy = y - from.y, grown = distance - radius;
        Interval row = Common(Strip(dy, distance),
                              Ends(dy, begin == CAP::FLAT ? -grown : 0.0, length + (end == CAP::FLAT ? grown : 0.0)));
        if (row.IsEmpty()) row = Interval();
        if (begin == CAP::ROUND && std::abs(dy) <= distance) row.Join(Disc(from, dy, distance));
        const double endDy = y - to.y;
        if (end == CAP::ROUND && std::abs(endDy) <= distance) row.Join(Disc(to, endDy, distance));
        return row;
    }
    /// Not farther off the line through the segment than a distance.
    Interval Strip(double dy, double distance) const {
        if (along.y == 0) return std::abs(dy) <= distance ? Interval{-kEverywhere, kEverywhere} : Interval();
        const double middle = from.x + dy * lean, half = distance * perAcross;
        return {middle - half, middle + half};
    }
    /// From one length along the segment to another.
    Interval Ends(double dy, double least, double most) const {
        if (along.x == 0) {
            const double ahead = dy * along.y;
            return ahead >= least && ahead <= most ? Interval{-kEverywhere, kEverywhere} : Interval();
        }
        const double start = from.x - dy * endLean, a = start + least * perAhead, b = start + most * perAhead;
        return a < b ? Interval{a, b} : Interval{b, a};
    }
    static Interval Disc(PixelPoint middle, double dy, double distance) {
        const double half = std::sqrt(distance * distance - dy * dy);
        return {middle.x - half, middle.x + half};
    }
    /// Of some rows those that the ends have no part in, from the first to the one behind the last.
    std::pair<int, int> MiddleRows(int first, int last) const {
        if (along.y == 0) return {last, last};
        // On a row the line's own length runs from so much less to so much more than at the line's middle.
        const double aside = reach * perAcross * std::abs(along.x) + 0.5;
        const double top = from.y + aside * along.y, bottom = from.y + (length - aside) * along.y;
        const int middle = static_cast<int>(std::clamp(top + 1.0, first * 1.0, last * 1.0));
        const int middleEnd = static_cast<int>(std::clamp(bottom, first * 1.0, last * 1.0));
        return middle < middleEnd ? std::pair(middle, middleEnd) : std::pair(last, last);
    }
    /// 0 to 255.
    int Cover(double x, double y) const {
        const double dx = x - from.x, dy = y - from.y;
        const double ahead = dx * along.x + dy * along.y, across = dy * along.x - dx * along.y;
        double inside = reach - std::abs(across);
        if (ahead < 0) {
            inside = begin == CAP::FLAT ? std::min(inside, ahead + 0.5) : reach - std::sqrt(dx * dx + dy * dy);
        } else if (ahead > length) {
            const double past = ahead - length;
            inside = end == CAP::FLAT ? std::min(inside, 0.5 - past) : reach - std::sqrt(past * past + across * across);
        } else {
            if (begin == CAP::FLAT) inside = std::min(inside, ahead + 0.5);
            if (end == CAP::FLAT) inside = std::min(inside, length - ahead + 0.5);
        }
        return inside >= 1.0 ? 255 : inside <= 0.0 ? 0 : static_cast<int>(inside * 255.0 + 0.5);
    }

    PixelPoint from, to;
    double radius;
    CAP begin, end;
    double length;
    PixelPoint along;                      ///< of length 1
    double reach;                          ///< from the segment to the middle of the last pixel that is covered at all
    double perAcross = 0.0, lean = 0.0;    ///< pixels of a row to one across the line; how the line moves with the rows
    double perAhead = 0.0, endLean = 0.0;  ///< the same of its ends
};

void LineMask::Reset(int pixelsWide, int pixelsHigh) {
    width = std::max(pixelsWide, 0);
    height = std::max(pixelsHigh, 0);
    for (blockShift = 5; (width >> blockShift) >= std::numeric_limits<Blocks>::digits; ++blockShift) {
    }
    covered.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    blocks.assign(static_cast<std::size_t>(height), 0);
    firstRow = height;
    lastRow = -1;
}

void LineMask::AddSegment(PixelPoint from, PixelPoint to, double lineWidth, CAP begin, CAP end) {
    if (to.y < from.y) std::swap(from, to), std::swap(begin, end);
    const Segment segment(from, to, lineWidth, begin, end);
    // The corners of flat ends lie farther out than their middle.
    const double reach = (begin == CAP::FLAT || end == CAP::FLAT ? 1.5 : 1.0) * segment.reach;
    const double top = std::max(from.y - reach, 0.0), bottom = std::min(to.y + reach, height - 1.0);
    if (!(top <= bottom)) return;
    const int first = static_cast<int>(top), last = static_cast<int>(bottom);
    firstRow = std::min(firstRow, first);
    lastRow = std::max(lastRow, last);
    const auto [middle, middleEnd] = segment.MiddleRows(first, last + 1);
    for (int y = first; y < middle; ++y) CoverRow(segment, y);
    CoverMiddle(segment, middle, middleEnd);
    for (int y = middleEnd; y <= last; ++y) CoverRow(segment, y);
}

/// Rows that the ends have no part in: there the pixels at either side are covered by their distance from the line,
/// which grows evenly from pixel to pixel and from row to row. In fixed point, 16 binary digits behind the point.
void LineMask::CoverMiddle(const Segment& segment, int first, int end) {
    if (first >= end) return;
    constexpr int kDigits = 16;
    constexpr double kOne = 1 << kDigits;
    const auto fixed = [](double v) { return static_cast<std::int64_t>(v * kOne); };
    const double centre = segment.from.x + (first + 0.5 - segment.from.y) * segment.lean;
    const double half = segment.reach * segment.perAcross;
    const std::int64_t step = fixed(segment.lean), wide = fixed(2.0 * half);
    // Behind the edges, in covered parts of 255, so much is gained with each pixel.
    const auto gain = static_cast<std::int64_t>(255.0 * kOne / segment.perAcross);
    std::int64_t left = fixed(centre - half - 0.5);  // the middle of pixel x lies at x
    for (int y = first; y < end; ++y, left += step) {
        const std::int64_t right = left + wide;
        const int from = static_cast<int>(std::max<std::int64_t>((left >> kDigits) + 1, 0));
        const int to = static_cast<int>(std::min<std::int64_t>((right >> kDigits) + 1, width));
        if (from >= to) continue;
        Mark(y, from, to - 1);
        std::uint8_t* const row = covered.data() + Place(0, y);
        const auto at = [&](std::int64_t edge) { return ((edge >> 8) * (gain >> 8)) >> kDigits; };
        const auto lift = [&](int x, std::int64_t cover) {
            if (cover > row[x]) row[x] = static_cast<std::uint8_t>(std::min<std::int64_t>(cover, 255));
        };
        int x = from, behind = to;
        for (; x < behind; ++x) {
            const std::int64_t cover = at((static_cast<std::int64_t>(x) << kDigits) - left);
            if (cover >= 255) break;
            lift(x, std::min(cover, at(right - (static_cast<std::int64_t>(x) << kDigits))));
        }
        for (; behind > x; --behind) {
            const std::int64_t cover = at(right - (static_cast<std::int64_t>(behind - 1) << kDigits));
            if (cover >= 255) break;
            lift(behind - 1, cover);
        }
        for (; x < behind; ++x) row[x] = 255;
    }
}

void LineMask::CoverRow(const Segment& segment, int y) {
    constexpr double kFewPixels = 1.5;
    const double middle = y + 0.5;
    const Interval outer = segment.Row(middle, segment.reach);
    const int first = FirstPixel(outer.first), last = PixelBehind(outer.last);
    if (first >= last) return;
    Mark(y, first, last - 1);
    const bool hasInner = segment.radius > kFewPixels || last - first > 16;
    const Interval inner = hasInner ? segment.Row(middle, segment.radius - 0.5) : Interval();
    const int full = inner.IsEmpty() ? last : std::clamp(FirstPixel(inner.first), first, last);
    const int fullEnd = inner.IsEmpty() ? last : std::clamp(PixelBehind(inner.last), full, last);
    CoverEdge(segment, y, first, full);
    if (full < fullEnd) std::memset(&covered[Place(full, y)], 255, static_cast<std::size_t>(fullEnd - full));
    CoverEdge(segment, y, fullEnd, last);
}

/// The first pixel whose middle lies at x or right of it, within the picture.
int LineMask::FirstPixel(double x) const {
    if (!(x > 0.5)) return 0;
    if (!(x < width)) return width;
    const int whole = static_cast<int>(x - 0.5);
    return whole < x - 0.5 ? whole + 1 : whole;
}

/// The pixel behind the last whose middle lies at x or left of it.
int LineMask::PixelBehind(double x) const {
    if (!(x >= 0.5)) return 0;
    return x < width ? static_cast<int>(x + 0.5) : width;
}

void LineMask::CoverEdge(const Segment& segment, int y, int first, int last) {
    std::uint8_t* const row = covered.data() + Place(0, y);
    for (int x = first; x < last; ++x) {
        if (row[x] == 255) continue;
        const int cover = segment.Cover(x + 0.5, y + 0.5);
        if (cover > row[x]) row[x] = static_cast<std::uint8_t>(cover);
    }
}

void LineMask::Mark(int y, int first, int last) {
    const int from = first >> blockShift, to = last >> blockShift;
    const Blocks upTo = to == std::numeric_limits<Blocks>::digits - 1 ? ~Blocks{0} : (Blocks{1} << (to + 1)) - 1;
    blocks[static_cast<std::size_t>(y)] |= upTo & ~((Blocks{1} << from) - 1);
}

void LineMask::Lay(COLORREF colour, std::uint32_t* pixels, std::size_t stride) {
    const std::uint32_t ink =
        0xFF000000 | (GetRValue(colour) & 0xFF) << 16 | (GetGValue(colour) & 0xFF) << 8 | (GetBValue(colour) & 0xFF);
    for (int y = firstRow; y <= lastRow; ++y) {
        std::uint32_t* const line = pixels + static_cast<std::size_t>(y) * stride;
        for (Blocks left = std::exchange(blocks[static_cast<std::size_t>(y)], 0); left != 0; left &= left - 1) {
            const int first = std::countr_zero(left) << blockShift, end = std::min(first + (1 << blockShift), width);
            std::uint8_t* const row = covered.data() + Place(0, y);
            for (int x = first; x < end; ++x) {
                if (row[x] == 0) continue;
                line[x] = row[x] == 255 ? ink : Blended(line[x], ink, row[x]);
                row[x] = 0;
            }
        }
    }
    firstRow = height;
    lastRow = -1;
}

}  // namespace quillon
