#include "dtm_commands.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "background/dtm_load.h"
#include "background/dtm_regular.h"
#include "dtm_sheet.h"
#include "number_option.h"
#include "platform/text.h"
#include "progress_line.h"
#include "report_sheet.h"

namespace quillon {
namespace {

constexpr const char* kRegularHint =
    "; bring the soundings to a regular grid first: quillon dtm regular FILE --step S --take shoalest --out FILE.xyz";

using Names = std::array<std::string, CDtm::kSlots>;

bool IsCache(const FileSystem& files, const std::string& path) {
    CRandomFile file;
    std::array<char, 4> magic{};
    if (!file.OpenForReading(files, path)) return false;
    return file.ReadAt(0, magic.data(), magic.size()) == magic.size() && magic == DtmHeader::kMagic;
}

/// Tells why there is no array.
void FailOf(CliContext& context, const CDtm& dtm, const Names& names) {
    const DTM_REFUSAL refusal = dtm.report.refusal;
    const bool tooLarge = refusal == DTM_REFUSAL::TOO_MANY_CELLS || refusal == DTM_REFUSAL::TOO_MUCH_MEMORY ||
                          refusal == DTM_REFUSAL::NO_MEMORY;
    context.Fail(names[0], RefusalText(dtm.report, names) + (tooLarge ? kRegularHint : ""));
}

bool AllReadable(CliContext& context, const CDtm& dtm, const Names& names) {
    bool all = true;
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
        CRandomFile file;
        if (dtm.fileName[slot].empty() || file.OpenForReading(dtm.GetFiles(), dtm.fileName[slot])) continue;
        context.Fail(names[slot], "can't be read");
        all = false;
    }
    return all;
}

/// Both passes, also where a cache would do.
void Import(CliContext& context, CDtm& dtm, const Names& names) {
    DtmProgress extents;
    DtmProgress depths;
    RunWithProgress(context, "Extents of " + names[0], extents, [&] { return ImportDtm(dtm, extents); });
    RunWithProgress(context, "Depths of " + names[0], depths, [&] { return MakeDtmDepths(dtm, depths); });
    SettleDtm(dtm);
    context.err << ReportText(dtm.report, names);
}

// ---- show dtm ----

struct ShowOptions {
    std::string file;  ///< UTF-8
    bool json = false;
};

void Show(CliContext& context, const ShowOptions& options) {
    CDtm dtm(context.Files());
    dtm.fileName[0] = TextFromUtf8(options.file);
    const Names names = {options.file, "", ""};
    if (!AllReadable(context, dtm, names)) return;
    if (IsCache(dtm.GetFiles(), dtm.fileName[0])) {
        DtmProgress progress;
        const bool whole = dtm.ReadCacheHeader(dtm.fileName[0]);
        if (!whole) return context.Fail(options.file, "is a depth cache that is cut short or damaged");
        ReadDtmDepths(dtm, progress, dtm.fileName[0]);
    } else {
        Import(context, dtm, names);
    }
    const std::unique_ptr<Sheet> sheet = options.json ? MakeJsonSheet(context.out) : MakeTextSheet(context.out);
    if (!IsMissing(dtm.IsLoaded() ? dtm.extents.easting.minimum : dtm.report.extents.easting.minimum)) {
        FillSheet(*sheet, dtm, options.json);
    }
    if (!dtm.IsLoaded()) FailOf(context, dtm, names);
}

// ---- dtm make ----

void Make(CliContext& context, const std::vector<std::string>& arguments) {
    CDtm dtm(context.Files(FILE_ACCESS::READ_WRITE));
    Names names;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        names[i] = arguments[i];
        dtm.fileName[i] = TextFromUtf8(arguments[i]);
    }
    if (!AllReadable(context, dtm, names)) return;
    Import(context, dtm, names);
    if (!dtm.IsLoaded()) return FailOf(context, dtm, names);
    const std::string cache = Utf8FromText(dtm.CacheFileName());
    if (!dtm.report.cacheFault.empty()) return context.Fail(cache, dtm.report.cacheFault);
    context.out << cache << ": " << dtm.header.columns << " columns, " << dtm.header.rows << " rows, "
                << dtm.report.cellsWithDepth << " cells with a depth\n";
}

// ---- dtm regular ----

struct RegularOptions {
    std::string file;
    std::string out;
    DtmRegularOptions grid{.step = 0.0};
    bool yes = false;
};

