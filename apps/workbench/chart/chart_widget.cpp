#include "chart/chart_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "chart/furniture_painter.h"
#include "chart/qpainter_device.h"
#include "scene/chart_colours.h"

namespace quillon {
namespace {

constexpr double kHitRadius = 8.0;
/// A press that moves less is a click.
constexpr double kDragPixels = 4.0;
/// One notch of a common wheel; two of them double the scale.
constexpr double kNotch = 120.0;
constexpr double kKeyZoom = 1.5;
constexpr double kKeyPan = 0.15;
constexpr double kFineKeyPan = 0.02;
constexpr double kRoomRoundShown = 40.0;

PixelPoint PixelOf(QPointF point) {
    return {point.x(), point.y()};
}

}  // namespace

ChartWidget::ChartWidget(QWidget* parent)
    : QWidget(parent), frames([this] {
          QMetaObject::invokeMethod(
              this,
              [this] {
                  if (frames.Take()) update();
              },
              Qt::QueuedConnection);
      }) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::CrossCursor);
    setMinimumSize(120, 80);
}

void ChartWidget::Redraw() {
    isFrameOld = true;
    update();
}

void ChartWidget::ViewChanged() {
    Redraw();
    if (onViewChanged) onViewChanged();
    TellCursor();
}

void ChartWidget::SetScene(ChartScene newScene) {
    scene = std::make_shared<const ChartScene>(std::move(newScene));
    if (waitsForFirstView && !ExtentOf(*scene).IsEmpty()) ZoomToAll();
    Redraw();
}

void ChartWidget::SetShown(std::optional<tagXY> point) {
    if (scene->shown == point) return;
    auto changed = std::make_shared<ChartScene>(*scene);
    changed->shown = point;
    scene = std::move(changed);
    Redraw();
}

void ChartWidget::SetGraticule(std::shared_ptr<const ChartGraticule> lines) {
    auto changed = std::make_shared<ChartScene>(*scene);
    changed->graticule = std::move(lines);
    scene = std::move(changed);
    // It lies above the picture, which stays.
    update();
}

void ChartWidget::SetNight(bool on) {
    isNight = on;
    Redraw();
}

void ChartWidget::SetView(tagXY centre, double metresPerPixel) {
    waitsForFirstView = false;
    view.SetCentre(centre);
    view.SetScale(metresPerPixel);
    ViewChanged();
}

void ChartWidget::ZoomToAll() {
    ZoomTo(ExtentOf(*scene));
}

void ChartWidget::ZoomTo(const ChartBox& box) {
    if (box.IsEmpty()) return;
    // before it was laid out the widget has no size worth fitting to
    waitsForFirstView = !isVisible() && view.Width() == 1;
    view.ZoomTo(box);
    ViewChanged();
}

void ChartWidget::BringIntoView(tagXY point) {
    if (!IsPlace(point)) return;
    const PixelPoint at = view.ToPixel(point);
    if (view.PixelBox(-kRoomRoundShown).Contains(at.x, at.y)) return;
    view.SetCentre(point);
    ViewChanged();
}

void ChartWidget::ZoomBy(double factor) {
    view.Zoom(factor, {0.5 * view.Width(), 0.5 * view.Height()});
    ViewChanged();
}

void ChartWidget::PanBy(double dx, double dy) {
    view.Pan(dx, dy);
    ViewChanged();
}

void ChartWidget::AskForFrame() {
    const double scale = devicePixelRatioF();
    if (!std::exchange(isFrameOld, false) && scale == askedScale) return;
    askedScale = scale;
    frames.Ask(scene, view, isNight, scale);
}

void ChartWidget::Settle() {
    AskForFrame();
    frames.Settle();
    update();
}

void ChartWidget::PaintBox(QPainter& target) const {
    const QRectF box = QRectF(pressedAt, cursorAt).normalized();
    QColor colour = ToQColor(ColoursOf(isNight).scaleBar);
    target.setPen(QPen(colour, 1.0, Qt::DashLine));
    colour.setAlpha(32);
    target.setBrush(colour);
    target.drawRect(box.toRect());
}

void ChartWidget::paintEvent(QPaintEvent*) {
    AskForFrame();
    QPainter target(this);
    frames.Show(target, view, isNight);
    PaintFurniture(target, view, *scene, isNight);
    target.setRenderHint(QPainter::Antialiasing, false);
    if (drag == DRAG::BOX) PaintBox(target);
    if (tool) tool->Paint(target, view, isNight);
    if (hasFocus()) {
        target.setPen(ToQColor(ColoursOf(isNight).gridText));
        target.setBrush(Qt::NoBrush);
        target.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void ChartWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    view.SetSize(width(), height());
    if (std::exchange(waitsForFirstView, waitsForFirstView && scene->layers.empty())) ZoomToAll();
    ViewChanged();
}

void ChartWidget::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / kNotch;
    view.Zoom(std::exp2(0.5 * notches), PixelOf(event->position()));
    ViewChanged();
    event->accept();
}

void ChartWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) return event->ignore();
    pressedAt = cursorAt = event->position();
    const bool isTools =
        tool && event->button() == Qt::LeftButton && tool->OnPress(PixelOf(pressedAt), event->modifiers());
    drag = isTools ? DRAG::TOOL : DRAG::PRESSED;
    if (isTools) ShowCursorShape();
    event->accept();
}

void ChartWidget::BeginDrag(Qt::KeyboardModifiers modifiers) {
    const bool isBox = modifiers & (Qt::ShiftModifier | Qt::ControlModifier);
    drag = isBox ? DRAG::BOX : DRAG::PAN;
    if (!isBox) setCursor(Qt::ClosedHandCursor);
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
    const QPointF before = std::exchange(cursorAt, event->position());
    isCursorInside = true;
    if (drag == DRAG::PRESSED && (cursorAt - pressedAt).manhattanLength() >= kDragPixels) {
        BeginDrag(event->modifiers());
        if (drag == DRAG::PAN) PanBy(cursorAt.x() - pressedAt.x(), cursorAt.y() - pressedAt.y());
    } else if (drag == DRAG::PAN) {
        PanBy(cursorAt.x() - before.x(), cursorAt.y() - before.y());
    }
    if (drag == DRAG::TOOL) tool->OnDrag(PixelOf(cursorAt), event->modifiers());
    if (drag == DRAG::BOX || drag == DRAG::TOOL) update();
    TellCursor();
}

void ChartWidget::mouseReleaseEvent(QMouseEvent* event) {
    const DRAG ended = drag;
    const QPointF from = pressedAt, to = event->position();
    if (ended == DRAG::TOOL) tool->OnRelease();
    drag = DRAG::NONE;
    ShowCursorShape();
    update();
    if (ended == DRAG::PRESSED && event->button() == Qt::LeftButton) Click(to);
    if (ended == DRAG::BOX && std::abs(to.x() - from.x()) + std::abs(to.y() - from.y()) >= kDragPixels) {
        view.ZoomToPixels(PixelOf(from), PixelOf(to));
        ViewChanged();
    }
}

void ChartWidget::EndDrag() {
    if (std::exchange(drag, DRAG::NONE) == DRAG::TOOL) tool->OnDrop();
    ShowCursorShape();
    update();
}

void ChartWidget::ShowCursorShape() {
    if (drag != DRAG::PAN) setCursor(tool ? tool->CursorAt(PixelOf(cursorAt)) : Qt::CrossCursor);
}

void ChartWidget::SetTool(ChartTool* newTool) {
    if (drag == DRAG::TOOL) EndDrag();
    if (ChartTool* const before = std::exchange(tool, nullptr)) before->OnEnd();
    tool = newTool;
    if (tool) tool->OnBegin();
    ShowCursorShape();
    TellCursor();
    update();
}

std::vector<ChartHit> ChartWidget::HitsAt(PixelPoint at) const {
    return HitsOf(*scene, view, at, kHitRadius);
}

void ChartWidget::Click(QPointF at) {
    if (tool && tool->OnClick(PixelOf(at))) return update();
    if (onClick) onClick(PixelOf(at));
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
    const double part = event->modifiers() & Qt::ShiftModifier ? kFineKeyPan : kKeyPan;
    const double step = part * std::min(width(), height());
    switch (event->key()) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return ZoomBy(kKeyZoom);
        case Qt::Key_Minus:
            return ZoomBy(1.0 / kKeyZoom);
        case Qt::Key_Left:
            return PanBy(step, 0);
        case Qt::Key_Right:
            return PanBy(-step, 0);
        case Qt::Key_Up:
            return PanBy(0, step);
        case Qt::Key_Down:
            return PanBy(0, -step);
        case Qt::Key_Home:
            return ZoomToAll();
        case Qt::Key_Escape:
            if (drag != DRAG::NONE) return EndDrag();
            break;
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}

void ChartWidget::leaveEvent(QEvent* event) {
    isCursorInside = false;
    TellCursor();
    QWidget::leaveEvent(event);
}

void ChartWidget::TellCursor() {
    if (tool && drag == DRAG::NONE) {
        tool->OnMove(isCursorInside ? std::optional(PixelOf(cursorAt)) : std::nullopt);
        ShowCursorShape();
        update();
    }
    if (!onCursor) return;
    onCursor(isCursorInside ? std::optional(view.ToWorld(PixelOf(cursorAt))) : std::nullopt);
}

}  // namespace quillon
