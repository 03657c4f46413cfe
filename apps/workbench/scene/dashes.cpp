#include "scene/dashes.h"

#include <cmath>
#include <numeric>
#include <span>

namespace quillon {
namespace {

/// Lengths of strokes and gaps in turn, for a pen one pixel wide.
std::span<const double> PatternOf(int style) {
    static constexpr double kDash[] = {9, 5};
    static constexpr double kDot[] = {2, 4};
    static constexpr double kDashDot[] = {9, 4, 2, 4};
    static constexpr double kDashDotDot[] = {9, 4, 2, 4, 2, 4};
    switch (style) {
        case PS_DOT:
            return kDot;
        case PS_DASHDOT:
            return kDashDot;
        case PS_DASHDOTDOT:
            return kDashDotDot;
        default:
            return kDash;
    }
}

/// Where in its pattern a line has got to.
class Phase {
public:
    Phase(std::span<const double> lengths, double factor) : pattern(lengths), scale(factor) {
        total = std::accumulate(pattern.begin(), pattern.end(), 0.0) * scale;
    }
    void MoveTo(double distance) {
        double rest = std::fmod(distance, total);
        for (at = 0; rest >= pattern[at] * scale; at = (at + 1) % pattern.size()) rest -= pattern[at] * scale;
        left = pattern[at] * scale - rest;
    }
    bool IsStroke() const { return at % 2 == 0; }
    double Left() const { return left; }
    /// Goes on by at most what is left; true if a stroke or a gap ended.
    bool Advance(double by) {
        left -= by;
        if (left > 0) return false;
        at = (at + 1) % pattern.size();
        left = pattern[at] * scale;
        return true;
    }

private:
    std::span<const double> pattern;
    double scale;
    double total = 0.0;
    std::size_t at = 0;
    double left = 0.0;
};

class DashMaker {
public:
    DashMaker(Phase start, PixelLines& target) : phase(start), dashes(target) {}

    void Run(std::span<const PixelPoint> points, double distance) {
        phase.MoveTo(distance);
        isOpen = false;
        for (std::size_t i = 0; i + 1 < points.size(); ++i) Segment(points[i], points[i + 1]);
    }

private:
    void Segment(PixelPoint from, PixelPoint to) {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        for (double done = 0.0; done < length;) {
            const double step = std::min(phase.Left(), length - done);
            const PixelPoint a{from.x + (to.x - from.x) * done / length, from.y + (to.y - from.y) * done / length};
            done += step;
            const double part = done < length ? done / length : 1.0;
            if (phase.IsStroke()) Join(a, {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
            if (phase.Advance(step)) isOpen = false;
        }
    }
    void Join(PixelPoint a, PixelPoint b) {
        if (!isOpen) {
            dashes.runs.push_back({dashes.points.size(), 0.0});
            dashes.points.push_back(a);
            isOpen = true;
        }
        dashes.points.push_back(b);
    }

    Phase phase;
    PixelLines& dashes;
    bool isOpen = false;
};

}  // namespace

void CutIntoDashes(const PixelLines& lines, int style, double width, PixelLines& dashes) {
    dashes.Clear();
    // Wide pens take longer dashes, but not in proportion: the pattern should still be seen along short legs.
    DashMaker maker(Phase(PatternOf(style), 0.5 + 0.5 * width), dashes);
    for (std::size_t run = 0; run < lines.runs.size(); ++run) {
        const std::size_t first = lines.runs[run].first;
        maker.Run(std::span(lines.points).subspan(first, lines.EndOf(run) - first), lines.runs[run].distance);
    }
}

}  // namespace quillon
