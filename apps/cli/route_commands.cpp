#include "route_commands.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "feature_sheets.h"
#include "features/route.h"
#include "platform/drives_lock.h"
#include "platform/text.h"
#include "printable.h"

namespace quillon {
namespace {

struct RewriteOptions {
    std::string file;  ///< UTF-8
    int order = 0;
    std::optional<int> from;
    bool yes = false;
};

/// What the file holds now and won't after, for people; empty if nothing.
std::string LossesText(const RewriteLosses& losses) {
    std::string text;
    for (std::size_t kind = 0; kind < kLossKinds; ++kind) {
        const auto loss = static_cast<LOSS>(kind);
        if (losses.Count(loss) > 0) text += Format("  %zu ", losses.Count(loss)) + std::string(LossText(loss)) + '\n';
    }
    std::size_t last = 0;
    for (const RewriteLosses::Named& named : losses.named) {
        if (std::exchange(last, named.line) == named.line) continue;
        text += Format("  line %zu: ", named.line) + Printable(named.text) + '\n';
    }
    return text;
}

void Save(CliContext& context, CRoute& route, CRouteRewrite& rewrite, const RewriteOptions& options) {
    const RouteSave& saved = rewrite.Commit();
    if (!saved) return context.Fail(options.file, "can't be written: " + saved.fault);
    context.out << options.file << ": " << route.GetSize() << " points written as "
                << kRouteOrderTxt[static_cast<std::size_t>(options.order)] << '\n';
    if (!saved.original.empty()) context.out << "kept as it was: " << Utf8FromText(saved.original) << '\n';
}

std::string WhyNotLocked(const DrivesLock& lock) {
    return lock.Holder() ? "in use by " + HolderText(*lock.Holder()) : "can't be locked: " + lock.GetFault();
}

void Rewrite(CliContext& context, const RewriteOptions& options) {
    FileSystem& files = context.Files(FILE_ACCESS::READ_WRITE);
    DrivesLock lock(files.Drives(), "quillon");
    if (!lock.Take()) return context.Fail(files.Drives().string(), WhyNotLocked(lock));
    CRoute route(files);
    route.Read(TextFromUtf8(options.file));
    if (options.from) {
        route.dataOrder = *options.from;
        route.ReadPoints();
    }
    if (!route.GetReport().opened) return context.Fail(options.file, "can't be read: " + route.GetReport().fault);
    if (route.IsEmpty()) {
        context.err << ReportText(options.file, route.GetReport());
        return context.Fail(options.file, "no usable point");
    }
    route.dataOrder = options.order;
    CRouteRewrite rewrite(route);
    const std::string losses = LossesText(rewrite.Losses());
    if (!losses.empty()) context.err << "What rewriting loses:\n" << losses;
    if (!losses.empty() && !options.yes) {
        return context.Fail(options.file, "left as it is; give --yes to rewrite it all the same");
    }
    Save(context, route, rewrite, options);
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
        "stored with the settings. What the new file can't hold is told first, and then --yes is needed; the file as "
        "it\n"
        "was is kept beside it, as \"NAME (original).csv\".\n\n"
        "Data orders: 0 Easting, Northing; 1 Name, Easting, Northing; 2 Easting, Northing, Name.\n\n"
        "Examples:\n"
        "  quillon route rewrite transit.csv --order 1\n"
        "  quillon route rewrite transit.csv --from 2 --order 0 --yes");
    route.footer("Example:\n  quillon route rewrite transit.csv --order 1");
}

}  // namespace quillon
