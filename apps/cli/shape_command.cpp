#include "shape_command.h"

#include <memory>
#include <ostream>
#include <string>

#include "background/shape.h"
#include "platform/text.h"
#include "sheet.h"

namespace quillon {
namespace {

struct ShapeCommandOptions {
    std::string file;  ///< UTF-8
    bool json = false;
    bool records = false;
};

void PutEllipsoid(Sheet& sheet, const CEllipsoid& ellipsoid) {
    sheet.BeginGroup("ellipsoid");
    sheet.Text("name", ellipsoid.name);
    sheet.Metres("a", ellipsoid.a);
    sheet.Real("inverse_flattening", ellipsoid.rf, 9);
    sheet.EndGroup();
}

void PutGrid(Sheet& sheet, const CGrid& grid) {
    sheet.BeginGroup("grid");
    sheet.Text("name", grid.name);
    sheet.Int("type", grid.type);
    sheet.Int("subtype", grid.subtype);
    sheet.Metres("fe", grid.FE);
    sheet.Metres("fn", grid.FN);
    sheet.Real("k0", grid.k0, 9);
    sheet.Angle("lat0", grid.lat0);
    sheet.Angle("lon0", grid.lon0);
    sheet.Angle("lat1", grid.lat1);
    sheet.EndGroup();
}

void PutReport(Sheet& sheet, const ShapeReport& report) {
    sheet.BeginGroup("report");
    sheet.Int("records", static_cast<long long>(report.records));
    sheet.Int("taken", static_cast<long long>(report.taken));
    sheet.Int("passed_over_count", static_cast<long long>(report.records - report.taken));
    sheet.BeginTable("passed_over", static_cast<std::ptrdiff_t>(report.lines.size()));
    for (const ShapeReport::Line& line : report.lines) {
        sheet.BeginRow();
        sheet.Int("line", static_cast<long long>(line.record));
        sheet.Text("reason", line.reason);
        sheet.EndRow();
    }
    sheet.EndTable();
    sheet.EndGroup();
}

void PutRecords(Sheet& sheet, const CShape& shape) {
    sheet.BeginTable("records", static_cast<std::ptrdiff_t>(shape.records.size()));
    for (const ShapeRecord& record : shape.records) {
        sheet.BeginRow();
        sheet.Int("type", record.type);
        sheet.Int("vertices", static_cast<long long>(record.GetVertexCount()));
        sheet.Int("parts", static_cast<long long>(record.PartStarts().size()));
        sheet.Metres("length", record.length);
        sheet.EndRow();
    }
    sheet.EndTable();
}

void FillSheet(Sheet& sheet, const CShape& shape, const ShapeReport& report, const ShapeCommandOptions& options) {
    const int decimals = shape.geographic ? 8 : 3;
    sheet.Text("path", shape.GetPath());
    sheet.Text("name", shape.GetName());
    if (!options.records) sheet.Int("records", static_cast<long long>(shape.records.size()));
    sheet.Choice("shape_type", shape.shapeType, ShapeTypeName(shape.shapeType));
    sheet.Reals("bounds_min", shape.boundsMin, decimals);
    sheet.Reals("bounds_max", shape.boundsMax, decimals);
    sheet.Bool("geographic", shape.geographic);
    sheet.Texts("columns", shape.dbase.columns);
    sheet.Int("label_column", shape.labelColumn);
    PutEllipsoid(sheet, shape.ellipsoid);
    PutGrid(sheet, shape.grid);
    sheet.Int("null_records", static_cast<long long>(report.nullRecords));
    sheet.Metres("total_length", shape.GetTotalLength());
    if (options.json) PutReport(sheet, report);
    if (options.records) PutRecords(sheet, shape);
    sheet.Finish();
}

std::string ReportText(std::string_view file, const ShapeReport& report) {
    std::string text(file);
    text += Format(": %zu records, %zu taken\n", report.records, report.taken);
    for (const std::string& note : NotesOf(report)) text += "  " + Utf8FromText(note) + '\n';
    return text;
}

void ShowShape(CliContext& context, const ShapeCommandOptions& options) {
    CShape shape(context.Files());
    shape.SetPath(TextFromUtf8(options.file));
    LoadProgress progress;
    ShapeReport report;
    const bool loaded = LoadShape(shape, progress, &report);
    context.err << ReportText(options.file, report);
    if (!loaded) return context.Fail(options.file, "can't be read");
    const std::unique_ptr<Sheet> sheet = options.json ? MakeJsonSheet(context.out) : MakeTextSheet(context.out);
    FillSheet(*sheet, shape, report, options);
}

}  // namespace

void AddShowShape(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<ShapeCommandOptions>();
    CLI::App& command = *show.add_subcommand("shape", "Records, projection and attribute columns of a shape file");
    command.add_option("FILE", options->file, "The .shp, with its .shx beside it")->required()->type_name("");
    command.add_flag("--json", options->json, "As JSON, with the angles of the grid in radians");
    command.add_flag("--records", options->records, "List type, vertices, parts and length of each record");
    command.callback([&context, options] { ShowShape(context, *options); });
    command.footer(
        "Lengths are geodesics on WGS 84 in metres and mean something where the coordinates are degrees.\n\n"
        "Examples:\n"
        "  quillon show shape coast.shp\n"
        "  quillon show shape coast.shp --records --json");
}

}  // namespace quillon
