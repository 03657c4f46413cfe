#include "drawing_sheets.h"

#include <array>
#include <map>
#include <vector>

#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

using Entities = std::vector<const CDxfEntity*>;

constexpr int kDecimals = 3;

void PutPoint(Sheet& sheet, std::string_view key, const tagXYZ& at) {
    sheet.Reals(key, std::array{at.x, at.y, at.z}, kDecimals, "m");
}

void PutCounts(Sheet& sheet, std::string_view key, const Entities& entities) {
    std::map<std::string_view, long long> counts;
    for (const CDxfEntity* entity : entities) ++counts[DxfKeyword(*entity)];
    sheet.BeginGroup(key);
    for (const auto& [keyword, count] : counts) sheet.Int(keyword, count);
    sheet.EndGroup();
}

/// The fields of one kind beside those that all have.
class FieldWriter {
public:
    FieldWriter(Sheet& target, const CDxf& drawing) : sheet(target), dxf(drawing) {}

    void operator()(const CDxfPoint& point) const { PutPoint(sheet, "point", point.position); }
    void operator()(const CDxfLine& line) const {
        PutPoint(sheet, "start", line.start);
        PutPoint(sheet, "end", line.end);
    }
    void operator()(const CDxfCircle& circle) const {
        PutPoint(sheet, "centre", circle.centre);
        sheet.Metres("radius", circle.radius);
    }
    void operator()(const CDxfArc& arc) const {
        (*this)(static_cast<const CDxfCircle&>(arc));
        sheet.Real("start_bearing", arc.startBearing, kDecimals, "deg");
        sheet.Real("end_bearing", arc.endBearing, kDecimals, "deg");
    }
    void operator()(const CDxfEllipse& ellipse) const {
        PutPoint(sheet, "centre", ellipse.centre);
        PutPoint(sheet, "major_axis_end", ellipse.majorEnd);
        sheet.Real("ratio", ellipse.ratio, kDecimals);
        sheet.Real("start", ellipse.start, kDecimals);
        sheet.Real("end", ellipse.end, kDecimals);
        const auto outline = ellipse.Outline();
        sheet.BeginTable("outline", std::ssize(outline));
        for (const tagXY& point : outline) sheet.ListRow(std::array{point.x, point.y}, kDecimals);
        sheet.EndTable();
    }
    void operator()(const CDxfVertex& vertex) const {
        PutPoint(sheet, "point", vertex.position);
        sheet.Int("flags", vertex.flags);
        sheet.Real("bulge", vertex.bulge, kDecimals);
    }
    void operator()(const CDxfPolyline& line) const {
        sheet.Int("flags", line.flags);
        sheet.BeginTable("vertices", static_cast<std::ptrdiff_t>(line.count));
        for (std::size_t i = 0; i < line.count; ++i) {
            CDxfVertex bare;
            bare.position = {line.GetPosition(i).x, line.GetPosition(i).y, 0.0};
            sheet.BeginRow();
            (*this)(line.vertices ? line.vertices[i] : bare);
            sheet.EndRow();
        }
        sheet.EndTable();
    }
    void operator()(const CDxfSolid& solid) const {
        sheet.BeginTable("corners", std::ssize(solid.corners));
        for (const tagXYZ& at : solid.corners) sheet.ListRow(std::array{at.x, at.y, at.z}, kDecimals);
        sheet.EndTable();
    }
    void operator()(const CDxfText& text) const {
        const std::string shown = dxf.ShownText(text);
        sheet.Text("text", shown);
        const std::string coded = dxf.ShownName(text.text);
        if (coded != shown) sheet.Text("coded_text", coded);
        sheet.Text("style_name", dxf.ShownName(text.styleName));
        PutPoint(sheet, "insertion", text.insertion);
        PutPoint(sheet, "alignment_point", text.alignment);
        sheet.Real("height", text.height, kDecimals);
        sheet.Real("width", text.width, kDecimals);
        sheet.Real("width_factor", text.widthFactor, kDecimals);
        sheet.Real("rotation", text.rotation, kDecimals);
        sheet.Real("oblique_angle", text.obliqueAngle, kDecimals);
        sheet.Int("horizontal_justify", text.horizontalJustify);
        sheet.Int("vertical_justify", text.verticalJustify);
        sheet.Int("generation", text.generation);
    }
    void operator()(const CDxfInsert& insert) const {
        PutPoint(sheet, "point", insert.position);
        PutPoint(sheet, "scale_factors", insert.scale);
        sheet.Real("rotation", insert.rotation, kDecimals);
    }
    void operator()(const CDxfHatch& hatch) const { sheet.Bool("solid", hatch.solid); }
    void operator()(const CDxfEntity& entity) const { sheet.Int("flags", entity.flags); }

private:
    Sheet& sheet;
    const CDxf& dxf;
};

