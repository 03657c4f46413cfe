#include "structure_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>

#include "cli_context.h"
#include "features/structure.h"
#include "platform/text.h"
#include "report_sheet.h"
#include "sheet.h"

namespace quillon {
namespace {

struct StructureOptions {
    std::string file;
    std::string shapes;
    bool json = false;
};

void PutStructures(Sheet& sheet, const CStructure& structures, const CStructureList& list) {
    sheet.BeginTable("structures", structures.GetSize());
    for (const StructureDef& structure : structures) {
        const tagXY extent = list.ShapeSize(structure);
        sheet.BeginRow();
        sheet.Int("shape_number", structure.shapeNumber);
        sheet.Bool("show", structure.show);
        sheet.Metres("easting", structure.position.x);
        sheet.Metres("northing", structure.position.y);
        sheet.Metres("height", structure.height);
        sheet.Real("heading", structure.heading, 1, "deg");
        sheet.Metres("length", structure.length);
        sheet.Real("scale_factor", list.ScaleFactor(structure), 8);
        sheet.Real("extent_x", extent.x, 3);
        sheet.Real("extent_y", extent.y, 3);
        sheet.Text("name", structure.name);
        sheet.Text("shape", structure.shape);
        sheet.EndRow();
    }
    sheet.EndTable();
}

/// Names each drawing that can't serve as a shape, and each that has no extents to be scaled by.
void TellOfShapes(CliContext& context, const std::vector<std::string>& leftOut, const CStructureList& list) {
    for (const std::string& path : leftOut) context.err << Utf8FromText(path) << ": no drawing that can be read\n";
    for (const auto& shape : list.Shapes()) {
        if (shape->HasExtents()) continue;
        context.err << Utf8FromText(shape->fileName) << ": its header has no extents; its factor is 1\n";
    }
}

void ShowStructures(CliContext& context, const StructureOptions& options) {
    CStructureList list(context.Files());
    const std::string folder = options.shapes.empty() ? list.ShapesFolder() : TextFromUtf8(options.shapes);
    TellOfShapes(context, list.LoadShapes(folder), list);
    CStructure structures(context.Files());
    const bool taken = structures.Read(TextFromUtf8(options.file));
    const ReadReport& report = structures.GetReport();
    if (!report.opened) return context.Fail(options.file, "can't be read: " + report.fault);
    context.err << ReportText(options.file, report);
    if (!taken) return context.Fail(options.file, "no structure");
    const std::unique_ptr<Sheet> sheet = options.json ? MakeJsonSheet(context.out) : MakeTextSheet(context.out);
    sheet->Text("path", structures.GetPath());
    sheet->Text("name", structures.GetName());
    sheet->Bool("status", structures.Status);
    PutStructures(*sheet, structures, list);
    PutReportGroup(*sheet, report);
    sheet->Finish();
}

}  // namespace

void AddShowStructure(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<StructureOptions>();
    CLI::App& command = *show.add_subcommand("structure", "Structures with their shapes and scales");
    command.add_option("FILE", options->file, "The structure file")->required()->type_name("");
    command.add_option("--shapes", options->shapes,
                       "The folder of the drawings that serve as shapes, in place of that of the data folder");
    command.add_flag("--json", options->json, "As JSON");
    command.callback([&context, options] { ShowStructures(context, *options); });
    command.footer(
        "Examples:\n"
        "  quillon show structure field.dat\n"
        "  quillon show structure field.dat --shapes ./Structures --json");
}

}  // namespace quillon
