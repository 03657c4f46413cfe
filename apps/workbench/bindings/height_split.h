#pragma once

#include <QWidget>
#include <functional>

#include "platform/controls.h"

namespace quillon {

/// A property list and what stands directly below it, in a window that may be lower than both want. Heights in pixels.
struct SharedHeight {
    int top;         ///< of the list
    int wanted;      ///< height of the list, as its window or the operator has it
    int bottom;      ///< of the window
    int leastBelow;  ///< what stands below keeps this much of the height, or half of it
    int leastList;   ///< the list keeps this much, or half

    int ListHeight() const;
};

/// The handle between the two: a drag moves the edge, so do the keys Up and Down; a double click gives the list the
/// height that its window wants for it. It lies over the edge and takes no room.
class HeightSplit : public QWidget {
public:
    static constexpr int kThickness = 7;

    HeightSplit(QWidget* parent, int step);

    /// The operator has moved the edge by so many pixels, downwards.
    std::function<void(int pixels)> onMoved;
    std::function<void()> onReset;

    /// Puts the handle on an edge.
    void PlaceAt(int edge, int width);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int step;
    int grip = 0;  // where the handle was taken hold of, from its top
};

/// The first property list of a window, and the control directly below it; null where there is none.
struct StackedPair {
    CControl* list = nullptr;
    CControl* below = nullptr;
};
StackedPair FindStackedPair(const std::vector<CControl*>& controls);

}  // namespace quillon
