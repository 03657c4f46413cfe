#pragma once

#include <functional>
#include <optional>
#include <string>

#include "chart/chart_widget.h"
#include "host/measure.h"
#include "host/scene_builder.h"

namespace quillon {

/// Measures on the chart: a rubber line from one place to the mouse, with range and grid bearing, and where the mouse
/// lies beside the chosen line with KPs. A click ends the line, or begins the next one. Points within reach of the
/// mouse are taken exactly.
class MeasureTool : public ChartTool {
public:
    MeasureTool(const SceneBuilder& scenes, ChartWidget& chart);

    /// What is measured, on one line; Windows-1252.
    std::string Text() const;
    std::function<void()> onChanged;

    /// From the mouse, or from the first click while the mouse is elsewhere.
    void OnBegin() override;
    bool OnClick(PixelPoint at) override;
    void OnMove(std::optional<PixelPoint> at) override;
    void Paint(QPainter& painter, const ChartView& view, bool night) const override;

private:
    /// The point under the mouse, or the place itself.
    tagXY PlaceAt(PixelPoint at) const;
    void LookBesideLine();

    const SceneBuilder& scenes;
    ChartWidget& chart;
    std::optional<tagXY> from;
    std::optional<tagXY> to;  ///< follows the mouse until it is fixed
    bool isFixed = false;
    std::optional<LinePlace> beside;
    std::string lineName;
};

}  // namespace quillon
