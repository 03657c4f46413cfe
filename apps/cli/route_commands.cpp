#include "route_commands.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "feature_sheets.h"
#include "features/route.h"
#include "foundation/field_scanner.h"
#include "platform/drives_lock.h"
#include "platform/text.h"

namespace quillon {
namespace {

struct RewriteOptions {
    std::string file;  ///< UTF-8
    int order = 0;
    std::optional<int> from;
    bool yes = false;
};

/// Lines of which a part is read by no data order: further columns, remarks behind the fields.
std::size_t CountLongerLines(FileSystem& files, const CRoute& route) {
    CStdioFile file(files);
    if (!file.OpenForReading(route.GetPath())) return 0;
    std::size_t longer = 0;
    for (std::string_view line; file.ReadString(line);) {
        FieldScanner fields(line);
        if (route.dataOrder == 1) fields.NextField();
        const double easting = fields.NextNumber();
        const double northing = fields.NextNumber();
        if (route.dataOrder == 2) fields.NextField();
        if (!IsMissing(easting) && !IsMissing(northing) && !Trim(fields.Rest()).empty()) ++longer;
    }
    return longer;
}

/// What the file holds now and won't after, for people; empty if nothing.
std::string Losses(FileSystem& files, const CRoute& route, const ReadReport& report, const RewriteOptions& options) {
    std::string losses;
    if (report.passedOver > 0) losses += ReportText(options.file, report);
    if (const std::size_t longer = CountLongerLines(files, route); longer > 0) {
        losses += Format("  %zu lines hold more than their data order names\n", longer);
    }
    if (route.dataOrder != 0 && options.order == 0) losses += "  the points have names; data order 0 has none\n";
    return losses;
}

void Save(CliContext& context, CRoute& route, const RewriteOptions& options) {
    const std::int32_t before = route.dataOrder;
    route.dataOrder = options.order;
    if (route.SaveRoute()) {
        context.out << options.file << ": " << route.GetSize() << " points written as "
                    << kRouteOrderTxt[static_cast<std::size_t>(options.order)] << '\n';
        return;
    }
    // The data file stands as it was, and so must the order that it is read by.
    route.dataOrder = before;
    route.SaveOrder();
    context.Fail(options.file, "can't be written");
}

std::string WhyNotLocked(const DrivesLock& lock) {
    return lock.Holder() ? "in use by " + HolderText(*lock.Holder()) : "can't be locked: " + lock.GetFault();
}

void Rewrite(CliContext& context, const RewriteOptions& options) {
    FileSystem& files = context.Files(FILE_ACCESS::READ_WRITE);
    DrivesLock lock(files.Drives(), "quillon");
    if (!lock.Take()) return context.Fail(files.Drives().string(), WhyNotLocked(lock));
    CRoute route(files);
    ReadReport report;
    route.Read(TextFromUtf8(options.file), options.from ? nullptr : &report);
    if (options.from) {
        route.dataOrder = *options.from;
        route.ReadPoints(&report);
    }
    if (!report.opened) return context.Fail(options.file, "can't be read");
    if (route.IsEmpty()) {
        context.err << ReportText(options.file, report);
        return context.Fail(options.file, "no usable point");
    }
    const std::string losses = Losses(files, route, report, options);
    if (!losses.empty()) context.err << "What rewriting loses:\n" << losses;
    if (!losses.empty() && !options.yes) {
        return context.Fail(options.file, "left as it is; give --yes to rewrite it all the same");
    }
    Save(context, route, options);
}

}  // namespace

void AddRouteCommands(CLI::App& app, CliContext& context) {
    CLI::App& route = *app.add_subcommand("route", "Route files")->require_subcommand(1);
    const int last = static_cast<int>(kRouteOrderTxt.size()) - 1;

    const auto options = std::make_shared<RewriteOptions>();
    CLI::App& rewrite = *route.add_subcommand("rewrite", "Write a route's data file anew in another data order");
    rewrite.add_option("FILE", options->file, "The data file")->required()->type_name("");
    rewrite.add_option("--order", options->order, "Data order to write")->required()->check(CLI::Range(0, last));
    rewrite
        .add_option_function<int>(
            "--from", [options](int order) { options->from = order; },
            "Data order to read by, in place of the stored one")
        ->check(CLI::Range(0, last));
    rewrite.add_flag("--yes", options->yes, "Rewrite even if something of the file is lost");
    rewrite.callback([&context, options] { Rewrite(context, *options); });
    rewrite.footer(
        "Coordinates are written with 3 decimals. Points without names get \"WPT 1\" and so on. The data order is\n"
        "stored with the settings. What the new file can't hold is told first, and then --yes is needed.\n\n"
        "Data orders: 0 Easting, Northing; 1 Name, Easting, Northing; 2 Easting, Northing, Name.\n\n"
        "Examples:\n"
        "  quillon route rewrite transit.csv --order 1\n"
        "  quillon route rewrite transit.csv --from 2 --order 0 --yes");
    route.footer("Example:\n  quillon route rewrite transit.csv --order 1");
}

}  // namespace quillon
