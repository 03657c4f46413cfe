#pragma once

#include <QPainterPath>
#include <functional>
#include <string>
#include <vector>

#include "chart/chart_widget.h"
#include "host/scene_builder.h"
#include "host/structure_drag.h"

namespace quillon {

/// Moves and turns structures with the mouse: a structure is dragged where it is drawn, and turned by the handle ahead
/// of the chosen one, with Shift by 5 degrees. It is stored when the mouse is let go; Esc before that leaves it where
/// it was.
class StructureTool : public ChartTool {
public:
    StructureTool(Job& job, const SceneBuilder& scenes, ChartWidget& chart);

    /// What is done, on one line; Windows-1252.
    std::string Text() const;
    std::function<void()> onChanged;

    void OnBegin() override;
    void OnEnd() override;
    bool OnPress(PixelPoint at, Qt::KeyboardModifiers keys) override;
    void OnDrag(PixelPoint at, Qt::KeyboardModifiers keys) override;
    void OnRelease() override;
    void OnDrop() override;
    Qt::CursorShape CursorAt(PixelPoint at) const override;
    void Paint(QPainter& painter, const ChartView& view, bool night) const override;

private:
    /// The structure that the edit cursor names.
    JobPoint Chosen() const;
    bool IsOnHandle(PixelPoint at) const;
    JobPoint StructureAt(PixelPoint at) const;
    void KeepOutline();
    void Tell();

    Job& job;
    const SceneBuilder& scenes;
    ChartWidget& chart;
    StructureDrag drag;
    PixelPoint pressedAt;
    bool moved = false;    ///< the mouse has left the place of the press
    QPainterPath outline;  ///< of the shape, in metres to starboard and ahead
};

}  // namespace quillon
