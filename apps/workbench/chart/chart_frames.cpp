#include "chart/chart_frames.h"

#include <QPainter>
#include <cmath>
#include <utility>

#include "chart/chart_painter.h"

namespace quillon {
namespace {

/// Pixels beyond the view on every side.
constexpr int kMargin = 64;

ChartView Widened(const ChartView& view) {
    ChartView wide = view;
    wide.SetSize(view.Width() + 2 * kMargin, view.Height() + 2 * kMargin);
    return wide;
}

}  // namespace

ChartFrames::ChartFrames(std::function<void()> whenReady)
    : painter(std::make_shared<ChartPainter>()), maker(std::move(whenReady)) {}

ChartFrames::~ChartFrames() = default;

void ChartFrames::Ask(std::shared_ptr<const ChartScene> scene, const ChartView& view, bool night, double pixelsToOne) {
    maker.Withdraw(newest);
    newest =
        maker.Ask([this, scene = std::move(scene), wide = Widened(view), night, pixelsToOne](const ItemMaker::Stop&) {
            auto made = std::make_shared<Frame>();
            made->view = wide;
            made->image = QImage((QSizeF(wide.Width(), wide.Height()) * pixelsToOne).toSize(), QImage::Format_RGB32);
            made->image.setDevicePixelRatio(pixelsToOne);
            QPainter target(&made->image);
            painter->PaintGrid(target, wide, *scene, night);
            return made;
        });
}

bool ChartFrames::Take() {
    bool isNew = false;
    for (ItemMaker::Made& made : maker.Take()) {
        frame = std::static_pointer_cast<const Frame>(made.data);
        taken = made.ticket;
        isNew = true;
    }
    return isNew;
}

void ChartFrames::Settle() {
    maker.Wait();
    Take();
}

bool ChartFrames::IsOf(const ChartView& view) const {
    return frame && taken == newest && frame->view.Centre() == view.Centre() &&
           frame->view.MetresPerPixel() == view.MetresPerPixel() && frame->view.Width() == Widened(view).Width() &&
           frame->view.Height() == Widened(view).Height();
}

void ChartFrames::Show(QPainter& target, const ChartView& view, bool night) const {
    const QRectF window(0, 0, view.Width(), view.Height());
    if (!frame) return target.fillRect(window, ToQColor(ColoursOf(night).ground));
    const double scale = frame->image.devicePixelRatio();
    const double stretch = frame->view.MetresPerPixel() / view.MetresPerPixel();
    const PixelPoint corner = view.ToPixel(frame->view.ToWorld({0, 0}));
    const auto snap = [scale](double v) { return std::round(v * scale) / scale; };
    const QRectF place(snap(corner.x), snap(corner.y), frame->view.Width() * stretch, frame->view.Height() * stretch);
    if (!place.contains(window)) target.fillRect(window, ToQColor(ColoursOf(night).ground));
    if (stretch == 1.0) {
        target.drawImage(place.topLeft(), frame->image);
        return;
    }
    // Only what is in view is stretched: of a picture a thousand times as large that is a few of its pixels.
    const QRectF seen = place & window;
    if (seen.isEmpty()) return;
    const double part = scale / stretch;
    target.drawImage(seen, frame->image,
                     QRectF((seen.left() - place.left()) * part, (seen.top() - place.top()) * part, seen.width() * part,
                            seen.height() * part));
}

}  // namespace quillon
