#pragma once

#include <QImage>
#include <cstdint>
#include <functional>
#include <memory>

#include "scene/chart_scene.h"
#include "scene/chart_view.h"
#include "scene/item_maker.h"

class QPainter;

namespace quillon {

class ChartPainter;

/// Pictures of a chart, painted on a thread of their own, so that nothing that the chart draws ever holds up the
/// window. The newest one is kept, and stands in for the next at whatever place and scale the view has by then: moved
/// while one pans, stretched while one zooms. It reaches a little beyond the view, so that panning finds it there.
class ChartFrames {
public:
    /// `whenReady` is called on the painting thread; whoever hears it calls `Take` on its own.
    explicit ChartFrames(std::function<void()> whenReady);
    ~ChartFrames();

    /// Asks for a picture of what a view shows, with so many of its pixels to one of the view. Of pictures asked for
    /// while another is being painted only the last is made.
    void Ask(std::shared_ptr<const ChartScene> scene, const ChartView& view, bool night, double pixelsToOne);
    /// Takes over what was made; false if nothing was.
    bool Take();
    /// Waits for the picture last asked for, and takes it.
    void Settle();
    /// True if the picture is of that view, and nothing newer is asked for.
    bool IsOf(const ChartView& view) const;

    /// Puts the picture where the view has what it shows, and the ground where it shows nothing.
    void Show(QPainter& painter, const ChartView& view, bool night) const;

private:
    struct Frame {
        QImage image;
        ChartView view;  ///< of the whole picture
    };

    std::shared_ptr<ChartPainter> painter;  // the painting thread's
    std::shared_ptr<const Frame> frame;
    std::uint64_t newest = 0;
    std::uint64_t taken = 0;
    ItemMaker maker;  // last: its thread goes first
};

}  // namespace quillon
