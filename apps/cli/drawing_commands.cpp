#include "drawing_commands.h"

#include <memory>
#include <ostream>
#include <string>

#include "background/dig_load.h"
#include "background/dxf.h"
#include "drawing_sheets.h"
#include "platform/text.h"
#include "progress_line.h"

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

// ---- DIG files ----

constexpr const char* kOwnExtentsHint =
    "nothing lies within the extents of its header; convert it by those of what it draws: quillon dxf to-dig FILE "
    "--own-extents";

/// A drawing or a text is shown as the DIG file that it makes; none is written.
void ShowDig(CliContext& context, const DrawingOptions& options) {
    CDig dig(context.Files());
    dig.fileName = options.Path();
    if (!dig.GetFiles().Exists(dig.fileName)) return context.Fail(options.file, "can't be read");
    LoadProgress progress;
    RunWithProgress(context, "Reading " + options.file, progress, [&] { return LoadDigFile(dig, progress); });
    if (!dig.report.opened) return context.Fail(options.file, "can't be read");
    context.err << ReportText(options.file, dig.report, dig.converted ? "entities or lines" : "records");
    FillSheet(*options.MakeSheet(context.out), dig, options.list);
    if (dig.outsideHeader) context.Fail(options.file, kOwnExtentsHint);
}

struct ConvertOptions {
    std::string file;  ///< UTF-8
    bool ownExtents = false;
    bool headerExtents = false;
};

void ToDig(CliContext& context, const ConvertOptions& options) {
    FileSystem& files = context.Files(FILE_ACCESS::READ_WRITE);
    CDig dig(files);
    dig.fileName = TextFromUtf8(options.file);
    if (!dig.IsFrom("DXF")) return context.Fail(options.file, "is not named as a drawing, with the extension dxf");
    if (!files.Exists(dig.fileName)) return context.Fail(options.file, "can't be read");
    if (options.ownExtents || options.headerExtents) SaveOwnExtents(files, dig.fileName, options.ownExtents);
    LoadProgress progress;
    RunWithProgress(context, "Converting " + options.file, progress, [&] { return RemakeDigFile(dig, progress); });
    if (!dig.converted) return context.Fail(options.file, "can't be read");
    context.err << ReportText(options.file, dig.report, "entities");
    if (!dig.fault.empty()) return context.Fail(Utf8FromText(dig.DigPath()), dig.fault);
    context.out << Utf8FromText(dig.DigPath()) << ": " << dig.GetSize() << " records of " << dig.report.taken
                << " entities\n";
    if (dig.outsideHeader) context.Fail(options.file, kOwnExtentsHint);
}

/// What both kinds of file have.
CLI::App& AddKind(CLI::App& show, const std::string& name, const std::string& description, const std::string& list,
                  const std::string& listDescription, const std::shared_ptr<DrawingOptions>& options) {
    CLI::App& command = *show.add_subcommand(name, description);
    command.add_option("FILE", options->file, "The file")->required()->type_name("");
    command.add_flag("--json", options->json, "As JSON");
    command.add_flag(list, options->list, listDescription);
    return command;
}

}  // namespace

void AddShowDxf(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<DrawingOptions>();
    CLI::App& dxf = AddKind(show, "dxf", "Extents, tables, blocks and entities of a drawing", "--entities",
                            "Each entity, in place of their counts; all its fields with --json", options);
    dxf.callback([&context, options] { ShowDxf(context, *options); });
    dxf.footer(
        "Text drawings of any version are read; what is passed over is told by kind and count.\n\n"
        "Examples:\n"
        "  quillon show dxf platform.dxf\n"
        "  quillon show dxf platform.dxf --json --entities");
}

void AddShowDig(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<DrawingOptions>();
    CLI::App& dig = AddKind(show, "dig", "Digitised lines: a DIG file, or what a drawing or a CSV text makes of one",
                            "--records", "Each record: easting, northing, colour code; a line starts below 0", options);
    dig.callback([&context, options] { ShowDig(context, *options); });
    dig.footer(
        "A CSV text holds easting, northing and, if given, pen and colour. A pen of 0 or below, or \"up\", starts a "
        "line.\n\n"
        "Examples:\n"
        "  quillon show dig coast.dig --json\n"
        "  quillon show dig coast.csv --records");
}

void AddDxfCommands(CLI::App& app, CliContext& context) {
    CLI::App& dxf = *app.add_subcommand("dxf", "Drawings")->require_subcommand(1);
    const auto options = std::make_shared<ConvertOptions>();
    CLI::App& convert = *dxf.add_subcommand("to-dig", "Make the DIG file of a drawing, beside it");
    convert.add_option("FILE", options->file, "The drawing")->required()->type_name("");
    CLI::Option* const own =
        convert.add_flag("--own-extents", options->ownExtents,
                         "By the extents of what it draws; kept for this drawing. Without it, as was chosen before");
    convert.add_flag("--header-extents", options->headerExtents, "By the extents of its header again")->excludes(own);
    convert.callback([&context, options] { ToDig(context, *options); });
    convert.footer(
        "What lies outside the extents of the drawing's header is left out. Many drawings have none, or have them\n"
        "turned round: then nothing is left but with --own-extents.\n\n"
        "Examples:\n  quillon dxf to-dig platform.dxf\n  quillon dxf to-dig platform.dxf --own-extents");
    dxf.footer("Example:\n  quillon dxf to-dig platform.dxf");
}

}  // namespace quillon
