#include "vessel_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>

#include "cli_context.h"
#include "platform/text.h"
#include "sheet.h"
#include "target/barge.h"
#include "target/seabed_template.h"

namespace quillon {
namespace {

struct VesselOptions {
    std::string file;
    bool json = false;
};

void PutPen(Sheet& sheet, std::string_view key, const tagPen& pen) {
    sheet.BeginGroup(key);
    sheet.Colour("colour", pen.colour);
    sheet.Int("thickness", pen.thickness);
    sheet.Int("style", pen.style);
    sheet.Int("fill", pen.fill);
    sheet.EndGroup();
}

void PutOffsets(Sheet& sheet, std::string_view key, const OffsetPoints& points) {
    sheet.BeginTable(key, static_cast<std::ptrdiff_t>(points.size()));
    for (const OffsetPoint& point : points) {
        sheet.BeginRow();
        sheet.Bool("flag", point.flag);
        sheet.Metres("x", point.x);
        sheet.Metres("y", point.y);
        sheet.Metres("z", point.z);
        sheet.Int("first", point.first);
        sheet.Int("second", point.second);
        sheet.Int("third", point.third);
        sheet.Int("fourth", point.fourth);
        sheet.Real("first_double", point.firstDouble, 3);
        sheet.Real("second_double", point.secondDouble, 3);
        sheet.Text("name", point.name);
        sheet.EndRow();
    }
    sheet.EndTable();
}

void PutTarget(Sheet& sheet, const TargetDisplay& target) {
    sheet.Bool("north_up", target.northUp);
    sheet.Bool("nautical_miles", target.nauticalMiles);
    sheet.Bool("display_labels", target.displayLabels);
    sheet.Bool("label_rings", target.labelRings);
    sheet.Colour("cardinal_colour", target.cardinalColour);
    sheet.Colour("text_colour", target.textColour);
    sheet.Bool("draw_zone_lines", target.drawZoneLines);
    sheet.Real("start_zone", target.startZone, 3, "deg");
    sheet.Real("stop_zone", target.stopZone, 3, "deg");
    sheet.Colour("zone_colour", target.zoneColour);
    sheet.Bool("box_shape", target.boxShape);
    sheet.Metres("box_x", target.boxX);
    sheet.Metres("box_y", target.boxY);
    sheet.Bool("draw_rings", target.drawRings);
    sheet.Int("ring_count", target.ringCount);
    sheet.Metres("ring_radius_metres", target.ringRadiusMetres);
    sheet.Real("ring_radius_nautical_miles", target.ringRadiusNauticalMiles, 3, "NM");
    sheet.Colour("ring_colour", target.ringColour);
}

void PutSettings(Sheet& sheet, const OutlineSettings& settings) {
    sheet.Bool("active", settings.active);
    sheet.Int("primary_gps", settings.primaryGps);
    sheet.Int("primary_mru", settings.primaryMru);
    sheet.Choice("track_type", settings.trackType, kTrackTypeNames);
    sheet.Int("track_index", settings.trackIndex);
    sheet.Int("track_symbol_size", settings.trackSymbolSize);
    sheet.Int("waypoint_file_index", settings.waypointFileIndex);
    sheet.Int("waypoint_index", settings.waypointIndex);
    sheet.Colour("waypoint_colour", settings.waypointColour);
    sheet.Bool("enable_trail", settings.enableTrail);
    sheet.Bool("show_trail", settings.showTrail);
    sheet.Colour("trail_colour", settings.trailColour);
    sheet.Int("max_trail_size", settings.maxTrailSize);
    sheet.Bool("show", settings.show);
    sheet.Text("outline_file", settings.outlineFile);
    PutPen(sheet, "outline_pen", settings.outlinePen);
    PutPen(sheet, "shadow_pen", settings.shadowPen);
    sheet.Metres("length_a", settings.lengthA);
    sheet.Metres("length_b", settings.lengthB);
    sheet.Metres("width_a", settings.widthA);
    sheet.Metres("width_b", settings.widthB);
    sheet.Real("true_alignment", settings.trueAlignment, 3, "deg");
}

void PutTolerances(Sheet& sheet, const OutlineTolerances& tolerances) {
    sheet.Real("heading_tolerance", tolerances.headingTolerance, 3, "deg");
    sheet.Real("pitch_tolerance", tolerances.pitchTolerance, 3, "deg");
    sheet.Real("roll_tolerance", tolerances.rollTolerance, 3, "deg");
    sheet.Metres("depth_tolerance", tolerances.depthTolerance);
    sheet.Int("sail_line_file_index", tolerances.sailLineFileIndex);
    sheet.Int("sail_line_index", tolerances.sailLineIndex);
    sheet.Colour("sail_line_colour", tolerances.sailLineColour);
}

void PutHead(Sheet& sheet, const CBarge& barge) {
    sheet.Metres("draft", barge.draft);
    sheet.Metres("water_line_to_zero", barge.waterLineToZero);
}
void PutHead(Sheet&, const CTemplate&) {}

void PutOwnOffsets(Sheet& sheet, const CBarge& barge) {
    PutOffsets(sheet, "cranes", barge.cranes);
    PutOffsets(sheet, "clump_weights", barge.clumpWeights);
    PutOffsets(sheet, "legs", barge.legs);
    PutOffsets(sheet, "ref_systems", barge.refSystems);
    PutOffsets(sheet, "transducers", barge.transducers);
}
void PutOwnOffsets(Sheet& sheet, const CTemplate& object) {
    PutOffsets(sheet, "reflectors", object.reflectors);
    PutOffsets(sheet, "beacons", object.beacons);
}

template <class Object>
void ShowObject(CliContext& context, const VesselOptions& options) {
    Object object(context.Files());
    if (!object.ReadSettings(TextFromUtf8(options.file))) return context.Fail(options.file, "can't be read");
    const std::unique_ptr<Sheet> sheet = options.json ? MakeJsonSheet(context.out) : MakeTextSheet(context.out);
    sheet->Text("name", object.name);
    PutHead(*sheet, object);
    PutSettings(*sheet, object);
    PutTarget(*sheet, object.target);
    PutTolerances(*sheet, object);
    sheet->BeginGroup("dxf");
    sheet->Bool("use", object.dxf.use);
    sheet->Bool("show_text", object.dxf.showText);
    sheet->Real("scale", object.dxf.scale, 3);
    sheet->EndGroup();
    PutOffsets(*sheet, "antennas", object.antennas);
    PutOffsets(*sheet, "offsets", object.offsets);
    PutOwnOffsets(*sheet, object);
    sheet->Finish();
}

template <class Object>
void AddShow(CLI::App& show, CliContext& context, const std::string& name, const std::string& example) {
    const auto options = std::make_shared<VesselOptions>();
    CLI::App& command = *show.add_subcommand(name, "Settings and offsets of a " + name);
    command.add_option("FILE", options->file, "The settings file")->required()->type_name("");
    command.add_flag("--json", options->json, "As JSON");
    command.callback([&context, options] { ShowObject<Object>(context, *options); });
    command.footer("Example:\n  quillon show " + name + " " + example + " --json");
}

}  // namespace

void AddShowVessels(CLI::App& show, CliContext& context) {
    AddShow<CBarge>(show, context, "vessel", "survey.VSL");
    AddShow<CTemplate>(show, context, "template", "manifold.TPL");
}

}  // namespace quillon