/// Everything for programs; for people what a line can hold.
void PutEntity(Sheet& sheet, const CDxf& dxf, const CDxfEntity& entity) {
    const DxfAttributes& attributes = *entity.attributes;
    sheet.BeginRow();
    sheet.Int("type", static_cast<int>(entity.type));
    sheet.Int("colour", attributes.colour);
    if (sheet.IsNested()) {
        sheet.Bool("visible", attributes.visible);
        sheet.Real("thickness", attributes.thickness, kDecimals);
        sheet.Real("linetype_scale", attributes.linetypeScale, kDecimals);
        sheet.Text("linetype_name", dxf.ShownName(attributes.linetypeName));
        sheet.Text("handle", entity.GetHandle());
    }
    sheet.Text("keyword", DxfKeyword(entity));
    sheet.Text("layer_name", dxf.ShownName(attributes.layerName));
    if (sheet.IsNested()) VisitEntity(entity, FieldWriter(sheet, dxf));
    sheet.EndRow();
}

void PutEntities(Sheet& sheet, std::string_view key, const CDxf& dxf, const Entities& entities) {
    sheet.BeginTable(key, std::ssize(entities));
    for (const CDxfEntity* entity : entities) PutEntity(sheet, dxf, *entity);
    sheet.EndTable();
}

/// The rows of a list whose fields differ, each as `put` writes it.
template <class Records, class PutRecord>
void PutRows(Sheet& sheet, std::string_view key, const Records& records, PutRecord put) {
    sheet.BeginTable(key, std::ssize(records));
    for (const auto& record : records) {
        sheet.BeginRow();
        put(record);
        sheet.EndRow();
    }
    sheet.EndTable();
}

void PutDimStyle(Sheet& sheet, const CDxf& dxf, const CDxfDimStyle& style) {
    sheet.Int("flags", style.flags);
    if (sheet.IsNested()) {
        sheet.Real("real_41", style.real41, kDecimals);
        sheet.Real("real_42", style.real42, kDecimals);
        sheet.Real("real_44", style.real44, kDecimals);
        sheet.Real("real_46", style.real46, kDecimals);
        sheet.Real("real_140", style.real140, kDecimals);
        sheet.Real("real_147", style.real147, kDecimals);
        sheet.Int("int_77", style.whole77);
        sheet.Int("int_176", style.whole176);
        sheet.Int("int_177", style.whole177);
        sheet.Int("int_178", style.whole178);
        sheet.Int("int_340", style.whole340);
        sheet.Text("text_6", dxf.ShownName(style.text6));
        sheet.Text("text_7", dxf.ShownName(style.text7));
    }
    sheet.Text("name", dxf.ShownName(style.name));
}

void PutTables(Sheet& sheet, const CDxf& dxf) {
    PutRows(sheet, "layers", dxf.layers, [&](const CDxfLayer& layer) {
        sheet.Int("colour", layer.colour);
        sheet.Int("flags", layer.flags);
        sheet.Text("name", dxf.ShownName(layer.name));
        sheet.Text("linetype", dxf.ShownName(layer.linetypeName));
    });
    PutRows(sheet, "linetypes", dxf.linetypes, [&](const CDxfLinetype& linetype) {
        sheet.Int("flags", linetype.flags);
        sheet.Int("element_count", linetype.elementCount);
        sheet.Real("total_length", linetype.totalLength, kDecimals);
        if (sheet.IsNested()) sheet.Reals("dashes", linetype.dashes, kDecimals);
        sheet.Text("name", dxf.ShownName(linetype.name));
        sheet.Text("description", dxf.ShownName(linetype.description));
    });
    PutRows(sheet, "styles", dxf.styles, [&](const CDxfStyle& style) {
        sheet.Int("flags", style.flags);
        sheet.Int("generation", style.generation);
        sheet.Real("height", style.height, kDecimals);
        sheet.Real("width_factor", style.widthFactor, kDecimals);
        sheet.Real("last_height", style.lastHeight, kDecimals);
        sheet.Real("oblique_angle", style.obliqueAngle, kDecimals);
        sheet.Text("name", dxf.ShownName(style.name));
        sheet.Text("font", dxf.ShownName(style.font));
    });
    PutRows(sheet, "dim_styles", dxf.dimStyles, [&](const CDxfDimStyle& style) { PutDimStyle(sheet, dxf, style); });
}

