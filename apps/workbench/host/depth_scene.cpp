#include "host/depth_scene.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "host/scene_builder.h"
#include "platform/text.h"
#include "scene/depth_ramp.h"
#include "scene/relief.h"

namespace quillon {
namespace {

constexpr double kMetresPerValue = 0.01;
constexpr int kColours = 128;

struct DepthPicture {
    std::shared_ptr<const ChartRaster> raster;
    std::shared_ptr<const ChartColourScale> colours;
    double heightPerValue = 0.0;
};

/// The colours span all depths but the outermost: one false sounding would take them all.
std::shared_ptr<const ChartColourScale> ScaleOf(const ChartRaster& raster) {
    constexpr int kEnough = 1024;
    constexpr double kOutermost = 0.002;
    const ChartRaster::Level& level = raster.For(std::max(raster.Box().Width(), raster.Box().Height()) / kEnough);
    std::vector<std::int32_t> depths;
    std::ranges::copy_if(level.values, std::back_inserter(depths), [](std::int32_t d) { return d != kNoDepth; });
    if (depths.empty()) return nullptr;
    const auto at = [&depths](double part) {
        const auto place = static_cast<std::ptrdiff_t>(part * static_cast<double>(depths.size() - 1));
        std::ranges::nth_element(depths, depths.begin() + place);
        return depths[static_cast<std::size_t>(place)];
    };
    return std::make_shared<const ChartColourScale>(
        ChartColourScale{at(kOutermost), at(1.0 - kOutermost), DepthRamp(false, kColours), DepthRamp(true, kColours)});
}

/// The picture of a model whose array is shared. A sample stands in the middle of its cell.
std::shared_ptr<const DepthPicture> MakePicture(const std::shared_ptr<const void>& owner,
                                                std::span<const std::int32_t> cells, const DtmGrid& grid,
                                                const ItemMaker::Stop& stop) {
    auto picture = std::make_shared<DepthPicture>();
    picture->raster =
        std::make_shared<const ChartRaster>(owner, cells, static_cast<int>(grid.columns), static_cast<int>(grid.rows),
                                            tagXY{grid.minEasting, grid.minNorthing}, grid.step, &stop);
    if (stop || picture->raster->Box().IsEmpty()) return nullptr;
    picture->colours = ScaleOf(*picture->raster);
    picture->heightPerValue = ExaggeratedHeight(*picture->raster, -kMetresPerValue);
    return picture;
}

void AddPicture(SceneBuilder& scene, const CDtm& dtm) {
    const auto picture = scene.KeepLater<DepthPicture>(
        "depths", dtm.depths.GetStamp(),
        [owner = dtm.depths.Share(), cells = dtm.depths.Span(), grid = dtm.header.Grid()](const ItemMaker::Stop& stop) {
            return MakePicture(owner, cells, grid, stop);
        });
    if (!picture || !picture->colours) return;
    scene.AddUnderlay(0,
                      ChartImage{.raster = picture->raster,
                                 .colours = picture->colours,
                                 .heightPerValue = scene.options.relief ? picture->heightPerValue : 0.0},
                      [](const ChartHit& hit) { return Format("Depth %.2lf m", hit.value * kMetresPerValue); });
    scene.SetLegend({"Depth, m", picture->colours, kMetresPerValue});
}

/// The limits of the samples of each file.
void AddCoverage(SceneBuilder& scene, const CDtm& dtm) {
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
        const DtmArea& area = dtm.header.areas[slot];
        if (dtm.fileName[slot].empty() || !(area.minEasting < area.maxEasting)) continue;
        const tagPen& pen = dtm.pen[slot];
        ChartPath path;
        path.path = scene.KeepPath(Format("limits of %zu", slot), dtm.depths.GetStamp(), {.closed = true}, [&area] {
            return ChartPoints(std::vector<tagXY>{{area.minEasting, area.minNorthing},
                                                  {area.minEasting, area.maxNorthing},
                                                  {area.maxEasting, area.maxNorthing},
                                                  {area.maxEasting, area.minNorthing}});
        });
        path.line = {pen.colour, pen.thickness, pen.style};
        path.fill = {pen.fill, pen.colour};
        path.canBeHit = false;
        scene.Add(static_cast<int>(slot), std::move(path));
    }
}

}  // namespace

void AddDepthModel(SceneBuilder& scene) {
    const CDtm& dtm = scene.Record().dtm;
    if (!dtm.IsLoaded()) return;
    if (scene.options.depthPicture) AddPicture(scene, dtm);
    if (dtm.displayCoverage) AddCoverage(scene, dtm);
}

}  // namespace quillon
