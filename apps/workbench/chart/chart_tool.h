#pragma once

#include <Qt>
#include <optional>

#include "scene/chart_view.h"

class QPainter;

namespace quillon {

/// Something that takes the mouse over on the chart for as long as it is the chart's tool. Places are pixels of the
/// chart. What it leaves alone stays the chart's: panning, zooming, clicks.
class ChartTool {
public:
    virtual ~ChartTool() = default;

    /// It becomes the chart's tool; it is put away.
    virtual void OnBegin() {}
    virtual void OnEnd() {}
    /// True if the drag that begins with this press is the tool's.
    virtual bool OnPress(PixelPoint, Qt::KeyboardModifiers) { return false; }
    virtual void OnDrag(PixelPoint, Qt::KeyboardModifiers) {}
    virtual void OnRelease() {}
    /// The drag was given up: all is to be as it was before it.
    virtual void OnDrop() {}
    /// True if the click is the tool's.
    virtual bool OnClick(PixelPoint) { return false; }
    /// The mouse moved without a button, or the chart moved below it; nothing when it left.
    virtual void OnMove(std::optional<PixelPoint>) {}
    /// What the cursor looks like over a place.
    virtual Qt::CursorShape CursorAt(PixelPoint) const { return Qt::CrossCursor; }
    /// Above everything else on the chart.
    virtual void Paint(QPainter&, const ChartView&, bool) const {}
};

}  // namespace quillon
