#pragma once

#include <QImage>
#include <QPoint>
#include <QWidget>
#include <functional>
#include <optional>

#include "chart/chart_frames.h"
#include "scene/chart_hit.h"

namespace quillon {

/// The chart on the screen. It is painted on another thread: what the operator does shows at once, by the picture at
/// hand, and is refined a moment later.
///
/// The wheel zooms at the cursor, dragging pans, dragging with Shift or Ctrl zooms to a box. With the keyboard: plus
/// and minus zoom, the arrows pan (with Shift by less), Home shows everything, Escape drops a drag. A click reports
/// what lies under it.
class ChartWidget : public QWidget {
public:
    explicit ChartWidget(QWidget* parent = nullptr);

    /// The first scene with anything in it is shown whole; later ones leave the view where it is.
    void SetScene(ChartScene newScene);
    const ChartScene& Scene() const { return *scene; }
    /// Marks a point above everything; nothing for none.
    void SetShown(std::optional<tagXY> point);
    void SetNight(bool on);

    const ChartView& View() const { return view; }
    void SetView(tagXY centre, double metresPerPixel);
    void ZoomToAll();
    void ZoomTo(const ChartBox& box);
    /// Pans as little as brings a point well into view; not at all if it is.
    void BringIntoView(tagXY point);
    void ZoomBy(double factor);
    void PanBy(double dx, double dy);

    /// The position under the cursor; nothing when the cursor leaves.
    std::function<void(std::optional<tagXY>)> onCursor;
    /// A click, and the point or segment that it hit.
    std::function<void(tagXY, const std::optional<ChartHit>&)> onClick;
    std::function<void()> onViewChanged;

    /// Waits until what is on the screen is what the scene and the view are.
    void Settle();

    QSize sizeHint() const override { return {900, 600}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    enum class DRAG { NONE, PRESSED, PAN, BOX };

    void Redraw();
    void ViewChanged();
    void AskForFrame();
    void PaintBox(QPainter& painter) const;
    void BeginDrag(Qt::KeyboardModifiers modifiers);
    void EndDrag();
    void Click(QPointF at);
    void TellCursor();

    std::shared_ptr<const ChartScene> scene = std::make_shared<const ChartScene>();
    ChartView view;
    ChartFrames frames;
    bool isFrameOld = true;   ///< nothing has been asked for since something has changed
    double askedScale = 0.0;  ///< pixels of the picture to one of the view
    bool isNight = false;
    bool waitsForFirstView = true;
    DRAG drag = DRAG::NONE;
    QPointF pressedAt;
    QPointF cursorAt;
    bool isCursorInside = false;
};

}  // namespace quillon
