#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "geodesy/job_geodesy.h"
#include "scene/chart_scene.h"
#include "scene/chart_view.h"
#include "scene/item_maker.h"

namespace quillon {

/// Meridians and parallels over a part of the grid, and what stands beside them.
struct GraticuleLines {
    struct Label {
        tagXY at;
        double along;  ///< bearing of the line there, radians
        std::string text;
    };
    std::vector<tagXY> points;
    std::vector<std::uint32_t> starts;  ///< of the lines after the first
    std::vector<Label> labels;
};

/// The lines over a box, as far apart as leaves about six of them across it. Where the box leaves the grid, so do the
/// lines; nothing where the grid doesn't reach. `stop` gives up.
GraticuleLines MakeGraticule(const CJobGeodesy& geodesy, const ChartBox& box, const ItemMaker::Stop& stop);

/// "52° 30'N", "003° 07' 30\"E": no more parts than the step needs. Degrees.
std::string GraticuleText(double degrees, double stepDegrees, bool isLatitude);

/// The graticule of a chart: the lines over what is in view and round it are worked out on a thread of its own, anew as
/// the view moves on, and the last ones stay until the next are ready.
class GraticuleLayer {
public:
    /// The number of its layer; no kind has it.
    static constexpr std::uint64_t kLayer = 1000;

    /// `whenReady` is called on that thread when a new layer can be had.
    explicit GraticuleLayer(std::function<void()> whenReady) : maker(std::move(whenReady)) {}

    /// The grid to draw, which is copied; null for none.
    void SetGrid(const CJobGeodesy* geodesy);
    void SetView(const ChartView& view);
    /// The layer as far as it is ready.
    std::optional<ChartLayer> Layer();
    /// Waits until the lines of the last view are made.
    void Wait() { maker.Wait(); }

private:
    void Ask();

    std::shared_ptr<const CJobGeodesy> grid;
    std::optional<ChartView> view;
    ChartBox asked;  ///< that the lines which are made or being made reach over
    double askedScale = 0.0;
    std::uint64_t ticket = 0;
    std::shared_ptr<const ChartLayer> layer;
    ItemMaker maker;
};

}  // namespace quillon
