#pragma once

#include <QImage>
#include <QPoint>
#include <QWidget>
#include <functional>
#include <optional>

#include "chart/chart_frames.h"
#include "chart/chart_tool.h"
#include "scene/chart_hit.h"

namespace quillon {

/// The chart on the screen. It is painted on another thread: what the operator does shows at once, by the picture at
/// hand, and is refined a moment later.
///
/// The wheel zooms at the cursor, dragging pans, dragging with Shift or Ctrl zooms to a box. With the keyboard: plus
/// and minus zoom, the arrows pan (with Shift by less), Home shows everything, Escape drops a drag. A tool may take the
/// mouse over.
class ChartWidget : public QWidget {
public:
    explicit ChartWidget(QWidget* parent = nullptr);

    /// The first scene with anything in it is shown whole; later ones leave the view where it is.
    void SetScene(ChartScene newScene);
    const ChartScene& Scene() const { return *scene; }
    /// Marks a point above everything; nothing for none.
    void SetShown(std::optional<tagXY> point);
    /// The lines of latitude and longitude in view; null for none.
    void SetGraticule(std::shared_ptr<const ChartGraticule> lines);
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
    /// A click that no tool has taken.
    std::function<void(PixelPoint)> onClick;
    std::function<void()> onViewChanged;

    /// All that lies within reach of the mouse there, what one would mean first.
    std::vector<ChartHit> HitsAt(PixelPoint at) const;

    /// Null for none. The tool is lent; one that is put away loses its drag first.
    void SetTool(ChartTool* newTool);
    ChartTool* Tool() const { return tool; }
    /// Whether the mouse pans, draws a box or serves a tool.
    bool IsDragging() const { return drag > DRAG::PRESSED; }

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
    enum class DRAG { NONE, PRESSED, PAN, BOX, TOOL };

    void Redraw();
    void ViewChanged();
    void AskForFrame();
    void PaintBox(QPainter& painter) const;
    void BeginDrag(Qt::KeyboardModifiers modifiers);
    void EndDrag();
    void Click(QPointF at);
    void TellCursor();
    void ShowCursorShape();

    std::shared_ptr<const ChartScene> scene = std::make_shared<const ChartScene>();
    ChartView view;
    ChartFrames frames;
    bool isFrameOld = true;   ///< nothing has been asked for since something has changed
    double askedScale = 0.0;  ///< pixels of the picture to one of the view
    bool isNight = false;
    bool waitsForFirstView = true;
    DRAG drag = DRAG::NONE;
    ChartTool* tool = nullptr;
    QPointF pressedAt;
    QPointF cursorAt;
    bool isCursorInside = false;
};

}  // namespace quillon
