#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillon {

/// Passes points on, of each stretch of so many only the first and the outermost in their order: where so many lie over
/// one another, that looks like all of them. A point has an x and a y.
template <class Point, class Sink>
class Stretches {
public:
    /// At most so many points of a stretch are passed on.
    static constexpr std::size_t kPassedOn = 5;

    Stretches(std::size_t size, Sink& target) : stretch(size), sink(target) {}

    void Add(const Point& p) {
        if (stretch == 1) return sink(p);
        if (count == 0) outermost.fill({p, 0});
        if (p.x < outermost[1].at.x) outermost[1] = {p, count};
        if (p.x > outermost[2].at.x) outermost[2] = {p, count};
        if (p.y < outermost[3].at.y) outermost[3] = {p, count};
        if (p.y > outermost[4].at.y) outermost[4] = {p, count};
        last = p;
        if (++count == stretch) PassOn();
    }
    /// Ends a line: its last point is passed on, too.
    void Finish() {
        if (stretch == 1) return;
        const bool isCutShort = count > 0;
        PassOn();
        if (isCutShort) sink(last);
    }

private:
    struct Outermost {
        Point at;
        std::size_t order = 0;
    };
    void PassOn() {
        if (count == 0) return;
        std::sort(outermost.begin(), outermost.end(),
                  [](const Outermost& a, const Outermost& b) { return a.order < b.order; });
        for (std::size_t i = 0; i < outermost.size(); ++i) {
            if (i == 0 || outermost[i].order != outermost[i - 1].order) sink(outermost[i].at);
        }
        count = 0;
    }

    std::size_t stretch;
    Sink& sink;
    std::size_t count = 0;
    std::array<Outermost, kPassedOn> outermost;
    Point last;
};

}  // namespace quillon