/// Whether the output may be written: it isn't the input, and replaces a file only if that was agreed to.
bool MayWrite(CliContext& context, FileSystem& files, const RegularOptions& options) {
    const std::filesystem::path in = files.Native(TextFromUtf8(options.file));
    const std::filesystem::path out = files.Native(TextFromUtf8(options.out));
    std::error_code ignored;
    if (in == out || std::filesystem::equivalent(in, out, ignored)) {
        context.Fail(options.out, "is the file that is read");
        return false;
    }
    if (!options.yes && files.Exists(TextFromUtf8(options.out))) {
        context.Fail(options.out, "is there already; give --yes to replace it");
        return false;
    }
    return true;
}

void Regular(CliContext& context, const RegularOptions& options) {
    FileSystem& files = context.Files(FILE_ACCESS::READ_WRITE);
    CRandomFile text;
    if (!text.OpenForReading(files, TextFromUtf8(options.file))) return context.Fail(options.file, "can't be read");
    if (!MayWrite(context, files, options)) return;
    CStdioFile out(files);
    if (!out.OpenForWriting(TextFromUtf8(options.out))) return context.Fail(options.out, out.GetFault());
    DtmProgress progress;
    DtmRegularResult result;
    RunWithProgress(context, "Reading " + options.file, progress, [&] {
        result = MakeRegularDtm(text, options.grid, {}, progress, out);
        return result.fault == DTM_REGULAR_FAULT::NO;
    });
    context.err << ReportText(options.file, result.lines);
    if (result.fault != DTM_REGULAR_FAULT::NO) {
        return context.Fail(options.file, FaultText(result.fault, result.grid));
    }
    if (!out.Commit()) return context.Fail(options.out, out.GetFault());
    context.out << options.out << ": " << result.grid.columns << " columns, " << result.grid.rows << " rows, "
                << result.cellsWithDepth << " cells with a depth; " << result.withoutDepth
                << " samples without one left out\n";
}

void AddRegular(CLI::App& dtm, CliContext& context) {
    const auto options = std::make_shared<RegularOptions>();
    CLI::App& regular = *dtm.add_subcommand("regular", "Bring soundings that lie anywhere to a regular grid");
    regular.add_option("FILE", options->file, "The soundings: easting, northing, depth")->required()->type_name("");
    AddNumberOption(regular, "--step", options->grid.step, "Side of a cell, metres").required();
    regular.add_option("--take", options->grid.take, "The depth of a cell: shoalest, deepest or mean of its soundings")
        ->required()
        ->transform(CLI::CheckedTransformer(std::map<std::string, DTM_TAKE>{
            {"shoalest", DTM_TAKE::SHOALEST}, {"deepest", DTM_TAKE::DEEPEST}, {"mean", DTM_TAKE::MEAN}}))
        ->type_name("WHICH");
    regular.add_option("--out", options->out, "The file to write")->required()->type_name("FILE");
    regular.add_flag("--yes", options->yes, "Replace the file if it is there already");
    regular.callback([&context, options] {
        const double step = options->grid.step;
        if (!(step >= 1e-9 && step <= 1e9)) throw CLI::ValidationError("--step", "is a length above 0");
        Regular(context, *options);
    });
    regular.footer(
        "Cells begin at whole multiples of the step. The sign that most depths have is the sign of depths below the\n"
        "surface. The first three lines of the output have no depth: they give the step and the far corner.\n\n"
        "Example:\n"
        "  quillon dtm regular multibeam.txt --step 0.5 --take shoalest --out multibeam-half-metre.xyz");
}

}  // namespace

void AddShowDtm(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App& command = *show.add_subcommand("dtm", "Grid and depths of a depth model, from its text or its cache");
    command.add_option("FILE", options->file, "The text of soundings, or the cache made from it")
        ->required()
        ->type_name("");
    command.add_flag("--json", options->json, "As JSON");
    command.callback([&context, options] { Show(context, *options); });
    command.footer("Examples:\n  quillon show dtm block-4.xyz\n  quillon show dtm block-4.DTM --json");
}

void AddDtmCommands(CLI::App& app, CliContext& context) {
    CLI::App& dtm = *app.add_subcommand("dtm", "Depth models")->require_subcommand(1);
    const auto files = std::make_shared<std::vector<std::string>>();
    CLI::App& make = *dtm.add_subcommand("make", "Make the depth cache of one, two or three text files");
    make.add_option("FILE", *files, "The files: easting, northing, depth")->required()->expected(1, 3)->type_name("");
    make.callback([&context, files] { Make(context, *files); });
    make.footer(
        "The cache stands beside the first file: under its name with the extension DTM, or as Combined.DTM or\n"
        "Triple.DTM for two or three files.\n\n"
        "Examples:\n  quillon dtm make block-4.xyz\n  quillon dtm make north.xyz middle.xyz south.xyz");
    AddRegular(dtm, context);
    dtm.footer("Example:\n  quillon dtm make block-4.xyz");
}

}  // namespace quillon
