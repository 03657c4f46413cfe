#include "scene/chart_view.h"

namespace quillon {
namespace {

constexpr double kFinest = 1e-4;
constexpr double kCoarsest = 1e5;
/// Shown round a single point: some hundreds of metres on a common screen.
constexpr double kScaleOfOnePoint = 0.5;
/// The part of the window that a box fills.
constexpr double kFilledPart = 0.9;

}  // namespace

void ChartView::SetSize(int pixelsWide, int pixelsHigh) {
    width = std::max(1, pixelsWide);
    height = std::max(1, pixelsHigh);
}

void ChartView::SetCentre(tagXY point) {
    if (IsPlace(point)) centre = point;
}

void ChartView::SetScale(double metresForPixel) {
    if (metresForPixel > 0) metresPerPixel = std::clamp(metresForPixel, kFinest, kCoarsest);
}

ChartBox ChartView::WorldBox(double margin) const {
    const double halfWidth = (0.5 * width + margin) * metresPerPixel;
    const double halfHeight = (0.5 * height + margin) * metresPerPixel;
    return {centre.x - halfWidth, centre.y - halfHeight, centre.x + halfWidth, centre.y + halfHeight};
}

void ChartView::Pan(double dx, double dy) {
    SetCentre({centre.x - dx * metresPerPixel, centre.y + dy * metresPerPixel});
}

void ChartView::Zoom(double factor, PixelPoint at) {
    if (!(factor > 0)) return;
    const tagXY kept = ToWorld(at);
    SetScale(metresPerPixel / factor);
    const tagXY moved = ToWorld(at);
    SetCentre({centre.x + kept.x - moved.x, centre.y + kept.y - moved.y});
}

void ChartView::ZoomTo(const ChartBox& box) {
    if (box.IsEmpty()) return;
    SetCentre({0.5 * (box.minX + box.maxX), 0.5 * (box.minY + box.maxY)});
    const double wanted = std::max(box.Width() / width, box.Height() / height) / kFilledPart;
    SetScale(wanted > 0 ? wanted : kScaleOfOnePoint);
}

void ChartView::ZoomToPixels(PixelPoint a, PixelPoint b) {
    const tagXY one = ToWorld(a), other = ToWorld(b);
    SetCentre({0.5 * (one.x + other.x), 0.5 * (one.y + other.y)});
    SetScale(std::max(std::abs(other.x - one.x) / width, std::abs(other.y - one.y) / height));
}

}  // namespace quillon
