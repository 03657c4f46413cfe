#include "host/shape_scene.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "background/dbase.h"
#include "host/area_label.h"
#include "host/label_text.h"
#include "host/name_table.h"
#include "host/scene_builder.h"
#include "job/shape_place.h"
#include "platform/text.h"

namespace quillon {
namespace {

using ShapePtr = std::shared_ptr<const CShape>;
using GeodesyPtr = std::shared_ptr<const CJobGeodesy>;

constexpr VECTOR_SYMBOL kDot = 1, kIcon = 7;
constexpr SYMBOL_SIZE kDotSize = 1, kIconSize = 3;
constexpr COLORREF kIconOutline = RGB(0, 0, 0);
/// From a point to its label, pixels: the icon stands between.
constexpr int kIconGap = 6;

/// A shape file as it is drawn: its vertices on the job's grid, and one place for the label of each record.
struct ShapeDrawing {
    PathPtr vertices;
    std::vector<std::size_t> firsts;  ///< of each record, and the end
    PathPtr labelPlaces;
    std::vector<std::uint32_t> recordOf;  ///< of each place

    std::size_t RecordOfVertex(std::size_t vertex) const {
        return static_cast<std::size_t>(std::upper_bound(firsts.begin(), firsts.end(), vertex) - firsts.begin()) - 1;
    }
};

bool IsArea(int type) {
    return type == SHAPE_POLYGON || type == SHAPE_POLYGON_Z || type == SHAPE_POLYGON_M || type == SHAPE_MULTIPATCH;
}

/// All that tells one grid from another.
std::uint64_t StampOf(const GeodesyChoice& choice) {
    std::uint64_t stamp = choice.chosen ? 1 : 0;
    for (const double part :
         {static_cast<double>(choice.ellipsoid), choice.semiMajor, choice.inverseFlattening,
          static_cast<double>(choice.type), static_cast<double>(choice.zone), static_cast<double>(choice.subtype),
          choice.originLatitude, choice.originLongitude, choice.falseEasting, choice.falseNorthing, choice.scale,
          choice.firstParallel, choice.secondParallel}) {
        stamp = MixedStamp(stamp, part);
    }
    return stamp;
}

/// Where the name of a record stands: well inside an area, at the vertex halfway along a line.
tagXY LabelPlace(const CShape& shape, std::span<const tagXY> vertices) {
    constexpr std::size_t kFewRecords = 5000;
    if (IsArea(shape.shapeType) && shape.records.size() <= kFewRecords) {
        if (const auto label = PlaceAreaLabel(ChartPoints::Lent(vertices))) return label->at;
    }
    return vertices[vertices.size() / 2];
}

class DrawingMaker {
public:
    DrawingMaker(const CShape& drawn, const CJobGeodesy& jobGeodesy, const ItemMaker::Stop& wanted)
        : shape(drawn), geodesy(jobGeodesy), stop(wanted), joined(HasLength(drawn.shapeType)) {}

    std::shared_ptr<const ShapeDrawing> Make() {
        CollectVertices();
        PlaceOnGrid(shape, geodesy, points);
        PlaceLabels();
        PathParts parts;
        parts.every = joined ? 0 : 1;
        parts.starts = std::move(starts);
        auto drawing = std::make_shared<ShapeDrawing>();
        drawing->vertices = std::make_shared<const PathLod>(ChartPoints(std::move(points)), parts, &stop);
        drawing->labelPlaces =
            std::make_shared<const PathLod>(ChartPoints(std::move(labels)), PathParts{.every = 1}, &stop);
        drawing->recordOf = std::move(recordOf);
        drawing->firsts = std::move(firsts);
        return drawing;
    }

private:
    void CollectVertices() {
        std::size_t count = 0;
        for (const ShapeRecord& record : shape.records) count += record.GetVertexCount();
        points.reserve(count);
        for (const ShapeRecord& record : shape.records) {
            firsts.push_back(points.size());
            const auto first = static_cast<std::uint32_t>(points.size());
            for (const int start : record.PartStarts()) {
                if (joined && first + static_cast<std::uint32_t>(start) > 0) {
                    starts.push_back(first + static_cast<std::uint32_t>(start));
                }
            }
            for (std::size_t i = 0; i < record.GetVertexCount(); ++i) points.push_back({record.X()[i], record.Y()[i]});
        }
        firsts.push_back(points.size());
    }
    void PlaceLabels() {
        for (std::size_t record = 0; record + 1 < firsts.size() && !stop; ++record) {
            const std::size_t first = firsts[record], end = firsts[record + 1];
            if (first == end) continue;
            labels.push_back(LabelPlace(shape, std::span(points).subspan(first, end - first)));
            recordOf.push_back(static_cast<std::uint32_t>(record));
        }
    }

