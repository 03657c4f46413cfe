#pragma once

#include <QTimer>
#include <optional>
#include <vector>

#include "chart/chart_widget.h"
#include "host/identify.h"
#include "window/status_line.h"

namespace quillon {

/// Names what lies under the mouse: in the status line at once, and beside the mouse when it has rested a moment.
class HoverNames {
public:
    HoverNames(const SceneBuilder& scenes, ChartWidget& chart, StatusLine& status);

    /// The place under the mouse; nothing when it left the chart.
    void OnCursor(const std::optional<tagXY>& position);
    /// Takes the tip away.
    void Hide();

private:
    void ShowTip();

    const SceneBuilder& scenes;
    ChartWidget& chart;
    StatusLine& status;
    QTimer rest;
    PixelPoint at;
    PixelPoint tipAt;
    bool tipShown = false;
    std::vector<Identified> there;
};

}  // namespace quillon
