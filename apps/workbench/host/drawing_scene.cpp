#include "host/drawing_scene.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "background/dxf_palette.h"
#include "host/dig_lines.h"
#include "host/drawing_letters.h"
#include "host/drawing_lines.h"
#include "host/scene_builder.h"

namespace quillon {
namespace {

/// Line work as it is drawn: one path of many parts a colour.
using ColouredPaths = std::vector<std::pair<COLORREF, PathPtr>>;

void AddPaths(SceneBuilder& scene, const ColouredPaths& paths) {
    for (const auto& [colour, path] : paths) {
        scene.AddBackground(ChartPath{.path = path, .line = {colour, 1, PS_SOLID}, .extends = false});
    }
}

/// Read straight out of the records, which `owner` keeps.
std::shared_ptr<const ColouredPaths> MakeDigPaths(const std::shared_ptr<const void>& owner,
                                                  std::span<const BinaryDigDef> records, const ItemMaker::Stop& stop) {
    auto paths = std::make_shared<ColouredPaths>();
    const ChartPoints points(owner, records.data(), records.size(), sizeof(BinaryDigDef));
    for (auto& [index, lines] : SplitDig(records)) {
        const COLORREF colour = kDxfPalette[static_cast<std::size_t>(index)];
        const PathParts parts{.starts = std::move(lines.starts)};
        // Most files are of one colour, and all of them is drawn: no list of records is kept then.
        const bool isWhole = lines.records.size() == records.size();
        auto path = isWhole ? std::make_shared<const PathLod>(points, parts, &stop)
                            : std::make_shared<const PathLod>(points, std::move(lines.records), parts, &stop);
        paths->emplace_back(colour, std::move(path));
    }
    return paths;
}

struct PlacedDrawing {
    ColouredPaths paths;
    PathPtr places;  ///< of the texts
    std::shared_ptr<const std::vector<ChartLetter>> letters;
};

std::shared_ptr<const PlacedDrawing> MakeDrawing(const CDxf& drawing, double scale, const ItemMaker::Stop& stop) {
    auto placed = std::make_shared<PlacedDrawing>();
    for (auto& [colour, lines] : PlaceDrawing(drawing, {.origin = {}, .scale = scale})) {
        placed->paths.emplace_back(
            colour, std::make_shared<const PathLod>(std::move(lines.points),
                                                    PathParts{.starts = std::move(lines.starts)}, &stop));
    }
    DrawnLetters drawn = LettersOf(drawing, scale);
    placed->places = std::make_shared<const PathLod>(std::move(drawn.places), PathParts{.every = 1}, &stop);
    placed->letters = std::make_shared<const std::vector<ChartLetter>>(std::move(drawn.letters));
    return placed;
}

}  // namespace

void AddDigFiles(SceneBuilder& scene) {
    const CDigList& list = scene.Record().digs;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CDig& dig = list[i];
        if (dig.header.display == 0 || dig.IsEmpty()) continue;
        const auto paths = scene.KeepLater<ColouredPaths>(
            dig.fileName, dig.GetStamp(),
            [owner = dig.ShareRecords(), records = dig.Records()](const ItemMaker::Stop& stop) {
                return MakeDigPaths(owner, records, stop);
            });
        if (paths) AddPaths(scene, *paths);
    }
}

void AddDxfFiles(SceneBuilder& scene) {
    const CDxfList& list = scene.Record().drawings;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CDxf& dxf = list[i];
        if (!dxf.use || dxf.GetEntityCount() == 0) continue;
        // A scale of 0, as of a settings file that was cut short, is none.
        const double scale = dxf.scale > 0.0 ? dxf.scale : 1.0;
        const auto drawing = scene.KeepLater<PlacedDrawing>(
            dxf.fileName, MixedStamp(dxf.GetStamp(), scale),
            [kept = list.Share(i), scale](const ItemMaker::Stop& stop) { return MakeDrawing(*kept, scale, stop); });
        if (!drawing) continue;
        AddPaths(scene, drawing->paths);
        if (!dxf.showText || drawing->letters->empty()) continue;
        scene.AddBackground(ChartLetters{.places = drawing->places, .letters = drawing->letters});
    }
}

}  // namespace quillon