    const CShape& shape;
    const CJobGeodesy& geodesy;
    const ItemMaker::Stop& stop;
    const bool joined;
    std::vector<tagXY> points;
    std::vector<std::size_t> firsts;  ///< of each record, and the end
    std::vector<std::uint32_t> starts;
    std::vector<tagXY> labels;
    std::vector<std::uint32_t> recordOf;
};

/// The attributes of a column, in the order of the records.
std::shared_ptr<const NameTable> ReadNames(const CShape& shape, int column, const ItemMaker::Stop& stop) {
    auto names = std::make_shared<NameTable>();
    CAttributeReader reader(OpenerOf(shape.GetFiles()), shape.dbase.path);
    for (std::size_t record = 0; record < shape.records.size() && !stop; ++record) {
        names->Add(reader.GetText(static_cast<int>(record), column));
    }
    return names;
}

/// Null where no labels are shown, or they aren't read yet.
std::shared_ptr<const NameTable> KeepNames(SceneBuilder& scene, const ShapePtr& shape) {
    if (shape->labelMode == LABEL_NONE || shape->labelPosition == SIDE_NONE) return nullptr;
    return scene.KeepLater<NameTable>(
        shape->GetPath() + "|names", MixedStamp(shape->GetStamp(), shape->labelColumn),
        [shape, column = shape->labelColumn](const ItemMaker::Stop& stop) { return ReadNames(*shape, column, stop); });
}

void AddLabels(SceneBuilder& scene, const ShapePtr& shape, const std::shared_ptr<const ShapeDrawing>& drawing,
               const std::shared_ptr<const NameTable>& names) {
    const bool stands = HasLength(shape->shapeType);
    ChartTexts texts{.places = drawing->labelPlaces, .colour = shape->pen.colour, .extends = false};
    texts.textOf = [drawing, names, stands, mode = shape->labelMode, position = shape->labelPosition,
                    file = shape->GetName()](std::size_t place) {
        const std::string name = names->Of(drawing->recordOf[place]);
        // In an area the middle is the place itself; beside a point there is its symbol.
        return ChartText{.text = LabelText(mode, name, file, drawing->labelPlaces->Points()[place]),
                         .position = position,
                         .gap = stands || position == SIDE_CENTRE ? 0 : kIconGap};
    };
    scene.AddBackground(std::move(texts));
}

/// What is said of a line or point under the cursor: its file, and what the record is labelled by, or its number.
SceneBuilder::HitText HitTextOf(const CShape& shape, const std::shared_ptr<const ShapeDrawing>& drawing,
                                const std::shared_ptr<const NameTable>& names) {
    return [drawing, names, file = "Shape " + shape.GetName()](const ChartHit& hit) {
        if (hit.kind != HIT_KIND::VERTEX && hit.kind != HIT_KIND::SEGMENT) return file;
        const std::size_t record = drawing->RecordOfVertex(hit.hit.point);
        const std::string name = names ? names->Of(record) : std::string();
        return file + ": " + (name.empty() ? Format("record %zu", record + 1) : name);
    };
}

void AddShape(SceneBuilder& scene, int file, const ShapePtr& shape, const GeodesyPtr& geodesy,
              std::uint64_t geodesyStamp) {
    const auto drawing = scene.KeepLater<ShapeDrawing>(
        shape->GetPath(), MixedStamp(shape->GetStamp(), static_cast<double>(geodesyStamp)),
        [shape, geodesy](const ItemMaker::Stop& stop) { return DrawingMaker(*shape, *geodesy, stop).Make(); });
    const auto names = KeepNames(scene, shape);
    if (!drawing) return;
    const tagPen& pen = shape->pen;
    ChartPath path;
    path.path = drawing->vertices;
    path.extends = false;
    if (HasLength(shape->shapeType)) {
        path.line = {pen.colour, pen.thickness, pen.style};
        if (IsArea(shape->shapeType)) path.fill = {pen.fill, pen.colour};
    } else {
        path.marks = {.symbol = shape->iconMode ? kIcon : kDot,
                      .size = shape->iconMode ? kIconSize : kDotSize,
                      .colour = pen.colour,
                      .second = kIconOutline};
    }
    if (names) AddLabels(scene, shape, drawing, names);
    scene.AddUnderlay(file, std::move(path), HitTextOf(*shape, drawing, names));
}

}  // namespace

void AddShapeFiles(SceneBuilder& scene) {
    const JobRecord& job = scene.Record();
    // What is made in the background has a geodesy of its own: the job's may change meanwhile.
    auto geodesy = std::make_shared<CJobGeodesy>(job.shapes.GetFiles());
    geodesy->Choose(job.geodesy.Choice());
    const std::uint64_t stamp = StampOf(job.geodesy.Choice());
    const std::vector<std::string>& paths = job.shapes.files.paths;
    for (std::size_t file = 0; file < paths.size(); ++file) {
        const std::shared_ptr<CShape> shape = job.shapes.Find(paths[file]);
        if (shape && shape->status) AddShape(scene, static_cast<int>(file), shape, geodesy, stamp);
    }
}

}  // namespace quillon
