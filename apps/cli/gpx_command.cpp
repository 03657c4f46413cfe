#include "gpx_command.h"

#include <memory>
#include <ostream>
#include <string>

#include "features/gpx.h"
#include "platform/text.h"
#include "sheet.h"

namespace quillon {
namespace {

struct GpxOptions {
    std::string file;  ///< UTF-8
    bool json = false;
};

void PutPoints(Sheet& sheet, const std::string& key, const GpxTrack& track) {
    sheet.BeginTable(key, std::ssize(track.points));
    for (const GpxPoint& point : track.points) {
        sheet.BeginRow();
        sheet.Angle("longitude", point.longitude);
        sheet.Angle("latitude", point.latitude);
        sheet.Real("time", point.time, 3, "s");
        sheet.Metres("leg_distance", point.legDistance);
        sheet.Real("leg_bearing", point.legBearing, 4, "deg");
        sheet.Real("leg_speed", point.legSpeed, 3, "m/s");
        sheet.Metres("total_distance", point.totalDistance);
        sheet.Real("total_time", point.totalTime, 3, "s");
        sheet.Real("average_speed", point.averageSpeed, 3, "m/s");
        sheet.Metres("elevation", point.elevation);
        sheet.EndRow();
    }
    sheet.EndTable();
}

void PutTracks(Sheet& sheet, const CGPX& gpx) {
    if (!sheet.IsNested()) {
        for (const GpxTrack& track : gpx.tracks) PutPoints(sheet, track.name, track);
        return;
    }
    sheet.BeginTable("tracks", std::ssize(gpx.tracks));
    for (const GpxTrack& track : gpx.tracks) {
        sheet.BeginRow();
        sheet.Text("name", track.name);
        sheet.Bool("show", track.show);
        PutPoints(sheet, "points", track);
        sheet.EndRow();
    }
    sheet.EndTable();
}

void PutWaypoints(Sheet& sheet, const CGPX& gpx) {
    sheet.BeginTable("waypoints", std::ssize(gpx.waypoints));
    for (const GpxWaypoint& waypoint : gpx.waypoints) {
        sheet.BeginRow();
        sheet.Bool("show", waypoint.show);
        sheet.Angle("longitude", waypoint.longitude);
        sheet.Angle("latitude", waypoint.latitude);
        sheet.Real("time", waypoint.time, 3, "s");
        sheet.Metres("elevation", waypoint.elevation);
        sheet.Text("name", waypoint.name);
        sheet.EndRow();
    }
    sheet.EndTable();
}

void TellReport(std::ostream& err, const std::string& file, const GpxReport& report) {
    if (!report.fault.empty()) err << file << ": breaks off, " << report.fault << '\n';
    if (report.passedOver > 0) {
        err << file << ": " << report.passedOver << " points without a position, the first on line "
            << report.firstPassed << '\n';
    }
    if (report.badTimes > 0) err << file << ": " << report.badTimes << " times that can't be read\n";
}

void ShowGpx(CliContext& context, const GpxOptions& options) {
    CGPX gpx(context.Files());
    if (!gpx.Load(TextFromUtf8(options.file))) return context.Fail(options.file, gpx.GetReport().fault);
    TellReport(context.err, options.file, gpx.GetReport());
    const std::unique_ptr<Sheet> sheet = options.json ? MakeJsonSheet(context.out) : MakeTextSheet(context.out);
    sheet->Text("path", gpx.path);
    sheet->Bool("show_waypoints", gpx.showWaypoints);
    PutTracks(*sheet, gpx);
    PutWaypoints(*sheet, gpx);
    sheet->Finish();
}

}  // namespace

void AddShowGpx(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<GpxOptions>();
    CLI::App& command = *show.add_subcommand("gpx", "Tracks with their legs on WGS 84, and waypoints");
    command.add_option("FILE", options->file, "The GPX file")->required()->type_name("");
    command.add_flag("--json", options->json, "As JSON, positions in radians, bearings in degrees");
    command.callback([&context, options] { ShowGpx(context, *options); });
    command.footer(
        "Routes stand behind the tracks. Times are seconds since 2 January 2000, UTC; 0 where there is none.\n\n"
        "Examples:\n"
        "  quillon show gpx survey-day-3.gpx\n"
        "  quillon show gpx survey-day-3.gpx --json");
}

}  // namespace quillon
