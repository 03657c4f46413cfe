#include "drawing_commands.h"

#include <memory>
#include <ostream>
#include <string>

#include "background/dxf.h"
#include "drawing_sheets.h"
#include "platform/text.h"

namespace quillon {
namespace {

struct DrawingOptions {
    std::string file;  ///< UTF-8
    bool json = false;
    bool list = false;  ///< entities or records one by one

    std::string Path() const { return TextFromUtf8(file); }
    std::unique_ptr<Sheet> MakeSheet(std::ostream& out) const { return json ? MakeJsonSheet(out) : MakeTextSheet(out); }
};

void ShowDxf(CliContext& context, const DrawingOptions& options) {
    CDxf dxf(context.Files());
    KindReport report;
    if (!dxf.Read(options.Path(), nullptr, &report)) return context.FailToRead(options.file);
    context.err << ReportText(options.file, report, "entities");
    FillSheet(*options.MakeSheet(context.out), dxf, report, options.list);
    if (!dxf.hasSections) context.Fail(options.file, "no drawing");
}

}  // namespace

void AddDrawingKinds(CLI::App& show, CliContext& context) {
    const auto dxfOptions = std::make_shared<DrawingOptions>();
    CLI::App& dxf = *show.add_subcommand("dxf", "Extents, tables, blocks and entities of a drawing");
    dxf.add_option("FILE", dxfOptions->file, "The drawing")->required()->type_name("");
    dxf.add_flag("--json", dxfOptions->json, "As JSON");
    dxf.add_flag("--entities", dxfOptions->list, "Each entity, in place of their counts; all its fields with --json");
    dxf.callback([&context, dxfOptions] { ShowDxf(context, *dxfOptions); });
    dxf.footer(
        "Text drawings of any version are read; what is passed over is told by kind and count.\n\n"
        "Examples:\n"
        "  quillon show dxf platform.dxf\n"
        "  quillon show dxf platform.dxf --json --entities");
}

}  // namespace quillon