void PutBlocks(Sheet& sheet, const CDxf& dxf, bool listEntities) {
    PutRows(sheet, "blocks", dxf.blocks, [&](const CDxfBlock& block) {
        sheet.Int("flags", block.flags);
        if (sheet.IsNested()) PutPoint(sheet, "base", block.base);
        if (listEntities && sheet.IsNested()) {
            PutEntities(sheet, "entities", dxf, block.entities);
        } else {
            sheet.Int("entities", std::ssize(block.entities));
        }
        sheet.Text("name", dxf.ShownName(block.name));
        sheet.Text("layer", dxf.ShownName(block.layerName));
    });
}

}  // namespace

void FillSheet(Sheet& sheet, const CDxf& dxf, const KindReport& report, bool listEntities) {
    sheet.Text("path", dxf.fileName);
    sheet.Text("name", SplitPath(dxf.fileName).name);
    sheet.Int("length", static_cast<long long>(dxf.fileLength));
    sheet.Text("version", dxf.version);
    sheet.Bool("use", dxf.use);
    sheet.Bool("show_text", dxf.showText);
    sheet.Real("scale", dxf.scale, kDecimals);
    sheet.Bool("own_extents", dxf.ownExtents);
    PutPoint(sheet, "ext_min", dxf.extMin);
    PutPoint(sheet, "ext_max", dxf.extMax);
    PutCounts(sheet, listEntities ? "entity_counts" : "entities", dxf.entities);
    PutTables(sheet, dxf);
    PutBlocks(sheet, dxf, listEntities);
    if (listEntities) PutEntities(sheet, "entities", dxf, dxf.entities);
    PutReport(sheet, report);
    sheet.Finish();
}

void FillSheet(Sheet& sheet, const CDig& dig, bool listRecords) {
    const DosStamp stamp = dig.header.Stamp();
    sheet.Text("path", dig.fileName);
    sheet.Text("name", SplitPath(dig.fileName).name);
    sheet.Bool("display", dig.header.display != 0);
    sheet.Int("count", dig.GetSize());
    sheet.Metres("min_easting", dig.extents.minEasting);
    sheet.Metres("min_northing", dig.extents.minNorthing);
    sheet.Metres("max_easting", dig.extents.maxEasting);
    sheet.Metres("max_northing", dig.extents.maxNorthing);
    sheet.Int("source_length", static_cast<long long>(dig.header.length));
    sheet.Text("stamp", DateText(stamp) + " " + TimeText(stamp));
    if (listRecords) {
        sheet.BeginTable("records", dig.GetSize());
        for (const BinaryDigDef& record : dig.Records()) {
            sheet.ListRow(std::array{record.easting, record.northing, static_cast<double>(record.code)}, kDecimals);
        }
        sheet.EndTable();
    }
    PutReport(sheet, dig.report);
    sheet.Finish();
}

void PutReport(Sheet& sheet, const KindReport& report) {
    if (!sheet.IsNested()) return;
    sheet.BeginGroup("report");
    sheet.Int("taken", static_cast<long long>(report.taken));
    PutRows(sheet, "passed_over", report.GetKinds(), [&](const KindReport::Kind& kind) {
        sheet.Real("line", kind.line > 0 ? static_cast<double>(kind.line) : MISSING_VALUE, 0);
        sheet.Int("count", static_cast<long long>(kind.count));
        sheet.Text("reason", kind.reason);
    });
    sheet.EndGroup();
}

std::string ReportText(std::string_view file, const KindReport& report, std::string_view taken) {
    std::string text(file);
    text += Format(": %zu ", report.taken);
    text += taken;
    text += " taken\n";
    for (const std::string& sentence : report.Sentences()) text += "  " + Utf8FromText(sentence) + '\n';
    return text;
}

}  // namespace quillon
