#include "list_command.h"

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "display/csv_export.h"
#include "display/feature_listing.h"
#include "display/workbook_export.h"
#include "feature_loading.h"
#include "features/design_route.h"
#include "foundation/paths.h"
#include "platform/text.h"
#include "report_sheet.h"

namespace quillon {
namespace {

struct ListOptions : LoadOptions {
    // UTF-8; empty for none.
    std::string csv;
    std::string quotedCsv;
    std::string workbook;

    bool WritesFiles() const { return !csv.empty() || !quotedCsv.empty() || !workbook.empty(); }
};

bool Load(CStructure& structures, const LoadOptions& options) {
    return structures.Read(options.Path());
}

ListTable TableOf(const PointsTable& points) {
    ListTable table{{}, points.rows.count, points.rows.cell};
    for (const CListCtrl::Column& column : points.columns) table.columns.push_back({column.header, column.align});
    return table;
}

// ---- On the terminal ----

void PutLine(std::ostream& out, const std::vector<std::string>& cells, const std::vector<std::size_t>& widths) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0) line.append(2, ' ');
        line.append(widths[i] - cells[i].size(), ' ').append(cells[i]);
    }
    out << Utf8FromText(TrimRight(line)) << '\n';
}

void PutTable(std::ostream& out, const ListTable& table) {
    const int columns = table.ColumnCount();
    std::vector<std::string> cells;
    std::vector<std::size_t> widths;
    for (const ListTable::Column& column : table.columns) {
        cells.push_back(column.header);
        widths.push_back(column.header.size());
    }
    for (int row = 0; row < table.rows; ++row) {
        for (int i = 0; i < columns; ++i) {
            std::size_t& width = widths[static_cast<std::size_t>(i)];
            width = std::max(width, table.cell(row, i).size());
        }
    }
    PutLine(out, cells, widths);
    for (int row = 0; row < table.rows; ++row) {
        for (int i = 0; i < columns; ++i) cells[static_cast<std::size_t>(i)] = table.cell(row, i);
        PutLine(out, cells, widths);
    }
}

// ---- As files ----

template <class Write>
void WriteFile(CliContext& context, const std::string& file, int rows, Write write) {
    if (file.empty()) return;
    if (!write(TextFromUtf8(file))) return context.Fail(file, "can't be written");
    context.out << file << ": " << rows << " rows\n";
}

void PutOut(CliContext& context, const ListOptions& options, const ListTable& table) {
    if (!options.WritesFiles()) return PutTable(context.out, table);
    FileSystem& files = context.Files(FILE_ACCESS::READ_WRITE);
    WriteFile(context, options.csv, table.rows,
              [&](const std::string& path) { return WriteCsv(files, path, table, CSV_FORM::PLAIN); });
    WriteFile(context, options.quotedCsv, table.rows,
              [&](const std::string& path) { return WriteCsv(files, path, table, CSV_FORM::QUOTED); });
    WriteFile(context, options.workbook, table.rows, [&](const std::string& path) {
        return WriteWorkbook(files, path, SplitPath(options.Path()).name, table);
    });
}

// ---- The kinds ----

template <class Feature>
bool Take(CliContext& context, const LoadOptions& options, Feature& feature) {
    const bool taken = Load(feature, options);
    const ReadReport& report = feature.GetReport();
    if (!report.opened) {
        context.Fail(options.file, "can't be read: " + report.fault);
        return false;
    }
    context.err << ReportText(options.file, report);
    if (!taken) context.Fail(options.file, "no usable point");
    return taken;
}

template <class Record, class Records>
RecordSource<Record> SourceOf(const Records& records) {
    return
        [&records] { return std::span<const Record>(records.GetData(), static_cast<std::size_t>(records.GetSize())); };
}

template <class Feature, class Record, PointsTable (*Make)(RecordSource<Record>)>
void List(CliContext& context, const ListOptions& options) {
    // Before anything is read, so that one drives folder serves both.
    Feature feature(context.Files(options.WritesFiles() ? FILE_ACCESS::READ_WRITE : FILE_ACCESS::READ_ONLY));
    if (Take(context, options, feature)) PutOut(context, options, TableOf(Make(SourceOf<Record>(feature))));
}

/// A design route is what a route position list describes.
void ListDesign(CliContext& context, const ListOptions& options) {
    CRPL rpl(context.Files(options.WritesFiles() ? FILE_ACCESS::READ_WRITE : FILE_ACCESS::READ_ONLY));
    if (!Take(context, options, rpl)) return;
    const CRouteArray route = DesignRouteOf(rpl);
    PutOut(context, options, TableOf(ListDesignRoute(SourceOf<RouteDef>(route))));
}

struct ListedKind {
    const char* name;
    const char* description;
    std::size_t orders;  ///< 0: no choice
    void (*list)(CliContext& context, const ListOptions& options);
};

const ListedKind kKinds[] = {
    {"boundary", "Points of a boundary", 0, List<CBoundary, tagXY, ListBoundary>},
    {"waypoint", "Points of a waypoint file", kWaypointOrders.size(),
     List<CGridWaypoint, GridWaypointDef, ListWaypoints>},
    {"route", "Points and legs of a route", kRouteOrderTxt.size(), List<CRoute, RouteDef, ListRoute>},
    {"design-route", "Points and tangent points of a route position list, KPs in metres", 0, ListDesign},
    {"sail-line", "Lines of a sail line file", kSailLineOrderTxt.size(), List<CSailLine, SailLineDef, ListSailLines>},
    {"pipeline", "Points and KPs of a pipeline", kPipelineOrderTxt.size(), List<CPipeline, PipelineDef, ListPipeline>},
    {"structure", "Structures and where they stand", 0, List<CStructure, StructureDef, ListStructures>},
};

void AddKind(CLI::App& list, CliContext& context, const ListedKind& kind) {
    const auto options = std::make_shared<ListOptions>();
    CLI::App& command = *list.add_subcommand(kind.name, kind.description);
    command.add_option("FILE", options->file, "The data file")->required()->type_name("");
    if (kind.orders > 0) {
        const auto setOrder = [options](int order) { options->order = order; };
        command.add_option_function<int>("--order", setOrder, "Data order to read by, in place of the stored one")
            ->check(CLI::Range(0, static_cast<int>(kind.orders) - 1));
    }
    command.add_option("--csv", options->csv, "Write as CSV, fields neither quoted nor longer than 80 characters")
        ->type_name("OUT");
    command.add_option("--csv-quoted", options->quotedCsv, "Write as CSV by RFC 4180, every text whole")
        ->type_name("OUT");
    command.add_option("--xlsx", options->workbook, "Write as a workbook")->type_name("OUT");
    command.callback([&context, options, write = kind.list] { write(context, *options); });
}

}  // namespace

void AddListCommand(CLI::App& app, CliContext& context) {
    CLI::App& list = *app.add_subcommand("list", "The listing of a file as the window shows it");
    list.require_subcommand(1);
    list.footer(
        "Without a file to write, the listing goes to standard output. What stood in the place of a file is replaced "
        "when\nthe new one is whole.\n\n"
        "Examples:\n"
        "  quillon list route transit.csv\n"
        "  quillon list design-route export-cable.rlx --csv listing.csv\n"
        "  quillon list waypoint wrecks.csv --csv-quoted wrecks-listing.csv --xlsx wrecks.xlsx");
    for (const ListedKind& kind : kKinds) AddKind(list, context, kind);
}

}  // namespace quillon
