#include "thin_command.h"

#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

#include "display/pipeline_thinning.h"
#include "number_option.h"
#include "platform/text.h"
#include "progress_line.h"

namespace quillon {
namespace {

constexpr int kMostColumns = 1'000'000;

struct ThinOptions {
    std::string file;  ///< UTF-8
    std::string out;   ///< UTF-8; empty for the file beside it
    int columns[4] = {0, 1, 2, 3};
    int skip = 0;
    double tolerance = 1.0;
};

bool IsSame(const std::filesystem::path& one, const std::filesystem::path& other) {
    std::error_code ignored;
    return one == other || std::filesystem::equivalent(one, other, ignored);
}

void Thin(CliContext& context, const ThinOptions& options) {
    FileSystem& files = context.Files(FILE_ACCESS::READ_WRITE);
    CListCtrlImport import(files);
    import.fullPath = TextFromUtf8(options.file);
    import.skipLines = options.skip;
    for (CListCtrlImport::Index i = 0; i < import.GetSize(); ++i) import[i].column = options.columns[i];
    const std::string out = options.out.empty() ? ThinnedPath(import.fullPath) : TextFromUtf8(options.out);
    CStdioFile source(files);
    if (!source.OpenForReading(import.fullPath)) return context.Fail(options.file, "can't be read");
    if (!import.SkipLines(source)) return context.Fail(options.file, "ends within the lines to skip");
    if (IsSame(files.Native(import.fullPath), files.Native(out))) {
        return context.Fail(Utf8FromText(out), "is the file that is read");
    }

    ThinProgress progress;
    ThinResult result;
    RunWithProgress(context, "Thinning " + options.file, progress, [&] {
        result = ThinFile(import, options.tolerance, out, progress);
        return result.end == THIN_END::DONE;
    });
    if (result.end == THIN_END::NO_OUTPUT) return context.Fail(Utf8FromText(out), result.fault);
    if (result.end != THIN_END::DONE) return context.Fail(options.file, "can't be read");
    if (!result.hasEndLine) {
        return context.Fail(options.file, "no row behind the lines that are skipped; " + Utf8FromText(out) +
                                              " is written without an end line");
    }
    context.out << Utf8FromText(out) << ": " << result.written << " of " << result.rows << " rows, and the end line\n";
}

}  // namespace

void AddThinCommand(CLI::App& app, CliContext& context) {
    const auto options = std::make_shared<ThinOptions>();
    CLI::App& thin = *app.add_subcommand("thin", "Thin a pipeline survey to a tolerance");
    thin.add_option("FILE", options->file, "The survey: rows of fields with commas between")->required()->type_name("");
    const char* const names[] = {"--kp", "--easting", "--northing", "--depth"};
    for (int i = 0; i < 4; ++i) {
        thin.add_option(names[i], options->columns[i], "Column of the file, from 0; -1 for none")
            ->check(CLI::Range(-1, kMostColumns))
            ->type_name("C")
            ->capture_default_str();
    }
    thin.add_option("--skip", options->skip, "Lines ahead of the first row")
        ->check(CLI::NonNegativeNumber)
        ->type_name("N")
        ->capture_default_str();
    AddNumberOption(thin, "--tolerance", options->tolerance,
                    "Metres that a row left out may lie off the line; 1 if not given");
    thin.add_option("--out", options->out, "The file to write; by default FILE_thinned beside it")->type_name("FILE");
    thin.callback([&context, options] { Thin(context, *options); });
    thin.footer(
        "The kept columns stand in the order KP, easting, northing, depth; the last line is the position of the end.\n"
        "What stood in the place of the output is replaced when the new file is whole.\n\n"
        "Examples:\n"
        "  quillon thin as-laid.csv --skip 1\n"
        "  quillon thin as-laid.csv --kp -1 --easting 2 --northing 3 --depth -1 --tolerance 0.5 --out line.csv");
}

}  // namespace quillon
